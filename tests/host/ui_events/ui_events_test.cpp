#include "host/ui_events/event_session.h"
#include "host/veskutil.h"
#include "support/ui_driver.h"
#include "support/window_guard.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

namespace {

constexpr std::uint64_t SUITE_SHARE = 30'000;

std::uint64_t setting(const char* name, std::uint64_t standard) {
    const char* const value = std::getenv(name);
    return value != nullptr ? std::strtoull(value, nullptr, 10) : standard;
}

/// Every dialog was left in every way there is, and each editor opened and closed: a session that gets caught
/// somewhere proves nothing.
void expectNotIdle(EventTally& tally) {
    for (std::size_t kind = 0; kind < tally.left.size(); ++kind) {
        for (std::size_t way = 0; way < tally.left[kind].size(); ++way) {
            const bool hasWay = static_cast<DialogKind>(kind) != DialogKind::MESSAGE ||
                                static_cast<LeaveWay>(way) != LeaveWay::CANCEL;
            EXPECT_TRUE(tally.left[kind][way] > 0 || !hasWay) << "dialog " << kind << ", way " << way;
        }
    }
    const int share = tally.events / 1000;
    EXPECT_GE(tally.opened, share);
    EXPECT_GE(tally.openedMovies, share);
    EXPECT_GE(tally.closedByUser, share / 4);
    EXPECT_GE(tally.imported, share / 2);
    EXPECT_GE(tally.recorded, share);
    EXPECT_GE(tally.dialogsAtOnce, 3) << "a message box over the file dialog's Texture List";
}

} // namespace

// Another session by hand: VESK_EVENTS=1000000 VESK_EVENTS_SEED=7 bin/test_ui_events. One of less than some
// 20,000 events need not come to every way to leave every dialog.
TEST(UiEvents, RandomEventsNeitherCrashNorHangNorLeak) {
    const std::uint64_t seed = setting("VESK_EVENTS_SEED", 1);
    const int count = static_cast<int>(setting("VESK_EVENTS", SUITE_SHARE));
    CWindowGuard::announceWarning("This plugin does not support"); // what an offscreen window cannot do
    std::cout << count << " random events, seed " << seed << std::endl;
    CEventDice dice(seed);
    EventTally tally;
    {
        CEventStage stage(dice, tally);
        CEventSession session(dice, stage, tally);
        ASSERT_TRUE(session.run(count));
        EXPECT_FALSE(vuIsEditorActive());
        EXPECT_FALSE(vuIsMovieEditorActive());
        EXPECT_TRUE(stage.isDirectoryIntact());
        stage.end();
    }
    EXPECT_TRUE(ui::waitUntil([] { return QApplication::topLevelWidgets().isEmpty(); }))
        << QApplication::topLevelWidgets().size() << " windows are left, the first a "
        << QApplication::topLevelWidgets().front()->metaObject()->className();
    expectNotIdle(tally);
}
