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
    EXPECT_EQ(panel()->windowTitle(), "Movie Editor");
    EXPECT_EQ(m_movie.getRangeStart(), 0);
    EXPECT_EQ(m_movie.flags, OPTIONS | qxMovieStopped);
    EXPECT_TRUE(std::ranges::all_of(BOXES, isChecked));
    EXPECT_TRUE(isChecked(IDC_VESK_CAMERA));
    EXPECT_FALSE(isEnabled(IDC_PAUSE));
    EXPECT_FALSE(isEnabled(IDC_MOVIE_UNDO));
    EXPECT_TRUE(control(IDC_CLOSE_MOVIE)->isVisible());
    EXPECT_EQ(ui::control<QComboBox>(*panel(), IDC_FRAME_CAMERA).count(), 2);
    CAwkwardMovie other(3);
    vuCreateMovieEditor(nullptr, &other, false);
    EXPECT_EQ(other.flags, std::uint32_t{qxMovieStopped});
    EXPECT_EQ(text(IDC_FRAME_CAMERA), "one");
    vuDestroyMovieEditor();
    open(other, false);
    EXPECT_TRUE(std::ranges::none_of(BOXES, isChecked));
    EXPECT_FALSE(control(IDC_CLOSE_MOVIE)->isVisible());
    EXPECT_FALSE(isEnabled(IDC_CLOSE_MOVIE));
}

TEST_F(MoviePanelTest, ShowsAndPosesTheCurrentFrame) {
    open();
    goTo(10);
    EXPECT_EQ(text(IDC_POSITION_X), "10");
    EXPECT_EQ(m_camera.position.x, 10.0F) << "the movie is posed there";
    type(IDC_TARGET_NAME, "mill");
    leave();
    EXPECT_STREQ(frame(10).targetName.getString(), "mill");
    EXPECT_FALSE(isEnabled(IDC_MOVIE_UNDO)) << "as after each command that refreshes";
    CModalSteps person({[](QWidget* dialog) {
        dynamic_cast<QColorDialog&>(*dialog).setCurrentColor(QColor(9, 8, 7));
        dynamic_cast<QDialog&>(*dialog).accept();
    }});
    QTest::mouseDClick(control(IDC_FADE_COLOUR), Qt::LeftButton);
    EXPECT_TRUE(person.areDone());
    EXPECT_EQ(frame(10).fadeColour, qxCColour(9, 8, 7, 255));
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

TEST_F(MoviePanelTest, WritesOnlyTheNumberThatWasTyped) {
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
    const float between = frame(6).fov;
    type(IDC_FIELD_OF_VIEW, "+050");
    leave();
    EXPECT_EQ(text(IDC_FIELD_OF_VIEW), "50");
    EXPECT_EQ(frame(6).fov, between) << "until the next command that tweens";
    click(IDC_MOVIE_UNDO);
    EXPECT_TRUE(isEnabled(IDC_MOVIE_UNDO));
    click(IDC_MOVIE_UNDO);
    EXPECT_EQ(text(IDC_POSITION_Y), "2");
    EXPECT_FALSE(isEnabled(IDC_MOVIE_UNDO));
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

TEST_F(MoviePanelTest, KeepsItsHistoryWhenItIsClosed) {
    open();
    m_movie.setRangeStart(3);
    m_movie.setRangeEnd(5);
    click(IDC_DELETE_FRAMES);
    EXPECT_FALSE(isEnabled(IDC_MOVIE_UNDO));
    vuDestroyMovieEditor();
    open();
    EXPECT_EQ(g_movieUndo.getCount(), 3);
    for (int i = g_movieUndo.getCount(); i < 2000; ++i) {
        g_movieUndo.pushInserted(FAR_AWAY);
    }
    click(IDC_INSERT_FRAME);
    EXPECT_EQ(ui::control<QProgressBar>(*panel(), IDC_MOVIE_UNDO_FILL).value(), 2);
}

TEST_F(MoviePanelTest, TakesTheCameraIntoTheCurrentFrame) {
    open();
    goTo(7);
    type(IDC_POSITION_Y, "99"); // stands open while the camera moves
    m_camera.position = {4.0F, 5.0F, 7.0F};
    vuMovieCameraAltered(&m_camera, false);
    leave();
    EXPECT_EQ(frame(7).translation, m_camera.position);
    vuMovieCameraAltered(&m_camera, true);
    EXPECT_EQ(text(IDC_POSITION_Y), "5");
    EXPECT_EQ(g_movieUndo.getCount(), 1);
    type(IDC_POSITION_Y, "98");
    vuMovieCameraAltered(&m_camera, true);
    EXPECT_EQ(text(IDC_POSITION_Y), "5") << "what stood open is taken back with the end of the move";

    m_camera.position = {8.0F, 8.0F, 8.0F};
    vuMovieCameraAltered(&m_camera, false);
    click(IDC_INSERT_FRAME); // moves the frame: what the move has changed so far is recorded first
    EXPECT_EQ(g_movieUndo.getCount(), 3);
    vuMovieCameraAltered(&m_camera, false);
    vuDestroyMovieEditor();
    open();
    vuMovieCameraAltered(&m_camera, true);
    EXPECT_EQ(g_movieUndo.getCount(), 3) << "what waited went with the panel";
}

TEST_F(MoviePanelTest, ChoosesTheViewAndItsOptions) {
    CMemoryCamera own(&m_scene, "own");
    m_scene.removeNode(&m_movie);
    m_scene.addNode(&own);
    m_scene.addNode(&m_movie);
    open();
    click(IDC_MOVIE_CAMERA);
    EXPECT_EQ(m_scene.getSelectedCamera(), &m_camera);
    click(IDC_VESK_CAMERA);
    EXPECT_EQ(m_scene.getSelectedCamera(), &own);
    click(IDC_SHOW_HEIGHTS);
    click(IDC_SHOW_PATH);
    click(IDC_NO_FADES);
    click(IDC_SHOW_HEIGHTS);
    EXPECT_EQ(m_movie.flags, std::uint32_t{qxMovieStopped | qxMovieShowPath | qxMovieNoFades});
    m_scene.removeNode(&own);
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
