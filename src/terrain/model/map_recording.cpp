#include "terrain/model/map_recording.h"

#include "engine/qx_map.h"
#include "terrain/grid/grid_area.h"
#include "terrain/model/map_editor_model.h"
#include "terrain/model/map_undo_list.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <span>

namespace {

constexpr int COLOUR_LAYER = 0;
constexpr int BLEND_LAYER = 1;

enum class StepStart { NO, YES };

void recordPoint(const qxCMap& map, int x, int z, StepStart start) {
    const int blend = map.getPointBlendQ(BLEND_LAYER, x, z);
    const qxCColour colour = map.getPointColourQ(COLOUR_LAYER, x, z);
    const int height = map.getPointHeightQ(x, z);
    MapUndoRecord& record = g_mapUndoList.append();
    record.colour = std::bit_cast<std::uint32_t>(colour);
    record.x = static_cast<std::uint16_t>(x);
    record.z = static_cast<std::uint16_t>(z);
    record.height = static_cast<std::uint16_t>(height);
    record.blend = static_cast<std::uint16_t>(blend);
    record.groupStart = start == StepStart::YES ? 1 : 0;
}

void writePoint(qxCMap& map, const MapUndoRecord& record) {
    map.setPointHeight(record.x, record.z, record.height, false);
    map.setPointColour(COLOUR_LAYER, record.x, record.z, std::bit_cast<qxCColour>(record.colour));
    map.setPointBlend(BLEND_LAYER, record.x, record.z, record.blend);
}

} // namespace

void recordBlock(CMapEditorModel& model, std::int64_t x0, std::int64_t z0, std::int64_t x1, std::int64_t z1) {
    const qxCMap& map = *model.m_pMap;
    const GridArea area = areaOnGrid(map, x0, z0, x1, z1);
    // A full history keeps only the newest records. Those of a block that is larger than the history would
    // drop out again before its end: they are not even read, which is most of the time of a large block.
    const std::size_t points = area.pointCount();
    std::size_t skipped = points - std::min<std::size_t>(points, CMapUndoList::CAPACITY);
    StepStart start = !model.m_stroke.hasRecorded && skipped == 0 ? StepStart::YES : StepStart::NO;
    model.m_stroke.hasRecorded = model.m_stroke.hasRecorded || points > 0;
    const auto rows = static_cast<std::size_t>(area.isEmpty() ? 1 : area.z1 - area.z0 + 1);
    for (int x = area.x0 + static_cast<int>(skipped / rows); x <= area.x1; ++x) {
        for (int z = area.z0 + static_cast<int>(skipped % rows); z <= area.z1; ++z) {
            recordPoint(map, x, z, start);
            start = StepStart::NO;
        }
        skipped = 0; // only the first column kept is cut
    }
}

void undo(CMapEditorModel& model) {
    model.m_stroke.hasRecorded = false; // what a stroke records after an undo in its middle is a new step
    // Read where the records stand: taking them off one by one would wait for the count at every point.
    while (!g_mapUndoList.isEmpty()) {
        const std::span<const MapUndoRecord> run = g_mapUndoList.getNewestRun();
        std::size_t left = run.size();
        bool strokeDone = false;
        while (left > 0 && !strokeDone) {
            const MapUndoRecord& record = run[--left];
            writePoint(*model.m_pMap, record);
            strokeDone = record.groupStart != 0;
        }
        g_mapUndoList.dropNewest(run.size() - left);
        if (strokeDone) {
            return;
        }
    }
}
