#include "movie/movie_panel_fixture.h"

#include "host/veskutil.h"
#include "movie/awkward_movie.h"
#include "movie/movie_undo_store.h"
#include "resources/resource_ids.h"
#include "support/modal_steps.h"
#include "support/ui_driver.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QColorDialog>
#include <QComboBox>
#include <QProgressBar>
#include <QTest>

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <set>

namespace {

constexpr int FAR_AWAY = std::numeric_limits<int>::max();

TEST_F(MoviePanelTest, OpensStoppedOnItsFirstFrame) {
    constexpr std::uint32_t OPTIONS = qxMovieShowPath | qxMovieShowHeights | qxMovieNoFades;
    constexpr int BOXES[] = {IDC_SHOW_PATH, IDC_SHOW_HEIGHTS, IDC_NO_FADES};
    m_movie.flags = OPTIONS;
    m_movie.setRangeSingleFrame(7);
    open();
    EXPECT_EQ(m_movie.getRangeStart(), 0);
    EXPECT_EQ(m_movie.flags, OPTIONS | qxMovieStopped);
    EXPECT_TRUE(std::ranges::all_of(BOXES, isChecked) && isChecked(IDC_VESK_CAMERA));
    CAwkwardMovie other(3);
    vuCreateMovieEditor(nullptr, &other, false);
    EXPECT_EQ(other.flags, std::uint32_t{qxMovieStopped});
    EXPECT_EQ(text(IDC_FRAME_CAMERA), "one");
    vuDestroyMovieEditor();
    open(other, false);
    EXPECT_TRUE(std::ranges::none_of(BOXES, isChecked));
    EXPECT_FALSE(control(IDC_CLOSE_MOVIE)->isVisible() || isEnabled(IDC_CLOSE_MOVIE));
}

const std::set<int> FRAME_GROUP = {IDC_POSITION_X,    IDC_POSITION_Y, IDC_POSITION_Z,   IDC_ROTATION_Z,
                                   IDC_FIELD_OF_VIEW, IDC_SHAKE,      IDC_FRAME_CAMERA, IDC_INTERPOLATION,
                                   IDC_TARGET_NAME,   IDC_TARGET,     IDC_FADE,         IDC_ANIM,
                                   IDC_FADE_COLOUR};
const std::set<int> AIM_GROUP = {IDC_ROTATION_X, IDC_ROTATION_Y};
const std::set<int> EASE_IN_GROUP = {IDC_EASE_IN_CURVE, IDC_EASE_IN_DOWN, IDC_EASE_IN_UP};
const std::set<int> EASE_OUT_GROUP = {IDC_EASE_OUT_CURVE, IDC_EASE_OUT_DOWN, IDC_EASE_OUT_UP};
const std::set<int> ALWAYS = {IDC_POSITION_X_SPIN,    IDC_POSITION_Y_SPIN,
                              IDC_POSITION_Z_SPIN,    IDC_ROTATION_X_SPIN,
                              IDC_ROTATION_Y_SPIN,    IDC_ROTATION_Z_SPIN,
                              IDC_FIELD_OF_VIEW_SPIN, IDC_SHAKE_SPIN,
                              IDC_INSERT_FRAME,       IDC_PLAY};
const std::set<int> NEVER = {IDC_BROWSE_TARGET, IDC_BROWSE_ANIM, IDC_MOVIE_UNDO};

TEST_F(MoviePanelTest, EnablesWhatTheCurrentFrameAllows) {
    using Sets = std::vector<std::set<int>>;
    const auto movie = [this](int first, int last) {
        return [=, this] {
            m_movie.setRangeStart(first);
            m_movie.setRangeEnd(last);
        };
    };
    const struct {
        const char* what;
        std::function<void()> act;
        Sets enabled;
    } cases[] = {
        {"inner keyframe", movie(5, 5), {FRAME_GROUP, AIM_GROUP, EASE_IN_GROUP, EASE_OUT_GROUP}},
        {"no keyframe", movie(6, 6), {}},
        {"first", movie(0, 0), {FRAME_GROUP, AIM_GROUP, EASE_OUT_GROUP}},
        {"last", movie(19, 19), {FRAME_GROUP, AIM_GROUP, EASE_IN_GROUP}},
        {"range", movie(5, 6), {}},
        {"target",
         [this] {
             m_movie.setRangeSingleFrame(5);
             frame(5).setCameraMode(qxMovieCameraTarget);
         },
         {FRAME_GROUP, EASE_IN_GROUP, EASE_OUT_GROUP}},
        {"playing", [this] { m_movie.flags = 0; }, {}},
        {"stopped again",
         [this] {
             m_movie.flags = 1;
             frame(5).setCameraMode(qxMovieCameraFree);
         },
         {FRAME_GROUP, AIM_GROUP, EASE_IN_GROUP, EASE_OUT_GROUP}},
    };
    open();
    for (const auto& one : cases) {
        one.act();
        vuMovieCameraAltered(nullptr, true); // refreshes
        std::set<int> enabled = ALWAYS;
        for (const std::set<int>& group : one.enabled) {
            enabled.insert(group.begin(), group.end());
        }
        for (const std::set<int>& group :
             {FRAME_GROUP, AIM_GROUP, EASE_IN_GROUP, EASE_OUT_GROUP, ALWAYS, NEVER}) {
            for (const int id : group) {
                EXPECT_EQ(isEnabled(id), enabled.contains(id)) << one.what << ", " << id;
            }
        }
    }
}

TEST_F(MoviePanelTest, AVisitedNumberKeepsWhatItsSixDigitsDoNotShow) {
    frame(5).setFov(47.3000007F);
    frame(5).setTranslation({1.23456789F, 2.0F, 3.0F});
    frame(5).hasChanged();
    open();
    goTo(5);
    for (const int id : {IDC_POSITION_X, IDC_FIELD_OF_VIEW, IDC_SHAKE, IDC_ANIM}) {
        click(id);
        leave();
    }
    EXPECT_EQ(frame(5).fov, 47.3000007F);
    EXPECT_TRUE(g_movieUndo.isEmpty());
    type(IDC_POSITION_Y, "8.5");
    leave();
    EXPECT_EQ(frame(5).translation, (qxCVector3d{1.23456789F, 8.5F, 3.0F}));
}

TEST_F(MoviePanelTest, RefusesWhatIsNoNumber) {
    open();
    goTo(5);
    type(IDC_SHAKE, "much");
    {
        CModalSteps steps({[](QWidget* box) { QTest::keyClick(box, Qt::Key_Return); }});
        ui::click(*control(IDC_TIMELINE), column(7));
        EXPECT_TRUE(steps.areDone());
    }
    EXPECT_EQ(m_movie.getRangeStart(), 5) << "the click only asked the field";
    ASSERT_TRUE(ui::waitUntilActive(panel()));
    EXPECT_EQ(text(IDC_SHAKE), "0");
    EXPECT_TRUE(g_movieUndo.isEmpty());
    type(IDC_SHAKE, "lots");
    CModalSteps host({[](QWidget*) { vuDestroyMovieEditor(); }});
    ui::click(*control(IDC_TIMELINE), column(7));
    EXPECT_TRUE(host.areDone());
    EXPECT_EQ(m_movie.getRangeStart(), 5);
}

TEST_F(MoviePanelTest, AMoveThatIsUnderWayEndsWithThePanel) {
    open();
    goTo(7);
    type(IDC_POSITION_Y, "99"); // stands open while the camera moves
    m_camera.position = {4.0F, 5.0F, 7.0F};
    vuMovieCameraAltered(&m_camera, false);
    leave();
    EXPECT_EQ(frame(7).translation, m_camera.position);
    vuDestroyMovieEditor();
    open();
    vuMovieCameraAltered(&m_camera, true);
    EXPECT_TRUE(g_movieUndo.isEmpty());
}

TEST_F(MoviePanelTest, CopesWithAnyEngine) {
    const std::function<void(CAwkwardMovie&)> ways[] = {
        [](CAwkwardMovie& movie) { movie.frames.clear(); },
        [](CAwkwardMovie& movie) { movie.hidesFrames = true; },
        [](CAwkwardMovie& movie) { movie.stepRate = NAN; },
        [](CAwkwardMovie& movie) { movie.last = FAR_AWAY; },
        [](CAwkwardMovie& movie) { movie.first = movie.last = FAR_AWAY; },
        [](CAwkwardMovie& movie) { movie.first = -FAR_AWAY; },
    };
    for (const auto& spoil : ways) {
        CAwkwardMovie movie(4);
        movie.refusesInsert = movie.refusesDelete = true;
        open(movie);
        for (QAbstractButton* const button : panel()->findChildren<QAbstractButton*>()) {
            const int id = button->objectName().toInt();
            if (id != IDC_CLOSE_MOVIE && id != IDC_SETUP_SOUND_LIST) {
                spoil(movie);
                ui::click(*button);
            }
        }
        for (const QAbstractSpinBox* const spin : panel()->findChildren<QAbstractSpinBox*>()) {
            spoil(movie);
            step(spin->objectName().toInt(), true);
        }
        QTest::mouseClick(control(IDC_TIMELINE), Qt::RightButton);
        EXPECT_TRUE(g_movieUndo.isEmpty());
        vuDestroyMovieEditor();
    }
}

} // namespace
