#include "bench/ratio.h"
#include "engine/memory/memory_map.h"
#include "host/veskutil.h"
#include "module/module_state.h"
#include "terrain/model/map_undo_list.h"
#include "terrain/panel/map_editor_dlg.h"
#include "terrain/tools/surface_tools.h"

#include <QApplication>

#include <array>
#include <sched.h>

// Tint and Paint with the largest brush against the engine calls that they cannot do without, made in a plain
// loop over the same points of the same map: for every point of the 5 x 5 block the three reads of its undo
// record, for every point of the brush's 21 the reads and the write of the tool. What our side has on top is
// the footprint, the clipping to the grid, the records themselves and the colours' choice.
//
// The cursor and the marks are redrawn once an update, however many points it touches: the figures a point
// leave them out. The figures for a whole update through the export have them, on both sides, and ours also
// asks the panel for its tab.

// Keeps the optimiser from what it knows of the map's class: a host's map is reached through its interface.
#ifdef __clang__
#define VESK_OPAQUE [[gnu::noinline]]
#else
#define VESK_OPAQUE [[gnu::noipa]]
#endif

namespace {

constexpr int GRID = 1024;
constexpr int BRUSH = 5; // the disc of 21 points
constexpr int BLOCK = 5; // points a side of the block around it
constexpr int ROUNDS = 401;
constexpr int SPOTS_X = 40; // the updates of a round: side by side, so that each paints fresh ground
constexpr int SPOTS_Z = 25;
constexpr int FIRST_SPOT = 100; // off the edge of the map
constexpr int STRENGTH = 5;
constexpr qxCColour GROUND(40, 80, 120, 255);
constexpr qxCColour TINT(250, 200, 10, 255);

struct Offset {
    int dx;
    int dz;
};

constexpr std::array<Offset, 21> DISC = [] {
    std::array<Offset, 21> points{};
    std::size_t count = 0;
    for (int dz = 0; dz < BLOCK; ++dz) {
        for (int dx = 0; dx < BLOCK; ++dx) {
            const bool isCorner = (dx == 0 || dx == BLOCK - 1) && (dz == 0 || dz == BLOCK - 1);
            if (!isCorner) {
                points[count++] = {dx, dz};
            }
        }
    }
    return points;
}();

/// The cells that the brush's cursor shows.
constexpr std::array<Offset, 12> DISC_CELLS{
    {{1, 0}, {2, 0}, {0, 1}, {1, 1}, {2, 1}, {3, 1}, {0, 2}, {1, 2}, {2, 2}, {3, 2}, {1, 3}, {2, 3}}};

class CBenchModel : public CMapEditorModel {
public:
    explicit CBenchModel(qxCMap& map) {
        m_pMap = &map;
        m_nBrushSize = BRUSH;
        m_nStrength = STRENGTH;
        m_stroke.firstUpdate = false;
    }
    bool isDetailsTab() const override { return false; }
    void showMembers() override {}
    qxCColour getToolTint() const override { return TINT; }
};

/// One core, so that a helper thread of the toolkit does not hide work.
void pinToOneCore() {
    cpu_set_t cores;
    CPU_ZERO(&cores);
    CPU_SET(0, &cores);
    sched_setaffinity(0, sizeof cores, &cores);
}

VESK_OPAQUE void readBlock(const qxCMap& map, int x, int z) {
    for (int dx = 0; dx < BLOCK; ++dx) {
        for (int dz = 0; dz < BLOCK; ++dz) {
            map.getPointBlendQ(1, x + dx, z + dz);
            map.getPointColourQ(0, x + dx, z + dz);
            map.getPointHeightQ(x + dx, z + dz);
        }
    }
}

VESK_OPAQUE void tintDisc(qxCMap& map, int x, int z) {
    for (const auto [dx, dz] : DISC) {
        if (!map.getPointWater(x + dx, z + dz) || map.getPointHeight(x + dx, z + dz) > 0) {
            const qxCColour colour = map.getPointColour(0, x + dx, z + dz);
            map.setPointColour(0, x + dx, z + dz, interpolate(colour, TINT, STRENGTH * 0.01F));
        }
    }
}

VESK_OPAQUE void paintDisc(qxCMap& map, int x, int z) {
    for (const auto [dx, dz] : DISC) {
        map.paintMultiTexture(x + dx, z + dz, STRENGTH * 0.1F);
    }
}

void tintBare(qxCMap& map, int x, int z) {
    readBlock(map, x, z);
    tintDisc(map, x, z);
}

void paintBare(qxCMap& map, int x, int z) {
    readBlock(map, x, z);
    paintDisc(map, x, z);
}

VESK_OPAQUE void markBare(qxCMap& map, int x, int z, const qxCColour& colour) {
    map.lockMarkerLayer();
    map.setMarkerPixel(qxMapMarkerStroke, x, z, colour);
    map.setMarkerPixel(qxMapMarkerStroke, x, z, colour);
    map.unlockMarkerLayer();
}

/// The update's calls beside the points': the mark moves, the cursor is rebuilt.
template <typename Points> void updateBare(qxCMap& map, int x, int z, const Points& points) {
    markBare(map, x - BLOCK, z, {0, 0, 0, 0});
    points(map, x, z);
    map.clearEditCursors();
    for (const auto [dx, dz] : DISC_CELLS) {
        map.addEditCursor(x + dx, z + dz, 0);
    }
    markBare(map, x, z, {255, 255, 255, 32});
}

/// The ground as before the round, so that every write changes its point on either side.
void reset(CMemoryMap& map) {
    for (int z = FIRST_SPOT; z < FIRST_SPOT + SPOTS_Z * BLOCK; ++z) {
        for (int x = FIRST_SPOT; x < FIRST_SPOT + SPOTS_X * BLOCK; ++x) {
            map.setPointColour(0, x, z, GROUND);
            map.setPointBlend(1, x, z, 0);
        }
    }
}

/// Seconds of one update, over all spots of a round.
template <typename Update> double secondsOf(CMemoryMap& map, const Update& update) {
    reset(map);
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < SPOTS_X * SPOTS_Z; ++i) {
        update(FIRST_SPOT + i % SPOTS_X * BLOCK, FIRST_SPOT + i / SPOTS_X * BLOCK);
    }
    const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
    return spent.count() / (SPOTS_X * SPOTS_Z);
}

double median(std::vector<double>& values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

struct Comparison {
    double ours; ///< median seconds of one update
    double bare;
    double toolOnly; ///< the bare calls without those of the undo records
};

template <typename Ours, typename Bare, typename ToolOnly>
Comparison compare(CMemoryMap& map, const Ours& ours, const Bare& bare, const ToolOnly& toolOnly) {
    std::array<std::vector<double>, 3> seconds;
    for (int round = 0; round < ROUNDS; ++round) {
        seconds[0].push_back(secondsOf(map, ours));
        seconds[1].push_back(secondsOf(map, [&](int x, int z) { bare(map, x, z); }));
        seconds[2].push_back(secondsOf(map, [&](int x, int z) { toolOnly(map, x, z); }));
    }
    return {median(seconds[0]), median(seconds[1]), median(seconds[2])};
}

void benchPoints(CMemoryMap& map) {
    constexpr double POINTS = DISC.size();
    CBenchModel model(map);
    const auto measure = [&](const char* name, auto step, auto bare, auto disc) {
        const auto ours = [&model, step](int x, int z) {
            model.m_stroke.x = x;
            model.m_stroke.z = z;
            step(model);
        };
        const Comparison found = compare(map, ours, bare, disc);
        bench::printRatio(name, found.ours / POINTS, found.bare / POINTS, 1.30);
        std::printf("  the same / the bare calls without undo records: %.3fx\n", found.ours / found.toolOnly);
    };
    measure("Tint, a point of the largest brush / its bare calls", tintGround, tintBare, tintDisc);
    measure("Paint, a point of the largest brush / its bare calls", paint, paintBare, paintDisc);
}

void benchUpdates(CMemoryMap& map) {
    vuCreateEditor(nullptr, &map, "", nullptr, true, nullptr);
    g_pMapEditorDlg->m_nBrushSize = BRUSH;
    g_pMapEditorDlg->m_nStrength = STRENGTH;
    const auto update = [](int x, int z) { vuUpdateEditing(x, z, 0, 0, 0, 0); };
    const auto measure = [&](const char* name, int tool, auto points) {
        const auto bare = [points](qxCMap& edited, int x, int z) { updateBare(edited, x, z, points); };
        g_pMapEditorDlg->m_nTool = tool;
        vuStartEditing(FIRST_SPOT, FIRST_SPOT, 0, 0);
        const Comparison found = compare(map, update, bare, points);
        vuStopEditing();
        std::printf("%s, a whole update through the export / all its bare calls: %.3fx  %.3f us / %.3f us\n",
                    name, found.ours / found.bare, found.ours * 1e6, found.bare * 1e6);
    };
    measure("Tint", TOOL_TINT, tintBare);
    measure("Paint", TOOL_PAINT, paintBare);
    vuDestroyEditor();
    vuDestroySettings();
}

} // namespace

int main(int argc, char** argv) {
    pinToOneCore();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    CMemoryMap map(GRID, nullptr);
    qxCMapMultiTexture& definition = *map.addMultiTexture();
    definition.tint1 = {255, 0, 0, 255};
    definition.tint2 = {0, 0, 255, 255};
    definition.blend = 0.5F;
    definition.variation = 0.3F;
    for (int i = 0; i < CMapUndoList::CAPACITY; ++i) {
        g_mapUndoList.push(
            {}); // as in a session of some length: full, each record takes the oldest one's place
    }
    benchPoints(map);
    benchUpdates(map);
}
