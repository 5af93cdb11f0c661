#include "terrain/support/test_panel.h"

#include "host/forwarding_map.h"

#include <sstream>
#include <string>

// What an engine is told, and in which order: two maps that end alike may have been told different things.

namespace {

using Log = std::vector<std::string>;

/// Writes down the calls of the tools and of the history, one line each.
class CLoggingMap : public CForwardingMap {
public:
    void setPointHeight(int x, int z, int height, bool direct) override {
        write("height", x, z, height, direct ? "direct" : "indirect");
    }
    void setPointColour(int layer, int x, int z, const qxCColour& colour) override {
        write("colour", layer, x, z, int{colour.r});
    }
    void setPointBlend(int layer, int x, int z, int value) override { write("blend", layer, x, z, value); }
    int getPointHeightQ(int x, int z) const override {
        write("read height", x, z);
        return 65536 + 7; // a record keeps its lower half
    }
    qxCColour getPointColourQ(int layer, int x, int z) const override {
        write("read colour", layer, x, z);
        return {1, 2, 3, 4};
    }
    int getPointBlendQ(int layer, int x, int z) const override {
        write("read blend", layer, x, z);
        return 9;
    }
    void paintMultiTexture(int x, int z, float weight) override { write("paint", x, z, weight); }
    void addWater(int x, int z) override { write("add water", x, z); }
    void removeWater(int x, int z) override { write("remove water", x, z); }

    mutable Log log;

private:
    template <typename... Values> void write(const char* call, const Values&... values) const {
        std::ostringstream line;
        line << call;
        ((line << ' ' << values), ...);
        log.push_back(line.str());
    }
};

class EngineCalls : public testing::Test {
protected:
    EngineCalls() {
        g_mapUndoList.clear();
        m_panel.m_pMap = &m_map;
        m_panel.m_nHeight = 77;
    }
    ~EngineCalls() override { g_mapUndoList.clear(); }

    CLoggingMap m_map;
    CTestPanel m_panel;
};

} // namespace

TEST_F(EngineCalls, GoRowByRowAndTellHandWorkFromFilters) {
    const struct {
        int tool, brush, strength;
        Log written; ///< by a stroke at (2, 3)
    } cases[] = {
        {TOOL_PAINT, BRUSH_POINT, 10, {"paint 3 3 1"}},
        {TOOL_PAINT, BRUSH_EDGE, 1, {"paint 2 3 0.1", "paint 3 4 0.1"}},
        {TOOL_PAINT,
         BRUSH_PLUS,
         10,
         {"paint 3 3 0.5", "paint 2 4 0.5", "paint 3 4 1", "paint 4 4 0.5", "paint 3 5 0.5"}},
        {TOOL_SMOOTH,
         BRUSH_DISC,
         10,
         {"height 2 3 0 indirect", "height 3 3 0 indirect", "height 2 4 0 indirect",
          "height 3 4 0 indirect"}},
        {TOOL_SET_HEIGHT,
         BRUSH_CELL,
         10,
         {"height 2 3 77 direct", "height 3 3 77 direct", "height 2 4 77 direct", "height 3 4 77 direct"}},
        {TOOL_RAISE, BRUSH_POINT, 1, {"height 3 3 0 direct"}},
        {TOOL_FLOOD, BRUSH_DISC, 10, {"add water 2 3"}},
        {TOOL_DRAIN, BRUSH_DISC, 10, {"remove water 2 3"}},
        {13, BRUSH_DISC, 10, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << "tool " << c.tool << " brush " << c.brush);
        m_panel.m_nTool = c.tool;
        m_panel.m_nBrushSize = c.brush;
        m_panel.m_nStrength = c.strength;
        m_map.log.clear();
        strokeStart(m_panel, 2, 3, 4, 1);
        strokeEnd(m_panel);
        std::erase_if(m_map.log, [](const std::string& line) { return line.starts_with("read"); });
        EXPECT_EQ(m_map.log, c.written);
    }
}

TEST_F(EngineCalls, ReadEveryPointBeforeTheFirstWriteAndRestoreNewestFirst) {
    m_panel.m_nTool = TOOL_FLATTEN;
    strokeStart(m_panel, 16, 2, 0, 0); // the last column: the cell's right side does not exist
    strokeUpdate(m_panel, 0, 0, 0);
    EXPECT_EQ(Log(m_map.log.begin(), m_map.log.begin() + 7),
              (Log{"read blend 1 16 2", "read colour 0 16 2", "read height 16 2", "read blend 1 16 3",
                   "read colour 0 16 3", "read height 16 3", "height 16 2 0 direct"}));
    EXPECT_EQ(g_mapUndoList.getCount(), 6);

    m_map.log.clear();
    undo(m_panel);
    ASSERT_EQ(m_map.log.size(), 18U);
    EXPECT_EQ(Log(m_map.log.begin(), m_map.log.begin() + 3),
              (Log{"height 1 1 7 indirect", "colour 0 1 1 1", "blend 1 1 1 9"}));
    EXPECT_EQ(m_map.log.back(), "blend 1 16 2 9");
    EXPECT_TRUE(g_mapUndoList.isEmpty());
}
