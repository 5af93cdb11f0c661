#include "engine/memory/movie/memory_movie.h"
#include "movie/awkward_movie.h"
#include "movie/time_text.h"
#include "movie/timeline_drag.h"
#include "movie/timeline_layout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(TimeText, RoundsToTenthsAndCarries) {
    const struct {
        int frame;
        float stepRate;
        const char* text;
    } cases[] = {{37, 25.0F, "00:01.50"},     {1500, 25.0F, "01:00.00"},  {0, 25.0F, "00:00.00"},
                 {3, 25.0F, "00:00.10"},      {5996, 100.0F, "01:00.00"}, {24, 25.0F, "00:01.00"},
                 {7, 10.0F, "00:00.70"},      {-1, 25.0F, "00:00.00"},    {-1525, 25.0F, "-01:01.00"},
                 {50, -25.0F, "-00:02.00"},   {-50, -25.0F, "00:02.00"},  {9, 0.0F, "00:00.00"},
                 {9, NAN, "00:00.00"},        {9, INFINITY, "00:00.00"},  {99, 1e-9F, "00:00.00"},
                 {360000, 1.0F, "6000:00.00"}};
    for (const auto& one : cases) {
        EXPECT_EQ(formatTime(one.frame, one.stepRate), one.text) << one.frame << " at " << one.stepRate;
    }
    CAwkwardMovie movie(9);
    movie.first = 3;
    movie.last = 7;
    EXPECT_EQ(selectionTime(movie), "00:00.10-00:00.30");
    movie.frames.resize(1);
    EXPECT_EQ(selectionTime(movie), "00:00.00");
}

void draw(std::span<std::uint32_t> pixels, const TimelineView& view, qxCMovie& movie) {
    std::vector<TimelineColumn> columns;
    readTimeline(columns, view, movie);
    drawTimeline(pixels, view, columns);
}

/// The picture drawn plainly, mark by mark.
std::vector<std::uint32_t> plainTimeline(const TimelineView& view, qxCMovie& movie) {
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(view.clientWidth * view.clientHeight),
                                      0xFF000000U);
    const int h = view.clientHeight;
    const int w = view.frameWidth;
    const auto fill = [&](int left, int right, int top, int bottom, std::uint32_t rgb) {
        for (int y = top; y < bottom; ++y) {
            for (int x = left; x < std::min(right, view.clientWidth); ++x) {
                pixels[static_cast<std::size_t>(y * view.clientWidth + x)] = 0xFF000000U | rgb;
            }
        }
    };
    for (int x = 0, f = view.firstFrame; x < view.clientWidth; x += w, ++f) {
        if (f < 0 || f >= movie.getNumFrames()) {
            continue;
        }
        const qxCMovieFrame& frame = *movie.getFrame(f);
        const bool isEnd = f == 0 || f == movie.getNumFrames() - 1;
        fill(x, x + w, 0, h, movie.isInRange(f) ? 0x800000 : f % 2 != 0 ? 0x181818 : 0x101010);
        fill(x + w / 4, x + 3 * w / 4, h / 13, 3 * h / 13,
             !frame.keyframe ? 0x404040
             : isEnd         ? 0xFFFFFF
                             : 0xC0C0C0);
        fill(x + w / 4, x + 3 * w / 4, 4 * h / 13, 6 * h / 13, 0x404040);
        if (frame.fadeLevel != 1.0F) {
            const int top =
                4 * h / 13 + static_cast<int>(static_cast<float>(h) * frame.fadeLevel * 0.15384616F);
            fill(x + w / 4, x + 3 * w / 4, top, 6 * h / 13, 0xC0C0C0);
        }
        if (movie.getSoundAtFrame(f) >= 0) {
            fill(x, x + w, 7 * h / 13, 9 * h / 13, movie.getSoundAtFrame(f) % 2 != 0 ? 0x00C000 : 0x008000);
        }
        fill(x + w / 4, x + 3 * w / 4, 10 * h / 13, 12 * h / 13,
             frame.animTrigger[0] != 0 ? 0xC0C0C0 : 0x404040);
    }
    return pixels;
}

TEST(TimelinePicture, IsThatOfEveryMarkDrawnPlainly) {
    CAwkwardMovie movie(12);
    for (int i = 0; i < 12; ++i) {
        movie.getFrame(i)->keyframe = i % 3 == 0 || i == 11;
        movie.getFrame(i)->fadeLevel = static_cast<float>(i) / 11.0F;
        movie.getFrame(i)->setAnimTrigger(i % 4 == 1 ? "mill" : "");
    }
    movie.first = 2;
    movie.last = 4;
    for (const auto& [width, height] : {std::pair{100, 52}, {1, 1}, {37, 29}, {520, 13}}) {
        for (int frameWidth = 1; frameWidth <= 64; frameWidth *= 2) {
            for (const int first : {-1, 0, 7}) {
                const TimelineView view{width, height, frameWidth, first};
                std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width * height), 1);
                draw(pixels, view, movie);
                ASSERT_EQ(pixels, plainTimeline(view, movie))
                    << width << " by " << height << ", " << frameWidth;
            }
        }
    }
    for (const float level : {NAN, INFINITY, -5.0F, 1e30F}) {
        movie.getFrame(0)->fadeLevel = level;
        movie.hidesFrames = level == 1e30F;
        std::vector<std::uint32_t> pixels(100);
        draw(pixels, {10, 10, 4, std::numeric_limits<int>::max()}, movie);
        draw(pixels, {10, 10, 4, 0}, movie);
        draw({}, {0, 10, 4, 0}, movie);
    }
}

TEST(TimelineDrag, EndsWhereAnEngineRefusesFrames) {
    TimelineView view{640, 52, 16, 0};
    CAwkwardMovie movie(20);
    CTimelineDrag drag;
    drag.rightDown(movie, view, 19 * 16, false);
    EXPECT_TRUE(drag.rightUp(movie, view, 24 * 16));
    EXPECT_EQ(movie.getNumFrames(), 25);
    EXPECT_EQ(movie.getFrame(24)->fov, 19.0F) << "the last frame went along";
    movie.refusesInsert = true;
    drag.rightDown(movie, view, 24 * 16, false);
    drag.rightUp(movie, view, std::numeric_limits<int>::max());
    EXPECT_EQ(movie.getNumFrames(), 25);
}

} // namespace
