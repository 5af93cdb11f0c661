#include "bench/ratio.h"
#include "engine/memory/memory_map.h"
#include "host/veskutil.h"
#include "module/module_state.h"
#include "terrain/model/map_recording.h"
#include "terrain/model/map_selection.h"
#include "terrain/model/map_undo_list.h"
#include "terrain/panel/map_editor_dlg.h"
#include "terrain/stroke_engine.h"

#include <QApplication>
#include <QUndoCommand>
#include <QUndoStack>

#include <bit>
#include <sched.h>
#include <utility>
#include <vector>

// The map editor's strokes and its history. The map is edited through its virtual interface in the engine's
// shared library, as a host's map is.
//
// The peers of the history record every point as it comes. Ours leaves out what a full history would drop
// again; the figures for a selection that the history holds whole stand beside those for the large one.

namespace {

constexpr int LARGE_SIDE = 1025; // points
constexpr int KEPT_SIDE = 316;   // its points fit the history
constexpr int ROUNDS = 21;
/// Amounts in turn, so that every write changes its point.
int nextAmount() {
    static int s_amount = -3;
    return s_amount = -s_amount;
}

class CBenchPanel : public CMapEditorModel {
public:
    explicit CBenchPanel(qxCMap& map) {
        m_pMap = &map;
        m_nTool = TOOL_RAISE;
    }
    bool isDetailsTab() const override { return false; }
    void showMembers() override {}
    qxCColour getToolTint() const override { return {}; }
};

/// One core, so that a helper thread of the toolkit does not hide work.
void pinToOneCore() {
    cpu_set_t cores;
    CPU_ZERO(&cores);
    CPU_SET(0, &cores);
    sched_setaffinity(0, sizeof cores, &cores);
}

/// What a map's user pays at least: read and write every point of the map once.
void raiseBare(qxCMap& map, int side) {
    const int amount = nextAmount();
    for (int z = 0; z < side; ++z) {
        for (int x = 0; x < side; ++x) {
            map.setPointHeight(x, z, map.getPointHeight(x, z) - amount, true);
        }
    }
}

/// Record every point the way the history reads it, into whatever history takes it.
template <typename Push> void recordAll(const qxCMap& map, int side, const Push& push) {
    for (int x = 0; x < side; ++x) {
        for (int z = 0; z < side; ++z) {
            MapUndoRecord record;
            record.blend = static_cast<std::uint16_t>(map.getPointBlendQ(1, x, z));
            record.colour = std::bit_cast<std::uint32_t>(map.getPointColourQ(0, x, z));
            record.height = static_cast<std::uint16_t>(map.getPointHeightQ(x, z));
            record.x = static_cast<std::uint16_t>(x);
            record.z = static_cast<std::uint16_t>(z);
            push(record);
        }
    }
}

void restore(qxCMap& map, const MapUndoRecord& record) {
    map.setPointHeight(record.x, record.z, record.height, false);
    map.setPointColour(0, record.x, record.z, std::bit_cast<qxCColour>(record.colour));
    map.setPointBlend(1, record.x, record.z, record.blend);
}

/// A history of one allocation a record.
class CNodeHistory {
public:
    ~CNodeHistory() { clear(); }
    void push(const MapUndoRecord& record) {
        if (m_nCount == CMapUndoList::CAPACITY) {
            Node* const oldest = m_pHead;
            m_pHead = oldest->next;
            m_pHead->prev = nullptr;
            delete oldest;
            --m_nCount;
        }
        Node* const node = new Node{record, m_pTail, nullptr};
        // NOLINTNEXTLINE(clang-analyzer-cplusplus.NewDelete): the oldest of a full list is never its last
        (m_pTail != nullptr ? m_pTail->next : m_pHead) = node;
        m_pTail = node;
        ++m_nCount;
    }
    void clear() {
        while (m_pHead != nullptr) {
            delete std::exchange(m_pHead, m_pHead->next);
        }
        m_pTail = nullptr;
        m_nCount = 0;
    }

private:
    struct Node {
        MapUndoRecord record;
        Node* prev;
        Node* next;
    };
    Node* m_pHead = nullptr;
    Node* m_pTail = nullptr;
    int m_nCount = 0;
};

/// One stroke as a command of the toolkit's own undo framework: the points before it, in one array.
class CStrokeCommand : public QUndoCommand {
public:
    CStrokeCommand(qxCMap& map, std::vector<MapUndoRecord> records)
        : m_map(map), m_records(std::move(records)) {}
    void undo() override {
        for (auto record = m_records.rbegin(); record != m_records.rend(); ++record) {
            restore(m_map, *record);
        }
    }
    void redo() override {}

private:
    qxCMap& m_map;
    std::vector<MapUndoRecord> m_records;
};

/// Select the cells whose corners are the first `side` points each way.
void selectPoints(CBenchPanel& panel, int side) {
    selectAll(panel);
    panel.m_selection.x1 = panel.m_selection.z1 = side - 2;
}

void benchRaise(CMemoryMap& map) {
    constexpr int SIDE = LARGE_SIDE;
    CBenchPanel panel(map);
    selectPoints(panel, SIDE);
    strokeStart(panel, 0, 0, 0, 0);
    const auto update = [&panel] { strokeUpdate(panel, 0, 0, nextAmount()); };
    const auto seconds = bench::medianSeconds({update, [&map] { raiseBare(map, SIDE); }}, ROUNDS);
    bench::printRatio("raise a selection of 1025 x 1025 points / bare get and set", seconds[0], seconds[1],
                      1.30);
    g_mapUndoList.clear();
}

struct RecordSeconds {
    double ours;
    double nodes;
    double stack;
};

RecordSeconds timeRecording(CMemoryMap& map, int side) {
    CBenchPanel panel(map);
    selectPoints(panel, side);
    CNodeHistory nodes;
    QUndoStack stack;
    const auto ours = [&panel] {
        panel.m_stroke.firstUpdate = true;
        strokeUpdate(panel, 0, 0, nextAmount());
    };
    const auto withNodes = [&map, &nodes, side] {
        recordAll(map, side, [&nodes](const MapUndoRecord& record) { nodes.push(record); });
        raiseBare(map, side);
    };
    const auto withStack = [&map, &stack, side] {
        std::vector<MapUndoRecord> records;
        records.reserve(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
        recordAll(map, side, [&records](const MapUndoRecord& record) { records.push_back(record); });
        raiseBare(map, side);
        stack.clear();
        stack.push(new CStrokeCommand(map, std::move(records)));
    };
    const auto seconds = bench::medianSeconds({ours, withNodes, withStack}, ROUNDS);
    g_mapUndoList.clear();
    return {seconds[0], seconds[1], seconds[2]};
}

void benchRecord(CMemoryMap& map) {
    const RecordSeconds large = timeRecording(map, LARGE_SIDE);
    bench::printRatio("record and raise / with a list of single allocations", large.ours, large.nodes, 0.35);
    bench::printRatio("record and raise / with QUndoStack", large.ours, large.stack, 1.10);
    const RecordSeconds kept = timeRecording(map, KEPT_SIDE);
    std::printf("the same on 316 x 316 points, all of them kept: %.3fx and %.3fx\n", kept.ours / kept.nodes,
                kept.ours / kept.stack);
}

template <typename Work> double secondsOf(const Work& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void benchUndo(CMemoryMap& map) {
    constexpr int SIDE = LARGE_SIDE;
    CBenchPanel panel(map);
    std::vector<MapUndoRecord> records;
    recordAll(map, SIDE, [&records](const MapUndoRecord& record) {
        if (records.size() < CMapUndoList::CAPACITY) {
            records.push_back(record);
        }
    });
    std::vector<double> ours;
    std::vector<double> theirs;
    QUndoStack stack;
    for (int round = 0; round < ROUNDS; ++round) {
        for (const MapUndoRecord& record : records) {
            g_mapUndoList.push(record);
        }
        stack.clear();
        stack.push(new CStrokeCommand(map, records));
        raiseBare(map, SIDE);
        ours.push_back(secondsOf([&panel] { undo(panel); }));
        raiseBare(map, SIDE);
        theirs.push_back(secondsOf([&stack] { stack.undo(); }));
    }
    bench::printRatio("undo 100,000 records / QUndoStack", median(ours), median(theirs), 1.20);
    g_mapUndoList.clear();
}

/// Seconds of one brush update through the exports: the largest brush tints, its cursor and its mark follow.
double brushSeconds(CMemoryMap& map) {
    constexpr int UPDATES = 2000;
    vuCreateEditor(nullptr, &map, "", nullptr, true, nullptr);
    g_pMapEditorDlg->m_nTool = TOOL_TINT;
    g_pMapEditorDlg->m_nBrushSize = 5;
    g_pMapEditorDlg->m_nStrength = 1;
    vuStartEditing(100, 100, 0, 0);
    const double seconds = secondsOf([] {
        for (int i = 0; i < UPDATES; ++i) {
            vuUpdateEditing(100 + i % 50, 100 + i % 20, 0, 0, 0, 0);
        }
    });
    vuStopEditing();
    vuDestroyEditor();
    vuDestroySettings();
    return seconds / UPDATES;
}

void benchBrush() {
    constexpr int MANY_ROUNDS = 151; // each is so short that a busy machine disturbs many of them
    CMemoryMap small(256, nullptr);
    CMemoryMap large(8192, nullptr);
    std::vector<double> onSmall;
    std::vector<double> onLarge;
    for (int round = 0; round < MANY_ROUNDS; ++round) {
        onSmall.push_back(brushSeconds(small));
        onLarge.push_back(brushSeconds(large));
    }
    bench::printRatio("one brush update on a map of 8193 points / of 257 points", median(onLarge),
                      median(onSmall), 1.20);
}

} // namespace

int main(int argc, char** argv) {
    pinToOneCore();
    {
        CMemoryMap map(LARGE_SIDE - 1, nullptr);
        benchRaise(map);
        benchRecord(map);
        benchUndo(map);
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchBrush();
}
