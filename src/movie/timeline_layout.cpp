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

/// The picture a column at a time: within a band all rows are alike, except where fades reach to different
/// heights.
class CTimelineRows {
public:
    CTimelineRows(const TimelineView& view, qxCMovie& movie);
    void copyTo(std::span<std::uint32_t> pixels) const;

private:
    using Row = std::vector<std::uint32_t>;

    void drawColumn(const TimelineView& view, qxCMovie& movie, int index, int left);
    void mark(Row& row, std::uint32_t colour) const;

    int m_nHeight;
    Band m_fadeBand;
    Row m_background;
    Row m_key;
    Row m_fade;
    Row m_sound;
    Row m_trigger;
    std::vector<int> m_fadeTop; // pixel row from which a column's fade is light
    // Of the column that is being drawn.
    int m_nLeft = 0;
    int m_nRight = 0;
    int m_nMarkLeft = 0;
    int m_nMarkRight = 0;
};

CTimelineRows::CTimelineRows(const TimelineView& view, qxCMovie& movie)
    : m_nHeight(view.clientHeight), m_fadeBand(band(view.clientHeight, 4, 6)) {
    const auto width = static_cast<std::size_t>(view.clientWidth);
    m_background.assign(width, BLACK);
    m_key = m_fade = m_sound = m_trigger = m_background;
    m_fadeTop.assign(width, MOST);
    const int count = movie.getNumFrames();
    for (int left = 0; left < view.clientWidth; left += view.frameWidth) {
        const long long index = static_cast<long long>(view.firstFrame) + left / view.frameWidth;
        if (index >= 0 && index < count) {
            drawColumn(view, movie, static_cast<int>(index), left);
        }
    }
}

void CTimelineRows::mark(Row& row, std::uint32_t colour) const {
    std::fill(row.begin() + m_nMarkLeft, row.begin() + m_nMarkRight, colour);
}

void CTimelineRows::drawColumn(const TimelineView& view, qxCMovie& movie, int index, int left) {
    const qxCMovieFrame* const frame = movie.getFrame(index);
    if (frame == nullptr) {
        return;
    }
    m_nLeft = left;
    m_nRight = std::min(left + view.frameWidth, view.clientWidth);
    m_nMarkLeft = std::min(left + view.frameWidth / 4, view.clientWidth);
    m_nMarkRight = std::min(left + 3 * view.frameWidth / 4, view.clientWidth);
    const std::uint32_t background = movie.isInRange(index) ? SELECTED
                                     : index % 2 != 0       ? ODD_FRAME
                                                            : EVEN_FRAME;
    for (Row* const row : {&m_background, &m_key, &m_fade, &m_sound, &m_trigger}) {
        std::fill(row->begin() + m_nLeft, row->begin() + m_nRight, background);
    }
    const bool isEnd = index == 0 || index == movie.getNumFrames() - 1;
    mark(m_key, !frame->keyframe ? DARK_MARK : isEnd ? END_KEY_MARK : LIGHT_MARK);
    mark(m_fade, DARK_MARK);
    if (frame->fadeLevel != 1.0F) {
        const float dark = static_cast<float>(m_nHeight) * frame->fadeLevel * FADE_BAND_SHARE;
        const int rows = dark >= 0.0F && dark < static_cast<float>(m_nHeight) ? static_cast<int>(dark) : 0;
        const int top = dark < static_cast<float>(m_nHeight) ? m_fadeBand.top + rows : MOST;
        std::fill(m_fadeTop.begin() + m_nMarkLeft, m_fadeTop.begin() + m_nMarkRight, top);
    }
    const int sound = movie.getSoundAtFrame(index);
    if (sound >= 0) {
        std::fill(m_sound.begin() + m_nLeft, m_sound.begin() + m_nRight,
                  sound % 2 != 0 ? ODD_SOUND : EVEN_SOUND);
    }
    mark(m_trigger, frame->animTrigger[0] != 0 ? LIGHT_MARK : DARK_MARK);
}

void CTimelineRows::copyTo(std::span<std::uint32_t> pixels) const {
    const std::size_t width = m_background.size();
    const auto copyRows = [&](const Row& row, Band rows) {
        for (int y = rows.top; y < rows.bottom; ++y) {
            std::ranges::copy(row, pixels.begin() + static_cast<std::ptrdiff_t>(width) * y);
        }
    };
    copyRows(m_background, {0, m_nHeight});
    copyRows(m_key, band(m_nHeight, 1, 3));
    copyRows(m_fade, m_fadeBand);
    copyRows(m_sound, band(m_nHeight, 7, 9));
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

void drawTimeline(std::span<std::uint32_t> pixels, const TimelineView& view, qxCMovie& movie) {
    if (view.clientWidth > 0 && view.clientHeight > 0) {
        CTimelineRows(view, movie).copyTo(pixels);
    }
}

std::string timelineTip(int x, const TimelineView& view, const qxCMovie& movie) {
    const int frame = view.frameAt(x);
    if (x < 0 || x >= view.clientWidth || frame < 0 || frame >= movie.getNumFrames()) {
        return {};
    }
    return "Frame " + std::to_string(frame) + ", " + formatTime(frame, movie.getStepRate());
}
