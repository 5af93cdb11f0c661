#include "movie/movie_panel_fixture.h"

#include "host/veskutil.h"
#include "module/module_state.h"
#include "movie/awkward_movie.h"
#include "resources/resource_ids.h"
#include "support/ui_driver.h"

#include <QTest>

#include <functional>
#include <memory>

namespace {

TEST_F(MoviePanelTest, HearsOnlyItsOwnMovieAndOnlyWhileItPlays) {
    open();
    goTo(5);
    click(IDC_PLAY);
    m_movie.advance(0.1);
    EXPECT_EQ(m_movie.getRangeStart(), 7);
    EXPECT_EQ(text(IDC_MOVIE_TIME), "00:00.30");
    m_camera.position.x = -9.0F; // as the engine has it between two frames
    vuMovieCameraAltered(nullptr, true);
    EXPECT_EQ(m_camera.position.x, -9.0F) << "only a stopped movie is posed";
    const auto message = qxCAnimator::getCallback();
    const auto event = qxCMovie::getCallback();
    message(qxAnimatorEnded, m_movie.callbackData + 1);
    message(static_cast<qxAnimatorMessage>(1), m_movie.callbackData);
    event(static_cast<qxMovieEvent>(2), nullptr, 3);
    EXPECT_TRUE(m_movie.isPlaying());
    EXPECT_EQ(m_movie.getRangeStart(), 7);
    click(IDC_STEP_BACK);
    EXPECT_FALSE(m_movie.isPlaying());
    EXPECT_TRUE(qxCMovie::getCallback() == nullptr && qxCAnimator::getCallback() == nullptr);
    vuDestroyMovieEditor();
    message(qxAnimatorEnded, m_movie.callbackData);
    event(qxMovieFrameReached, nullptr, 2);
    EXPECT_EQ(m_movie.flags, std::uint32_t{qxMovieStopped});
}

/// Calls back from inside what the panel asks of it.
class CCallingMovie : public CAwkwardMovie {
public:
    using CAwkwardMovie::CAwkwardMovie;
    void updateManual(float) override { call(); }
    void play() override { call(); }
    void invalidateBoundingBox(bool) override { call(); }
    void updateTweening() override { call(); }
    std::function<void()> onCall;

private:
    void call() {
        if (onCall) {
            onCall();
        }
    }
};

TEST_F(MoviePanelTest, MayBeClosedFromInsideEveryCall) {
    const std::function<void()> acts[] = {
        [] { click(IDC_INSERT_FRAME); },
        [] { click(IDC_PLAY); },
        [] { click(IDC_NO_FADES); },
        [] { click(IDC_STEP_FORWARD); },
        [] { ui::click(*control(IDC_TIMELINE), column(2)); },
        [] { QTest::mouseClick(control(IDC_TIMELINE), Qt::RightButton, Qt::NoModifier, column(1)); },
        [] { vuMovieCameraAltered(nullptr, true); },
        [] { click(IDC_CLOSE_MOVIE); },
        [] { panel()->close(); },
    };
    for (const auto& act : acts) {
        auto movie = std::make_unique<CCallingMovie>(4);
        open(*movie);
        movie->onCall = [] { vuDestroyMovieEditor(); };
        act();
        EXPECT_FALSE(vuIsMovieEditorActive());
        EXPECT_EQ(panel(), nullptr);
        movie.reset();
        ui::settle();
    }
    CCallingMovie loops(4);
    open(loops);
    click(IDC_LOOP);
    int ends = 0;
    loops.onCall = [&] {
        const auto ended = qxCAnimator::getCallback();
        if (ended != nullptr && ends < 100) {
            ++ends;
            ended(qxAnimatorEnded, loops.callbackData);
        }
    };
    click(IDC_PLAY);
    EXPECT_LT(ends, 100) << "a movie that ends while it is started is not started for ever";
}

TEST_F(MoviePanelTest, OpensAndClosesAThousandTimesEachWay) {
    const std::function<void()> ways[] = {[] { click(IDC_CLOSE_MOVIE); }, [] { panel()->close(); },
                                          [] { vuDestroyMovieEditor(); }};
    constexpr int SOUND_UPDATES[] = {0, 1, 1000}; // that hosts make in a frame
    for (int opening = 0; opening < 3000; ++opening) {
        vuCreateMovieEditor(nullptr, &m_movie, true);
        ASSERT_NE(panel(), nullptr);
        if (opening % 2 == 0) {
            click(IDC_PLAY);
            m_movie.advance(0.05);
            for (int i = SOUND_UPDATES[opening / 6 % 3]; i > 0; --i) {
                vuSoundUpdate();
            }
            ASSERT_EQ(m_movie.getRangeStart(), 1);
        }
        ways[opening % 3]();
        ASSERT_FALSE(vuIsMovieEditorActive());
        ASSERT_EQ(panel(), nullptr);
        ASSERT_FALSE(m_movie.isPlaying());
        ASSERT_EQ(qxCMovie::getCallback(), nullptr);
        ASSERT_EQ(g_pPlayingMovieDlg, nullptr);
        ui::settle();
    }
}

TEST_F(MoviePanelTest, GoesDownWithTheHostsWindow) {
    {
        QWidget host;
        host.show();
        vuCreateMovieEditor(reinterpret_cast<HWND>(host.winId()), &m_movie, true);
        click(IDC_PLAY);
    }
    EXPECT_FALSE(vuIsMovieEditorActive());
    EXPECT_FALSE(m_movie.isPlaying());
    open();
    EXPECT_EQ(panel()->isVisible(), true);
}

} // namespace
