#include "bench/ratio.h"
#include "host/veskutil.h"
#include "module/module_state.h"
#include "sandbox/journal/map_journal.h"
#include "terrain/model/map_editor_model.h"
#include "terrain/model/map_selection.h"
#include "terrain/model/map_undo_list.h"
#include "terrain/panel/map_editor_dlg.h"
#include "terrain/stroke_engine.h"

#include <QApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <sched.h>
#include <vector>

// What the sandbox's journal costs the map editor's strokes: the same strokes on a map that keeps a journal
// and on one that does not, the end of the step included; and what it takes to take one back.

namespace {

constexpr int BRUSH_EDGE = 1024; // cells
constexpr int LARGE_EDGE = 4096;

class CBenchPanel : public CMapEditorModel {
public:
    explicit CBenchPanel(qxCMap& map) {
        m_pMap = &map;
        m_nBrushSize = 5;
        m_nStrength = 1;
    }
    bool isDetailsTab() const override { return false; }
    void showMembers() override {}
    qxCColour getToolTint() const override { return {}; }
};

/// Seconds of a stroke of the largest brush through the exports: 200 updates tint the ground, cursor and
/// marks follow, and `end` ends the step.
template <class End> double strokeSeconds(CMemoryMap& map, const End& end) {
    vuCreateEditor(nullptr, &map, "", nullptr, true, nullptr);
    g_pMapEditorDlg->m_nTool = TOOL_TINT;
    g_pMapEditorDlg->m_nBrushSize = 5;
    g_pMapEditorDlg->m_nStrength = 10;
    const auto begin = std::chrono::steady_clock::now();
    vuStartEditing(100, 100, 0, 0);
    for (int x = 101; x <= 300; ++x) {
        vuUpdateEditing(x, 100 + x / 4, 0, 0, 0, 0);
    }
    vuStopEditing();
    end();
    const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - begin;
    vuDestroyEditor();
    vuDestroySettings();
    return spent.count();
}

double medianOf(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Raise of the whole map, in turn up and down.
void raiseAll(CBenchPanel& panel, int amount) {
    panel.m_nTool = TOOL_RAISE;
    selectAll(panel);
    strokeStart(panel, 0, 0, 0, 0);
    strokeUpdate(panel, 0, 0, amount);
    strokeEnd(panel);
}

void benchBrush() {
    constexpr int ROUNDS = 301;
    CMemoryMap plain(BRUSH_EDGE, nullptr);
    CMemoryMap kept(BRUSH_EDGE, nullptr);
    CMapJournal journal(kept);
    std::vector<double> with;
    std::vector<double> without;
    int steps = 0;
    for (int round = 0; round < ROUNDS; ++round) {
        for (CMemoryMap* map : {&plain, &kept}) { // ground that the white of the swatch changes
            for (int z = 80; z < 200; ++z) {
                for (int x = 80; x < 320; ++x) {
                    map->setPointColour(0, x, z, qxCColour(9, 9, 9, 255));
                }
            }
        }
        journal.closeStep("Ground", CMapJournal::Details::SKIP);
        with.push_back(strokeSeconds(
            kept, [&] { steps += journal.closeStep("Tint", CMapJournal::Details::SKIP) ? 1 : 0; }));
        without.push_back(strokeSeconds(plain, [] {}));
    }
    bench::printRatio("a stroke of the brush with the journal / without", medianOf(with), medianOf(without),
                      1.10);
    std::printf("  %d of %d strokes changed the ground\n", steps, ROUNDS);
}

void benchRaise() {
    constexpr int ROUNDS = 9;
    CMemoryMap plain(LARGE_EDGE, nullptr);
    CMemoryMap kept(LARGE_EDGE, nullptr);
    CMapJournal journal(kept);
    CBenchPanel onPlain(plain);
    CBenchPanel onKept(kept);
    int amount = 50;
    const auto withJournal = [&] {
        amount = -amount;
        raiseAll(onKept, amount);
        journal.closeStep("Raise", CMapJournal::Details::SKIP);
    };
    const auto without = [&] { raiseAll(onPlain, amount); };
    const auto seconds = bench::medianSeconds({withJournal, without}, ROUNDS);
    bench::printRatio("Raise of 4097 x 4097 points with the journal / without", seconds[0], seconds[1], 1.5);
    g_mapUndoList.clear();
}

void benchUndo() {
    constexpr int ROUNDS = 15;
    CMemoryMap map(LARGE_EDGE, nullptr);
    CMapJournal journal(map);
    CBenchPanel panel(map);
    raiseAll(panel, -50);
    journal.closeStep("Raise");
    const std::vector<std::uint16_t> tiles(map.getHeights().size(), 1);
    std::vector<std::uint16_t> copy(tiles.size());
    const auto copyTiles = [&] { std::memcpy(copy.data(), tiles.data(), tiles.size() * sizeof tiles[0]); };
    const auto seconds = bench::medianSeconds(
        {[&journal] { journal.undo(); }, copyTiles, [&journal] { journal.redo(); }}, ROUNDS);
    bench::printRatio("undo of that / memcpy of the kept tiles", seconds[0], seconds[1], 3.0);
    g_mapUndoList.clear();
}

} // namespace

int main(int argc, char** argv) {

    cpu_set_t cores;
    CPU_ZERO(&cores);
    CPU_SET(0, &cores);
    sched_setaffinity(0, sizeof cores, &cores); // one core, so that no helper thread hides work
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchBrush();
    benchRaise();
    benchUndo();
}
