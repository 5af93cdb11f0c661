#include "sandbox/app/main_window.h"

#include "engine/memory/memory_scene.h"
#include "resources/resource_ids.h"
#include "sandbox/hands/dialogs.h"
#include "sandbox/hands/hands.h"
#include "sandbox/keys/map_panel.h"
#include "sandbox/window_session.h"
#include "support/ui_driver.h"

#include <QAbstractButton>
#include <QAction>
#include <QSpinBox>
#include <QTimer>
#include <gtest/gtest.h>

#include <vector>

namespace {

using Heights = std::vector<std::uint16_t>;

/// The sandbox on its sample with the map editor open, under hands.
class EditMenu : public testing::Test {
protected:
    void SetUp() override {
        beginOnSample(m_window, {1280, 720});
        m_window.view().lookFrom({160, 90, 260}, {160, 20, 180});
        rest();
    }

    /// Let the application fall idle.
    static void rest() {
        QTimer::singleShot(30, [] {});
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        ui::settle();
    }
    CMemoryMap& map() { return m_window.document().map(); }
    Heights heights() { return {map().getHeights().begin(), map().getHeights().end()}; }
    QAction& action(const char* name) { return *m_window.findChild<QAction*>(name); }
    void drag(QPointF from, QPointF to) {
        m_hands.drag(m_window.view(), from, to, Qt::LeftButton);
        rest();
    }
    void raiseAt(QPointF place) {
        CMapPanel::press(RAISE_TOOL);
        rest();
        drag(place, place - QPointF(0, 60));
    }
    void strike(Qt::Key key, Qt::KeyboardModifiers modifiers) {
        m_hands.pressKey(m_window.view(), key, modifiers);
        rest();
    }
    QPointF middle() { return QRectF(m_window.view().rect()).center(); }

    CFreshSettings m_settings;
    CMainWindow m_window;
    CHands m_hands;
};

TEST_F(EditMenu, TakesBackWhatThePanelForgets) {
    const Heights first = heights();
    EXPECT_FALSE(m_window.isWindowModified());
    CMapPanel::pressUnfolded(1473); // Select All
    raiseAt(middle());
    EXPECT_GT(std::ranges::count_if(map().getHeights(), [](int height) { return height > 0; }), 100000);
    ASSERT_NE(heights(), first);
    const Heights raised = heights();
    EXPECT_EQ(action("undo").text(), "&Undo Raise");
    m_hands.click(*CMapPanel::button(2015)); // the panel's own Undo, which holds 100,000 points
    rest();
    EXPECT_NE(heights(), first);
    EXPECT_EQ(action("undo").text(), "&Undo Undo on the Panel");
    strike(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(heights(), raised);
    strike(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(heights(), first);
    EXPECT_FALSE(m_window.isWindowModified()) << "all is as it was opened";
    EXPECT_EQ(action("redo").text(), "&Redo Raise");
    strike(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(heights(), raised);
    EXPECT_TRUE(m_window.isWindowModified());
    strike(Qt::Key_Z, Qt::ControlModifier);
    strike(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(heights(), raised);
}

TEST_F(EditMenu, DetailsComeBackAndAnEarlierHillStays) {
    raiseAt(middle() + QPointF(150, 50));
    const Heights hill = heights();
    const int trees = map().getDetails().size();
    // A detail that is seen: the delete tool takes the one of the cell.
    std::optional<QPointF> place;
    for (int i = 0; i < trees && !place; ++i) {
        const qxCMapDetailRecord& detail = map().getDetails()[i];
        const qxCVector3d foot =
            detail.point0 + (detail.point1 - detail.point0) * 0.5F + (detail.point2 - detail.point0) * 0.5F;
        const auto seen = m_window.view().project(
            {foot.x, static_cast<float>(map().getPointHeight(int(foot.x), int(foot.z))) * map().heightScale,
             foot.z});
        const bool near =
            seen && QRectF(m_window.view().rect()).adjusted(260, 100, -100, -100).contains(*seen);
        const auto hit = near ? m_window.view().pick(*seen) : std::nullopt;
        if (hit && map().findDetail(float(hit->x), float(hit->z)) == &detail) {
            place = *seen;
        }
    }
    ASSERT_TRUE(place.has_value());
    CMapPanel::turnTabs();
    CMapPanel::press(RAISE_TOOL); // on this tab: Delete Detail
    rest();
    m_hands.moveTo(m_window.view(), *place);
    drag(*place, *place);
    EXPECT_EQ(map().getDetails().size(), trees - 1);
    EXPECT_EQ(action("undo").text(), "&Undo Delete Detail");
    strike(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(map().getDetails().size(), trees);
    EXPECT_EQ(heights(), hill);
    strike(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(map().getDetails().size(), trees - 1);
}

TEST_F(EditMenu, CommandsAndTheToolBarAreStepsToo) {
    const int definitions = map().getNumMultiTextures();
    CMapPanel::press(2012);
    m_hands.click(*CMapPanel::button(1638)); // Insert
    rest();
    EXPECT_EQ(map().getNumMultiTextures(), definitions + 1);
    EXPECT_EQ(action("undo").text(), "&Undo Insert");
    auto& level = *m_window.findChild<QSpinBox*>("water-level");
    level.setValue(340);
    rest();
    strike(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(level.value(), 316);
    strike(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(map().getNumMultiTextures(), definitions);
    EXPECT_TRUE(CMapPanel::isOpen()) << "the panel shows what there is";
    strike(Qt::Key_Z, Qt::ControlModifier); // nothing is left
    EXPECT_FALSE(m_window.isWindowModified());
}

TEST_F(EditMenu, EscapeTakesTheStrokeBackWhole) {
    const Heights first = heights();
    CMapPanel::press(RAISE_TOOL);
    rest();
    m_hands.moveTo(m_window.view(), middle());
    m_hands.press(Qt::LeftButton);
    m_hands.moveTo(m_window.view(), middle() - QPointF(0, 60));
    ASSERT_NE(heights(), first);
    m_hands.pressKey(m_window.view(), Qt::Key_Escape);
    EXPECT_EQ(heights(), first);
    m_hands.moveTo(m_window.view(), middle() - QPointF(0, 90));
    m_hands.release(Qt::LeftButton);
    rest();
    EXPECT_EQ(heights(), first);
    EXPECT_EQ(action("undo").text(), "&Undo");
    EXPECT_EQ(action("redo").text(), "&Redo");
}

TEST_F(EditMenu, TheFilmIsTakenBackToo) {
    CFilm& film = m_window.document().film();
    const FilmCopy first = copyOf(film);
    action("movie-editor").trigger();
    rest();
    QWidget& panel = *ui::dialog(IDD_MOVIE_EDITOR);
    film.movie().setRangeEnd(40);
    for (const int button : {IDC_DELETE_FRAMES, IDC_ADD_KEYFRAME}) {
        m_hands.click(ui::control(panel, button));
        rest();
    }
    film.addPlace("Ford", {1.0F, 2.0F, 3.0F});
    rest();
    EXPECT_TRUE(m_window.isWindowModified());
    strike(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(action("undo").text(), "&Undo Add Keyframe");
    const FilmCopy edited = copyOf(film);
    for (int i = 0; i < 2; ++i) {
        strike(Qt::Key_Z, Qt::ControlModifier);
    }
    EXPECT_TRUE(areAlike(copyOf(film), first));
    EXPECT_FALSE(m_window.isWindowModified());
    for (int i = 0; i < 2; ++i) {
        strike(Qt::Key_Y, Qt::ControlModifier);
    }
    EXPECT_TRUE(areAlike(copyOf(film), edited));
}

} // namespace
