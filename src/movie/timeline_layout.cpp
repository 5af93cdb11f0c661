#include "movie/timeline_layout.h"

#include "engine/qx_movie.h"
#include "movie/time_text.h"

#include <algorithm>
#include <bit>
#include <limits>
#include <vector>

namespace {

constexpr std::uint32_t grey(std::uint32_t level) {
    return 0xFF000000U | level << 16U | level << 8U | level;
}

constexpr std::uint32_t BLACK = grey(0);
constexpr std::uint32_t ODD_FRAME = grey(24);
constexpr std::uint32_t EVEN_FRAME = grey(16);
constexpr std::uint32_t DARK_MARK = grey(64);
constexpr std::uint32_t LIGHT_MARK = grey(192);
constexpr std::uint32_t END_KEY_MARK = grey(255);
constexpr std::uint32_t SELECTED = 0xFF800000U;
constexpr std::uint32_t ODD_SOUND = 0xFF00C000U;
constexpr std::uint32_t EVEN_SOUND = 0xFF008000U;

constexpr int BAND_UNITS = 13;                 // parts of the height that the bands are measured in
constexpr float FADE_BAND_SHARE = 0.15384616F; // two of them
constexpr int MOST = std::numeric_limits<int>::max();
constexpr int LEAST = std::numeric_limits<int>::min();

int heldToInt(long long value) {
    return static_cast<int>(std::clamp<long long>(value, LEAST, MOST));
}

/// Pixel rows from `top` to before `bottom`.
struct Band {
    int top;
    int bottom;
};

Band band(int height, int firstUnit, int endUnit) {
    const auto edge = [height](int unit) { return static_cast<int>(1LL * unit * height / BAND_UNITS); };
    return {edge(firstUnit), edge(endUnit)};
}

/// Rows of a fade's band that stay dark; -1 for a frame that is not faded, or far beyond it.
std::int16_t darkRows(float fadeLevel, int height) {
    const float dark = static_cast<float>(height) * fadeLevel * FADE_BAND_SHARE;
    if (fadeLevel == 1.0F || dark >= static_cast<float>(height)) {
        return -1;
    }
    return dark >= 0.0F ? static_cast<std::int16_t>(dark) : std::int16_t{0};
}

/// Marks stand in the middle half of a column, which one of a single pixel does not have.
bool hasMarks(const TimelineView& view) {
    return view.frameWidth > 1;
}

/// What a column shows of the frame itself; `index` is one of the movie's `count` frames.
void readMarks(TimelineColumn& column, const qxCMovieFrame& frame, int index, int count, int height) {
    const bool isEnd = index == 0 || index == count - 1;
    column.key = !frame.keyframe ? DARK_MARK : isEnd ? END_KEY_MARK : LIGHT_MARK;
    column.fadeRows = darkRows(frame.fadeLevel, height);
    column.trigger = frame.animTrigger[0] != 0;
}

/// Reads a movie column by column.
class CColumnReader {
public:
    CColumnReader(const TimelineView& view, qxCMovie& movie)
        : m_movie(movie)
        , m_nHeight(view.clientHeight)
        , m_bMarks(hasMarks(view))
        , m_nCount(movie.getNumFrames())
        , m_nRangeStart(movie.getRangeStart())
        , m_nRangeEnd(movie.getRangeEnd()) {}

    TimelineColumn column(long long index) const {
        return index >= 0 && index < m_nCount ? columnOf(static_cast<int>(index)) : TimelineColumn();
    }

private:
    TimelineColumn columnOf(int index) const {
        TimelineColumn column;
        const qxCMovieFrame* const frame = m_bMarks ? m_movie.getFrame(index) : nullptr;
        if (m_bMarks && frame == nullptr) {
            return column;
        }
        const bool isSelected = m_nRangeStart <= index && index <= m_nRangeEnd;
        column.frame = true;
        column.background = isSelected ? SELECTED : index % 2 != 0 ? ODD_FRAME : EVEN_FRAME;
        const int sound = m_movie.getSoundAtFrame(index);
        column.sound = sound < 0 ? column.background : sound % 2 != 0 ? ODD_SOUND : EVEN_SOUND;
        if (m_bMarks) {
            readMarks(column, *frame, index, m_nCount, m_nHeight);
        }
        return column;
    }

    qxCMovie& m_movie;
    const int m_nHeight;
    const bool m_bMarks;
    const int m_nCount;
    const int m_nRangeStart;
    const int m_nRangeEnd;
};

/// The picture a column at a time: within a band all rows are alike, except where fades reach to different
/// heights.
class CTimelineRows {
public:
    CTimelineRows(const TimelineView& view, std::span<const TimelineColumn> columns);
    void copyTo(std::span<std::uint32_t> pixels) const;

private:
    using Row = std::vector<std::uint32_t>;

    void drawColumn(const TimelineColumn& column, int left, int frameWidth);

    int m_nHeight;
    Band m_fadeBand;
    bool m_bMarks;
    Row m_background;
    Row m_key;
    Row m_fade;
    Row m_sound;
    Row m_trigger;
    std::vector<int> m_fadeTop; // pixel row from which a column's fade is light
};

CTimelineRows::CTimelineRows(const TimelineView& view, std::span<const TimelineColumn> columns)
    : m_nHeight(view.clientHeight), m_fadeBand(band(view.clientHeight, 4, 6)), m_bMarks(hasMarks(view)) {
    const auto width = static_cast<std::size_t>(view.clientWidth);
    m_background.assign(width, BLACK);
    m_sound = m_background;
    if (!m_bMarks) {
        std::ranges::transform(columns, m_background.begin(), &TimelineColumn::background);
        std::ranges::transform(columns, m_sound.begin(), &TimelineColumn::sound);
        return;
    }
    m_key = m_fade = m_trigger = m_background;
    m_fadeTop.assign(width, MOST);
    int left = 0;
    for (const TimelineColumn& column : columns) {
        if (column.frame) {
            drawColumn(column, left, view.frameWidth);
        }
        left += view.frameWidth;
    }
}

void CTimelineRows::drawColumn(const TimelineColumn& column, int left, int frameWidth) {
    const int width = static_cast<int>(m_background.size());
    const int right = std::min(left + frameWidth, width);
    const int markLeft = std::min(left + frameWidth / 4, width);
    const int markRight = std::min(left + 3 * frameWidth / 4, width);
    const auto whole = [=](Row& row, std::uint32_t colour) {
        std::fill(row.begin() + left, row.begin() + right, colour);
    };
    const auto inner = [=](auto& row, auto value) {
        std::fill(row.begin() + markLeft, row.begin() + markRight, value);
    };
    for (Row* const row : {&m_background, &m_key, &m_fade, &m_trigger}) {
        whole(*row, column.background);
    }
    whole(m_sound, column.sound);
    inner(m_key, column.key);
    inner(m_fade, DARK_MARK);
    inner(m_trigger, column.trigger ? LIGHT_MARK : DARK_MARK);
    if (column.fadeRows >= 0) {
        inner(m_fadeTop, m_fadeBand.top + column.fadeRows);
    }
}

void CTimelineRows::copyTo(std::span<std::uint32_t> pixels) const {
    const std::size_t width = m_background.size();
    const auto copyRows = [&](const Row& row, Band rows) {
        for (int y = rows.top; y < rows.bottom; ++y) {
            std::ranges::copy(row, pixels.begin() + static_cast<std::ptrdiff_t>(width) * y);
        }
    };
    copyRows(m_background, {0, m_nHeight});
    copyRows(m_sound, band(m_nHeight, 7, 9));
    if (!m_bMarks) {
        return;
    }
    copyRows(m_key, band(m_nHeight, 1, 3));
    copyRows(m_fade, m_fadeBand);
    copyRows(m_trigger, band(m_nHeight, 10, 12));
    if (std::ranges::all_of(m_fadeTop, [](int top) { return top == MOST; })) {
        return;
    }
    for (int y = m_fadeBand.top; y < m_fadeBand.bottom; ++y) {
        std::uint32_t* const line = pixels.data() + width * static_cast<std::size_t>(y);
        for (std::size_t x = 0; x < width; ++x) {
            line[x] = y >= m_fadeTop[x] ? LIGHT_MARK : line[x];
        }
    }
}

} // namespace

void TimelineView::setFrameWidth(int pixels) {
    frameWidth = static_cast<int>(std::bit_floor(static_cast<unsigned>(std::clamp(pixels, 1, WIDEST_FRAME))));
}

int TimelineView::frameAt(int x) const {
    return heldToInt(static_cast<long long>(x / frameWidth) + firstFrame);
}

bool TimelineView::ensureVisible(int frame) {
    const int before = firstFrame;
    if (frame < firstFrame) {
        firstFrame = frame;
    } else if (frame >= static_cast<long long>(firstFrame) + wholeColumns()) {
        firstFrame = heldToInt(static_cast<long long>(frame) - wholeColumns() + 1);
    }
    return firstFrame != before;
}

bool TimelineView::scrollBy(int frames, int movieFrames) {
    const int before = firstFrame;
    const long long asked = std::max(static_cast<long long>(firstFrame) + frames, 0LL);
    firstFrame = static_cast<int>(std::min<long long>(asked, std::max(movieFrames - 1, 0)));
    return firstFrame != before;
}

bool TimelineView::zoomAbout(int x, bool closer) {
    const TimelineView before = *this;
    const int pointed = frameAt(x);
    setFrameWidth(closer ? frameWidth * 2 : frameWidth / 2);
    if (frameWidth == before.frameWidth) {
        return false;
    }
    firstFrame = heldToInt(std::max(static_cast<long long>(pointed) - x / frameWidth, 0LL));
    return true;
}

void readTimeline(std::vector<TimelineColumn>& columns, const TimelineView& view, qxCMovie& movie) {
    const CColumnReader reader(view, movie);
    columns.clear();
    long long index = view.firstFrame;
    for (int left = 0; left < view.clientWidth; left += view.frameWidth) {
        columns.push_back(reader.column(index++));
    }
}

void drawTimeline(std::span<std::uint32_t> pixels, const TimelineView& view,
                  std::span<const TimelineColumn> columns) {
    if (view.clientWidth > 0 && view.clientHeight > 0) {
        CTimelineRows(view, columns).copyTo(pixels);
    }
}

std::string timelineTip(int x, const TimelineView& view, const qxCMovie& movie) {
    const int frame = view.frameAt(x);
    if (x < 0 || x >= view.clientWidth || frame < 0 || frame >= movie.getNumFrames()) {
        return {};
    }
    return "Frame " + std::to_string(frame) + ", " + formatTime(frame, movie.getStepRate());
}
