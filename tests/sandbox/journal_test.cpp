// A random session on the journal of a map: strokes of every tool, what the panel's commands and dialogs
// write, its own Undo, steps taken back and made again, beside copies of the whole map. By hand:
// VESK_JOURNAL_OPS=1000000 VESK_SESSION_SEED=7 bin/sandbox_journal_test
#include "sandbox/journal/map_journal.h"

#include "engine/memory/memory_scene.h"
#include "engine/qx_texture.h"
#include "terrain/model/map_selection.h"
#include "terrain/support/test_panel.h"

#include <cstdlib>
#include <cstring>
#include <functional>
#include <random>

namespace {

using Details = CMapJournal::Details;

constexpr int GRID = 100; // a whole number of tiles and a rest
constexpr int MOST_DETAILS = 40;

long long setting(const char* name, long long standard) {
    const char* const value = std::getenv(name);
    return value != nullptr ? std::atoll(value) : standard;
}

/// All of a map that steps bring back.
class CMapCopy {
public:
    explicit CMapCopy(CMemoryMap& map)
        : m_heights(map.getHeights().begin(), map.getHeights().end())
        , m_colours(map.getColours().begin(), map.getColours().end())
        , m_blends(map.getBlends().begin(), map.getBlends().end())
        , m_water(map.getWaterFlags().begin(), map.getWaterFlags().end())
        , m_records(recordsOf(map)) {
        takeChange(m_details, map.getDetails());
    }

    /// What differs first; empty for nothing.
    const char* differsFrom(const CMapCopy& other) const {
        const auto isSame = [](const qxCMapDetailRecord& a, const qxCMapDetailRecord& b) {
            return a.texture == b.texture && a.type == b.type && a.scalar == b.scalar &&
                   a.point0 == b.point0 && a.point1 == b.point1 && a.point2 == b.point2;
        };
        return m_heights != other.m_heights                              ? "heights"
               : m_colours != other.m_colours                            ? "colours"
               : m_blends != other.m_blends                              ? "blends"
               : m_water != other.m_water                                ? "water"
               : !areAlike(m_records, other.m_records)                   ? "records"
               : !std::ranges::equal(m_details, other.m_details, isSame) ? "details"
                                                                         : "";
    }

private:
    std::vector<std::uint16_t> m_heights;
    std::vector<qxCColour> m_colours;
    std::vector<std::uint16_t> m_blends;
    std::vector<std::uint8_t> m_water;
    MapRecords m_records;
    std::vector<qxCMapDetailRecord> m_details;
};

/// A hand that does something to a map, by a panel without a window where the panel's tools do it.
class MapJournal : public testing::Test {
protected:
    MapJournal() {
        g_mapUndoList.clear();
        m_panel.m_pMap = &m_map;
        m_panel.m_pDetailTexture = &m_texture;
        m_map.addMultiTexture()->blend = 0.5F;
        for (int z = 0; z <= GRID; ++z) {
            for (int x = 0; x <= GRID; ++x) {
                m_map.setPointHeight(x, z, 80 + below(40), false);
            }
        }
    }
    ~MapJournal() override { g_mapUndoList.clear(); }

    int below(int end) { return static_cast<int>(m_random() % static_cast<unsigned>(end)); }
    int place() { return below(GRID + 7) - 3; }

    void stroke() {
        m_panel.isDetails = below(3) == 0;
        const bool full = m_map.getDetails().size() >= MOST_DETAILS;
        m_panel.m_nTool = !m_panel.isDetails ? below(TOOL_ROUGHEN + 1)
                          : full             ? DETAIL_DELETE
                                             : below(DETAIL_TOOL_COUNT);
        m_panel.m_nBrushSize = below(6);
        m_panel.m_nStrength = 1 + below(10);
        m_panel.m_nHeight = below(200);
        m_panel.tint = qxCColour(static_cast<std::uint8_t>(below(256)), 9, 200, 255);
        strokeStart(m_panel, place(), place(), below(6), below(4));
        for (int updates = below(4); updates > 0; --updates) {
            strokeUpdate(m_panel, place(), place(), below(81) - 40);
        }
        strokeEnd(m_panel);
    }

    void command() {
        m_panel.isDetails = false;
        switch (below(7)) {
        case 0:
            selectAll(m_panel);
            break;
        case 1:
            deselect(m_panel);
            break;
        case 2:
            m_map.waterLevel = static_cast<float>(below(130));
            break;
        case 3:
            m_map.addMultiTexture()->variation = static_cast<float>(below(10)) / 10.0F;
            break;
        case 4:
            m_map.removeMultiTexture(below(4));
            break;
        case 5:
            m_map.getTerrainDef(0)->noise = static_cast<float>(below(3));
            m_map.setTextureTiling(1 + below(3));
            break;
        default:
            m_map.setAmbient(qxCColour(1, 2, static_cast<std::uint8_t>(below(2)), 255));
        }
    }

    /// One step of work; most change something.
    void work() {
        const int choice = below(10);
        if (choice < 6) {
            stroke();
        } else if (choice < 8) {
            command();
        } else {
            undo(m_panel);
        }
    }
    bool closeStep(CMapJournal& journal) {
        return journal.closeStep("step", m_panel.isDetails ? Details::LOOK : Details::SKIP);
    }

    const long long m_nSeed = setting("VESK_SESSION_SEED", 1);
    std::mt19937_64 m_random{static_cast<std::uint64_t>(m_nSeed)};
    CMemoryScene m_scene;
    CMemoryMap m_map{GRID, &m_scene};
    qxCTexture m_texture;
    CTestPanel m_panel;
};

TEST_F(MapJournal, EveryStateComesBackToTheBit) {
    std::size_t at = 0;
    long long moves = 0;
    const long long count = setting("VESK_JOURNAL_OPS", 10000);
    CMapJournal journal(m_map);
    std::vector<CMapCopy> states{CMapCopy(m_map)};
    for (long long i = 0; i < count; ++i) {
        const int choice = below(10);
        if (choice < 4) {
            work();
            const bool changed = *CMapCopy(m_map).differsFrom(states[at]) != '\0';
            ASSERT_EQ(closeStep(journal), changed) << "op " << i << ", seed " << m_nSeed;
            if (changed) {
                states.erase(states.begin() + static_cast<std::ptrdiff_t>(++at), states.end());
                states.emplace_back(m_map);
            }
        } else {
            const bool back = choice < 7;
            ASSERT_EQ(journal.canUndo(), at > 0);
            ASSERT_EQ(journal.canRedo(), at + 1 < states.size());
            const bool moved = (back ? journal.undo() : journal.redo()) != CMapJournal::Reach::NOTHING;
            at = !moved ? at : back ? at - 1 : at + 1;
            moves += moved ? 1 : 0;
        }
        ASSERT_STREQ(CMapCopy(m_map).differsFrom(states[at]), "") << "op " << i << ", seed " << m_nSeed;
    }
    EXPECT_GT(moves, count / 4);
}

TEST_F(MapJournal, TheOldestStepsGoWholeWhenTheBudgetIsSpent) {
    constexpr std::size_t BUDGET = 200'000;
    constexpr int STEPS = 150;
    CMapJournal journal(m_map, nullptr, BUDGET);
    std::vector<CMapCopy> states{CMapCopy(m_map)};
    while (states.size() <= STEPS) {
        stroke();
        if (closeStep(journal)) {
            states.emplace_back(m_map);
        }
        ASSERT_LE(journal.bytes(), BUDGET);
    }
    std::size_t at = STEPS;
    while (journal.canUndo()) {
        journal.undo();
        ASSERT_STREQ(CMapCopy(m_map).differsFrom(states[--at]), "") << "seed " << m_nSeed;
    }
    EXPECT_GT(at, 0U);
    EXPECT_LT(at, STEPS - 1U);
    EXPECT_FALSE(journal.isAsSaved()) << "the step that led there from the saved state is gone";
    while (journal.canRedo()) {
        journal.redo();
        ASSERT_STREQ(CMapCopy(m_map).differsFrom(states[++at]), "") << "seed " << m_nSeed;
    }
    EXPECT_EQ(at, std::size_t{STEPS});
    journal.undo();
    journal.setBudget(BUDGET / 4);
    EXPECT_LE(journal.bytes(), BUDGET / 4);
    EXPECT_FALSE(journal.canRedo()) << "what was taken back goes first";
    journal.undo();
    EXPECT_STREQ(CMapCopy(m_map).differsFrom(states[at - 2]), "");
    journal.setBudget(0);
    EXPECT_FALSE(journal.canUndo());
}

TEST_F(MapJournal, ATreeComesBackAndTheHillStays) {
    qxCMapDetailRecord* const tree =
        m_map.addDetail(qxDetailTypePoint, &m_texture, qxCVector3d(9.5F, 0, 9.5F), 2, 0, 1);
    CMapJournal journal(m_map);
    m_map.setPointHeight(5, 5, 777, true);
    ASSERT_TRUE(journal.closeStep("Raise"));
    m_map.removeDetail(tree);
    ASSERT_TRUE(journal.closeStep("Del Detail"));
    EXPECT_EQ(journal.undoName(), "Del Detail");
    journal.undo();
    EXPECT_NE(m_map.findDetail(9, 9), nullptr);
    EXPECT_EQ(m_map.getPointHeight(5, 5), 777);
    EXPECT_EQ(journal.undoName(), "Raise");
    EXPECT_EQ(journal.redoName(), "Del Detail");
    EXPECT_FALSE(journal.isAsSaved());
    journal.undo();
    EXPECT_TRUE(journal.isAsSaved());
    m_map.setPointHeight(5, 5, 3, true);
    ASSERT_TRUE(journal.closeStep("Raise"));
    EXPECT_FALSE(journal.canRedo());
    journal.undo();
    EXPECT_TRUE(journal.isAsSaved());
}

TEST_F(MapJournal, AFilmGoesThereAndBack) {
    CMemoryScene scene;
    CFilm film(scene, 40, 25.0F);
    film.movie().addCamera("one");
    CMapJournal journal(m_map, &film);
    std::mt19937 random(static_cast<unsigned>(m_nSeed));
    const auto frame = [&] { return static_cast<int>(random()) % 60 & 63; };
    const std::function<void(CMemoryMovie&)> edits[] = {
        [&](auto& movie) { movie.insertFrame(frame() % movie.getNumFrames(), nullptr); },
        [&](auto& movie) { movie.deleteFrame(frame()); },
        [&](auto& movie) { movie.setRangeStart(frame()), movie.deleteRange(); },
        [&](auto& movie) { movie.copy(), movie.paste(0), movie.paste(0), movie.paste(0); },
        [&](auto& movie) {
            qxCMovieFrame& edited = *movie.getFrame(frame() % movie.getNumFrames());
            edited.setKeyframe(random() % 3 != 0);
            edited.setFov(static_cast<float>(random() % 90));
            edited.setAnimTrigger(random() % 2 != 0 ? "mill" : "");
        },
        [&](auto& movie) { movie.addSound("wind.wav"), movie.getSound(0)->length = 3.5F; },
        [](auto& movie) { movie.clearSoundtrack(); },
        [](auto& movie) { movie.addCamera("two"); },
        [&](auto&) {
            film.addPlace("Hill", {static_cast<float>(random() % 9), 0.0F, 1.0F});
        },
        [&](auto& movie) { movie.setStepRate(static_cast<float>(random() % 3 + 24)); },
    };
    std::vector<FilmCopy> states{copyOf(film)};
    for (int i = 0; i < 300; ++i) {
        edits[random() % std::size(edits)](film.movie());
        film.movie().updateTweening();
        if (journal.closeStep("Edit")) {
            states.push_back(copyOf(film));
        }
    }
    EXPECT_GT(states.size(), 200U);
    std::size_t at = states.size() - 1;
    for (int turn = 0; turn < 900; ++turn) {
        const bool forward = turn > 400 ? random() % 3 != 0 : random() % 3 == 0;
        const bool moves = forward ? journal.canRedo() : journal.canUndo();
        forward ? journal.redo() : journal.undo();
        at += !moves ? 0U : forward ? 1U : std::size_t(-1);
        ASSERT_TRUE(areAlike(copyOf(film), states[at])) << "step " << at << ", seed " << m_nSeed;
        ASSERT_FALSE(journal.closeStep("Nothing"));
    }
}

} // namespace
