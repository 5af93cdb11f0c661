#include "sandbox/app/main_window.h"

#include "engine/memory/memory_scene.h"
#include "host/veskutil.h"
#include "sandbox/hands/dialogs.h"
#include "sandbox/hands/hands.h"
#include "sandbox/keys/map_panel.h"
#include "sandbox/window_session.h"
#include "support/ui_driver.h"

#include <QAction>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTimer>
#include <gtest/gtest.h>

namespace {

void rest(int milliseconds) {
    bool over = false;
    QTimer::singleShot(milliseconds, [&over] { over = true; });
    becomesTrue([&over] { return over; });
}

/// Sandboxes on the sample, one after the other, of a person without settings.
class WindowMemory : public testing::Test {
protected:
    /// Begin a session, after the end of the one before.
    void begin() {
        if (m_pWindow != nullptr) {
            m_pWindow->close();
        }
        m_pWindow = std::make_unique<CMainWindow>();
        m_pWindow->resize(1100, 660);
        m_pWindow->move(0, 0);
        m_pWindow->show();
        m_pWindow->activateWindow();
        ASSERT_TRUE(ui::waitUntilActive(m_pWindow.get()));
        ASSERT_EQ(m_pWindow->openMap(QString(VESK_SAMPLES) + "/jacksboro"), "");
        m_pWindow->startWork();
        ASSERT_TRUE(becomesTrue([] { return CMapPanel::isOpen(); }));
        rest(700); // a window manager may be at work
    }
    QAction& action(const char* name) { return *m_pWindow->findChild<QAction*>(name); }
    CMemoryMap& map() { return m_pWindow->document().map(); }
    QString strokeAt(QPointF place, QPointF way) {
        m_pWindow->statusBar()->clearMessage();
        m_hands.drag(m_pWindow->view(), place, place + way, Qt::LeftButton);
        ui::settle();
        return m_pWindow->statusBar()->currentMessage();
    }

    CFreshSettings m_settings;
    std::unique_ptr<CMainWindow> m_pWindow;
    CHands m_hands;
};

using PanelPlace = WindowMemory;

/// With a window manager, which puts frames around windows, as well as without one.
TEST_F(PanelPlace, IsWhereThePersonPutIt) {
    begin();
    action("dock-map-editor").trigger();
    rest(700);
    const QPoint first = CMapPanel::window()->pos();
    const auto reopen = [this] {
        action("map-editor").trigger();
        EXPECT_TRUE(becomesTrue([] { return !CMapPanel::isOpen(); }));
        action("map-editor").trigger();
        EXPECT_TRUE(becomesTrue([] { return CMapPanel::isOpen(); }));
        rest(700);
    };
    reopen();
    reopen();
    EXPECT_EQ(CMapPanel::window()->pos(), first);
    CMapPanel::window()->move(first + QPoint(300, 60));
    rest(700);
    const QPoint chosen = CMapPanel::window()->pos();
    EXPECT_NE(chosen, first);
    reopen();
    reopen();
    EXPECT_EQ(CMapPanel::window()->pos(), chosen);
    begin();
    EXPECT_EQ(CMapPanel::window()->pos() - m_pWindow->pos(), chosen - m_pWindow->pos()) << "the next session";
    action("map-editor").trigger();
    QSettings().setValue("panels/dialog-212", QPoint(-5000, -5000));
    begin();
    EXPECT_TRUE(
        m_pWindow->screen()->availableGeometry().contains(CMapPanel::window()->geometry().topRight()));
}

TEST_F(WindowMemory, ThePanelCanBeDocked) {
    begin();
    const auto isBeside = [this] {
        const QRect view(m_pWindow->view().mapToGlobal(QPoint()), m_pWindow->view().size());
        const QRect panel = CMapPanel::window()->frameGeometry();
        return panel.left() > view.right() && panel.right() <= m_pWindow->frameGeometry().right();
    };
    EXPECT_TRUE(becomesTrue(isBeside));
    m_pWindow->resize(1000, 640);
    EXPECT_TRUE(becomesTrue(isBeside)) << "it follows the window";
    CMapPanel::press(2012); // unfolded it is wider
    EXPECT_TRUE(becomesTrue(isBeside));
    begin();
    action("dock-map-editor").trigger();
    EXPECT_TRUE(becomesTrue([&] { return !isBeside(); }));
    begin();
    EXPECT_FALSE(action("dock-map-editor").isChecked() || isBeside()) << "the next session";
}

TEST_F(WindowMemory, TheHandAndTheSightAreKept) {
    begin();
    EXPECT_EQ(sessionmemory::handOnPanel(), (sessionmemory::Hand{RAISE_TOOL, 2017, 5}))
        << "shows at the first drag";
    const QPointF middle = QRectF(m_pWindow->view().rect()).center();
    const std::uint64_t before = map().getChangeCount(MapChange::HEIGHTS);
    EXPECT_EQ(strokeAt(middle, {0, -60}), "");
    EXPECT_GT(map().getChangeCount(MapChange::HEIGHTS), before);
    CMapPanel::press(PAINT_TOOL);
    const std::uint64_t surface = map().getChangeCount(MapChange::SURFACE);
    strokeAt(middle, {30, 0});
    EXPECT_GT(map().getChangeCount(MapChange::SURFACE), surface);

    CMapPanel::press(2011);
    CMapPanel::setStrength(8);
    m_pWindow->view().lookFrom({100, 60, 100}, {120, 20, 130});
    QTemporaryDir folder;
    ASSERT_EQ(m_pWindow->saveProject(folder.filePath("hill")), "");
    rest(50);
    begin();
    EXPECT_EQ(sessionmemory::handOnPanel(), (sessionmemory::Hand{PAINT_TOOL, 2011, 8}));
    ASSERT_EQ(m_pWindow->openMap(folder.filePath("hill")), "");
    EXPECT_NEAR(m_pWindow->view().camera().eye()[0], 100.0, 1e-6);
    EXPECT_NEAR(m_pWindow->view().camera().pivot()[2], 130.0, 1e-6);
    EXPECT_EQ(sessionmemory::folder(), folder.path());
}

TEST_F(WindowMemory, AStrokeWithoutEffectSaysWhy) {
    begin();
    const QPointF dry = QRectF(m_pWindow->view().rect()).center();
    struct Case {
        int tool;
        int brush;
        const char* message;
    };
    for (const Case& row :
         {Case{RAISE_TOOL, 2010, "Raise: drag up or down the screen"},
          Case{SET_HEIGHT_TOOL, 2006, "Set Hgt needs the third or the fifth brush, or a selection"},
          Case{FLOOD_TOOL, 0, "Flood: the ground here is above the water level of 316"},
          Case{DRAIN_TOOL, 0, "Drain: there is no water here"}, Case{GET_HEIGHT_TOOL, 0, ""}}) {
        CMapPanel::press(RAISE_TOOL); // the brushes can be pressed
        CMapPanel::press(row.brush);
        CMapPanel::press(row.tool);
        EXPECT_EQ(strokeAt(dry, {}).toStdString(), row.message);
    }
    CMapPanel::turnTabs();
    CMapPanel::press(1399);
    EXPECT_EQ(strokeAt(dry, {}).toStdString(), "Add Quad Detail: choose a texture with \"Detail\" first");
}

TEST_F(WindowMemory, LeavingTheDetailsTakesTheHighlightAway) {
    begin();
    ASSERT_GT(map().getDetails().size(), 0);
    CMapPanel::turnTabs();
    rest(50);
    auto& detail = const_cast<qxCMapDetailRecord&>(map().getDetails()[0]);
    detail.highlighted = true;
    CMapPanel::turnTabs();
    EXPECT_TRUE(becomesTrue([&] { return !detail.highlighted; }));
}

} // namespace
