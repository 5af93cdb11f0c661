#include "terrain/support/test_panel.h"

#include "engine/qx_texture.h"
#include "terrain/edit_cursor.h"
#include "terrain/model/map_selection.h"

#include <bit>
#include <cstdint>
#include <span>
#include <string>

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

enum class Tab { TERRAIN, DETAILS };

struct GoldenStep {
    Tab tab;
    int tool;
    int brush;
    int strength;
    std::uint64_t hash;
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
    const GoldenStep steps[] = {
        {Tab::TERRAIN, TOOL_RAISE, 5, 10, 14782768038575419912U},
        {Tab::TERRAIN, TOOL_MAGNET, 2, 4, 18367712185021246578U},
        {Tab::TERRAIN, TOOL_ROUGHEN, 2, 10, 4336090231385788139U},
        {Tab::TERRAIN, TOOL_SMOOTH, 2, 7, 6018649391104548450U},
        {Tab::TERRAIN, TOOL_TINT, 3, 10, 16326846445119282122U},
        {Tab::TERRAIN, TOOL_FLATTEN, 2, 1, 6478382382746574947U},
        {Tab::TERRAIN, TOOL_SET_HEIGHT, 4, 1, 1236950283662710952U},
        {Tab::TERRAIN, TOOL_FLOOD, 2, 1, 11762382842553688185U},
        {Tab::TERRAIN, TOOL_PAINT, 4, 8, 5978433110641667520U},
        {Tab::TERRAIN, TOOL_PAINT, 5, 3, 2896189952094067128U},
        {Tab::TERRAIN, TOOL_DRAIN, 2, 1, 13421622510985044361U},
        {Tab::TERRAIN, TOOL_SELECT, 2, 1, 8333343385138418377U},
        {Tab::TERRAIN, TOOL_TINT, 0, 6, 1274508731408434632U},
        {Tab::TERRAIN, TOOL_SELECT, 2, 1, 5487471576869932424U},
        {Tab::TERRAIN, TOOL_RAISE, 1, 1, 9761687009585819859U},
        {Tab::DETAILS, DETAIL_ADD_QUAD, 2, 1, 15972704556580756976U},
        {Tab::DETAILS, DETAIL_ROTATE, 2, 1, 10130375895652637486U},
        {Tab::DETAILS, DETAIL_ADD_POINT, 2, 1, 8555405683432590641U},
        {Tab::DETAILS, DETAIL_SCALE, 2, 1, 2161287506325419932U},
        {Tab::DETAILS, DETAIL_DUPLICATE, 2, 1, 11407558581991165532U},
        {Tab::DETAILS, DETAIL_FLIP, 2, 1, 8804965351454283366U},
        {Tab::DETAILS, DETAIL_DELETE, 2, 1, 2821014603377420422U},
    };
    for (const GoldenStep& step : steps) {
        m_panel.isDetails = step.tab == Tab::DETAILS;
        m_panel.m_nTool = step.tool;
        m_panel.m_nBrushSize = step.brush;
        m_panel.m_nStrength = step.strength;
        updateCursor(m_panel, 9, 6, 0, 0, CursorUse::HOVER);
        start(6, 5, 5, 2);
        update(7, 7, -13);
        update(9, 6, -29);
        stop();
        EXPECT_EQ(CMapHash::of(m_map), step.hash) << (m_panel.isDetails ? "detail tool " : "tool ")
                                                  << step.tool << ": " << CMapHash::of(m_map) << 'U';
    }
    for (int strokes = 0; strokes < 5; ++strokes) {
        undo(m_panel);
    }
    EXPECT_EQ(CMapHash::of(m_map), 307256068323357238U) << "undone: " << CMapHash::of(m_map) << 'U';
}
