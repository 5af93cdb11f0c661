#include "terrain/support/test_panel.h"

#include "engine/qx_texture.h"
#include "terrain/edit_cursor.h"
#include "terrain/model/map_selection.h"

#include <cstdint>
#include <span>

namespace {

/// FNV-1a over everything that a map holds.
class CMapHash {
public:
    template <typename T> void add(std::span<const T> values) {
        for (const std::byte byte : std::as_bytes(values)) {
            m_nHash = (m_nHash ^ std::to_integer<std::uint64_t>(byte)) * 1'099'511'628'211U;
        }
    }

    static std::uint64_t of(const CMemoryMap& map) {
        CMapHash hash;
        hash.add(map.getHeights());
        hash.add(map.getColours());
        hash.add(map.getBlends());
        hash.add(map.getWaterFlags());
        hash.add(map.getMarkers());
        for (int i = 0; i < map.getDetails().size(); ++i) {
            const qxCMapDetailRecord& detail = map.getDetails()[i];
            for (const qxCVector3d& point : {detail.point0, detail.point1, detail.point2}) {
                hash.add(std::span<const float>(&point.x, 1));
                hash.add(std::span<const float>(&point.z, 1));
            }
        }
        return hash.m_nHash;
    }

private:
    std::uint64_t m_nHash = 14'695'981'039'346'656'037U;
};

} // namespace

using GoldenSession = TerrainTest;

/// A session with every tool in turn: whatever shifts a point, a rounding or a random draw shows here, in
/// every build alike.
TEST_F(GoldenSession, EveryStrokeLeavesTheMapAsItAlwaysDid) {
    qxCMapMultiTexture* const rock = m_map.addMultiTexture();
    rock->tint2 = {120, 60, 30, 255};
    rock->blend = 0.6F;
    rock->variation = 0.3F;
    m_map.waterLevel = 96.0F;
    qxCTexture texture;
    m_panel.m_pDetailTexture = &texture;
    m_panel.m_nHeight = 90;
    m_panel.tint = {30, 200, 90, 255};
    const struct {
        int tool, brush, strength;
    } strokes[] = {{TOOL_RAISE, 5, 10}, {TOOL_MAGNET, 2, 4},  {TOOL_ROUGHEN, 2, 10},   {TOOL_SMOOTH, 2, 7},
                   {TOOL_TINT, 3, 10},  {TOOL_FLATTEN, 2, 1}, {TOOL_SET_HEIGHT, 4, 1}, {TOOL_FLOOD, 2, 1},
                   {TOOL_PAINT, 4, 8},  {TOOL_PAINT, 5, 3},   {TOOL_DRAIN, 2, 1},      {TOOL_SELECT, 2, 1},
                   {TOOL_TINT, 0, 6},   {TOOL_SELECT, 2, 1},  {TOOL_RAISE, 1, 1}};
    const auto work = [this](int tool, int brush, int strength) {
        m_panel.m_nTool = tool;
        m_panel.m_nBrushSize = brush;
        m_panel.m_nStrength = strength;
        updateCursor(m_panel, 9, 6, 0, 0, CursorUse::HOVER);
        start(6, 5, 5, 2);
        update(7, 7, -13);
        update(9, 6, -29);
        stop();
    };
    for (const auto& [tool, brush, strength] : strokes) {
        work(tool, brush, strength);
    }
    EXPECT_EQ(CMapHash::of(m_map), 9761687009585819859U);
    m_panel.isDetails = true;
    for (const int tool : {DETAIL_ADD_QUAD, DETAIL_ROTATE, DETAIL_ADD_POINT, DETAIL_SCALE, DETAIL_DUPLICATE,
                           DETAIL_FLIP, DETAIL_DELETE}) {
        work(tool, 2, 1);
    }
    EXPECT_EQ(CMapHash::of(m_map), 2821014603377420422U);
    for (int strokesBack = 0; strokesBack < 5; ++strokesBack) {
        undo(m_panel);
    }
    EXPECT_EQ(CMapHash::of(m_map), 307256068323357238U) << "undone";
}
