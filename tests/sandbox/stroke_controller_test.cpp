#include "sandbox/view/stroke_controller.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using testing::ElementsAre;

bool g_open = true;
std::vector<std::string> g_calls;

template <class... Numbers> void record(const char* name, Numbers... numbers) {
    std::string call = name;
    ((call += " " + std::to_string(numbers)), ...);
    g_calls.push_back(call);
}

constexpr EditorCalls CALLS{
    [] { return g_open; },
    [](int x, int z, int edge, int corner) { record("start", x, z, edge, corner); },
    [](int x, int z, int, int, int, int amount) { record("update", x, z, amount); },
    [] { record("stop"); },
    [](int x, int z, int edge, int corner) { record("cursor", x, z, edge, corner); },
};

class StrokeController : public testing::Test {
protected:
    void SetUp() override {
        g_open = true;
        g_calls.clear();
    }
    static std::optional<TerrainHit> at(int x, int z, int edge = 0, int corner = 0) {
        TerrainHit hit;
        hit.x = x;
        hit.z = z;
        hit.edge = edge;
        hit.corner = corner;
        return hit;
    }

    CStrokeController m_strokes{CALLS};
};

TEST_F(StrokeController, DraggingUpRaises) {
    EXPECT_TRUE(m_strokes.press(at(3, 4, 5, 2), 300));
    m_strokes.move(at(3, 3), 260);
    m_strokes.move(at(3, 4), 310);
    m_strokes.end();
    EXPECT_THAT(g_calls, ElementsAre("start 3 4 5 2", "update 3 3 -40", "update 3 4 10", "stop"));
}

TEST_F(StrokeController, EveryCellOnTheWayGetsItsUpdate) {
    m_strokes.press(at(2, 2), 300);
    m_strokes.move(at(6, 4), 292);
    m_strokes.release(at(6, 1), 292);
    EXPECT_THAT(g_calls,
                ElementsAre("start 2 2 0 0", "update 3 3 -2", "update 4 3 -4", "update 5 4 -6",
                            "update 6 4 -8", "update 6 3 -8", "update 6 2 -8", "update 6 1 -8", "stop"));
    g_calls.clear();
    m_strokes.press(at(2, 2), 300); // a click alone
    m_strokes.release(at(2, 2), 300);
    EXPECT_THAT(g_calls, ElementsAre("start 2 2 0 0", "update 2 2 0", "stop"));
    g_calls.clear();
    m_strokes.press(at(2, 2), 300); // released where the last move was
    m_strokes.move(at(2, 1), 300);
    m_strokes.release(at(2, 1), 300);
    EXPECT_THAT(g_calls, ElementsAre("start 2 2 0 0", "update 2 1 0", "stop"));
}

TEST_F(StrokeController, AHillCanBeDrawnIntoTheSky) {
    m_strokes.setUnitsPerPixel(4);
    m_strokes.press(at(3, 4), 300);
    m_strokes.move(at(3, 3), 250);
    m_strokes.move(std::nullopt, 240);
    EXPECT_THAT(g_calls, ElementsAre("start 3 4 0 0", "update 3 3 -200", "update 3 3 -240"));
}

TEST_F(StrokeController, ThePointerHoversOverTheGroundOnlyAndForAnOpenEditor) {
    m_strokes.move(at(7, 8, 1, 3), 100);
    m_strokes.move(std::nullopt, 90);
    EXPECT_FALSE(m_strokes.press(std::nullopt, 100));
    m_strokes.end();
    g_open = false;
    EXPECT_FALSE(m_strokes.press(at(1, 1), 100));
    m_strokes.move(at(1, 2), 90);
    m_strokes.end();
    EXPECT_THAT(g_calls, ElementsAre("cursor 7 8 1 3"));
}

TEST_F(StrokeController, AClosedPanelEndsTheStrokeForGood) {
    m_strokes.press(at(1, 1), 100);
    g_open = false;
    m_strokes.move(at(1, 2), 90);
    EXPECT_FALSE(m_strokes.isStroking());
    g_open = true; // a new panel must not inherit the stroke of the old one
    m_strokes.move(at(1, 3), 80);
    m_strokes.end();
    EXPECT_THAT(g_calls, ElementsAre("start 1 1 0 0", "cursor 1 3 0 0"));
}

TEST_F(StrokeController, ASecondPressEndsTheFirstStroke) {
    m_strokes.press(at(1, 1), 100);
    m_strokes.press(at(2, 2), 50);
    EXPECT_THAT(g_calls, ElementsAre("start 1 1 0 0", "stop", "start 2 2 0 0"));
}

} // namespace
