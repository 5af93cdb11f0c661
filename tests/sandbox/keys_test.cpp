#include "sandbox/app/main_window.h"
#include "sandbox/hands/dialogs.h"
#include "sandbox/hands/hands.h"

#include "resources/resource_ids.h"
#include "sandbox/keys/map_panel.h"
#include "sandbox/keys/shortcuts_dialog.h"
#include "sandbox/window_session.h"
#include "support/ui_driver.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QKeySequenceEdit>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QSettings>
#include <QSlider>
#include <QTabBar>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <gtest/gtest.h>

#include <set>

namespace {

/// The sandbox on its sample, the map editor open, under a hand that strikes keys where the window system
/// does.
class Keys : public testing::Test {
protected:
    void SetUp() override {
        beginOnSample(m_window, {1280, 720});
        ASSERT_TRUE(waitUntil([this] { return viewHasKeyboard(); }))
            << "the view has the keyboard at the start";
    }

    bool viewHasKeyboard() { return m_window.view().hasFocus() && m_window.isActiveWindow(); }
    QWidget& control(int id) { return *findControl(*CMapPanel::window(), id); }
    void strike(QWidget& where, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        m_hands.pressKey(where, key, modifiers);
    }
    int chosen() const { return CMapPanel::chosenTool() != nullptr ? CMapPanel::chosenTool()->control : 0; }
    int heightAt(const TerrainHit& cell) {
        const CMemoryMap& map = m_window.document().map();
        return map.getHeights()[static_cast<std::size_t>(cell.z * (map.getGridDim() + 1) + cell.x)];
    }
    /// Drag upwards over the middle of the view: by how much the ground rose where the drag began.
    int dragUp(Qt::KeyboardModifiers modifiers) {
        const QPointF middle = QRectF(m_window.view().rect()).center();
        const TerrainHit cell = m_window.view().pick(middle).value();
        const int before = heightAt(cell);
        m_hands.hold(modifiers);
        m_hands.drag(m_window.view(), middle, middle - QPointF(0, 40), Qt::LeftButton);
        m_hands.hold(Qt::NoModifier);
        ui::settle();
        return heightAt(cell) - before;
    }

    CFreshSettings m_settings;
    CMainWindow m_window;
    CHands m_hands;
};

TEST_F(Keys, EveryCommandHasAKeyOfItsOwn) {
    const CShortcutTable table(*m_window.menuBar());
    std::set<QString> ids;
    std::vector<QKeySequence> keys;
    for (const Shortcut& row : table.rows()) {
        EXPECT_TRUE(ids.insert(row.id).second) << row.id.toStdString();
        keys.push_back(row.standard);
    }
    EXPECT_GT(keys.size(), 30U);
    const std::vector<int> conflicts = CShortcutTable::conflicts(keys);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        EXPECT_EQ(conflicts[i], -1) << table.rows()[i].id.toStdString();
    }
}

TEST_F(Keys, ThePanelIsWorkedByKeysFromTheView) {
    for (const MapTool& tool : mapTools()) {
        strike(m_window.view(), tool.key);
        EXPECT_EQ(chosen(), tool.control) << tool.terrain.name;
        EXPECT_TRUE(waitUntil([this] { return viewHasKeyboard(); })) << tool.terrain.name;
    }
    strike(m_window.view(), Qt::Key_2);
    CMapPanel::press(2010);
    strike(m_window.view(), Qt::Key_BracketRight);
    EXPECT_TRUE(CMapPanel::button(2011)->isChecked());
    strike(m_window.view(), Qt::Key_BracketLeft);
    strike(m_window.view(), Qt::Key_BracketLeft);
    EXPECT_TRUE(CMapPanel::button(2009)->isChecked());
    auto& strength = dynamic_cast<QSlider&>(control(STRENGTH));
    const int before = strength.value();
    strike(m_window.view(), Qt::Key_Equal);
    strike(m_window.view(), Qt::Key_Equal);
    strike(m_window.view(), Qt::Key_Minus);
    EXPECT_EQ(strength.value(), before + 1);
    strike(m_window.view(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(CMapPanel::showsDetails());
    const auto* const third = m_window.findChild<QAction*>("tool-1403");
    EXPECT_TRUE(becomesTrue([third] { return third->text() == "Move Detail"; }));
    EXPECT_FALSE(m_window.findChild<QAction*>("tool-1430")->isVisible());
}

/// The keyboard goes back to the view while the hand is on the next button already.
TEST_F(Keys, AQuickHandPressesEveryButtonOfThePanel) {
    for (const int brush : {2010, 2011, 2009}) {
        m_hands.click(control(IDC_TOOL_RAISE));
        QWidget& next = control(brush);
        m_hands.moveTo(next, QRectF(next.rect()).center());
        m_hands.press(Qt::LeftButton);
        m_window.activateWindow();
        ui::settle();
        m_hands.release(Qt::LeftButton);
        EXPECT_EQ(CMapPanel::chosenBrush(), brush);
    }
    EXPECT_TRUE(becomesTrue([this] { return viewHasKeyboard(); }));
}

TEST_F(Keys, LettersBelongToWhoTakesText) {
    auto& height = dynamic_cast<QLineEdit&>(control(IDC_HEIGHT));
    strike(m_window.view(), Qt::Key_3);
    m_hands.click(height);
    ASSERT_TRUE(ui::waitUntilActive(CMapPanel::window()));
    strike(height, Qt::Key_A, Qt::ControlModifier);
    m_hands.type(height, "7");
    EXPECT_EQ(height.text(), "7");
    EXPECT_EQ(chosen(), 1403) << "a digit typed is no tool";
    const CViewCamera::Vector eye = m_window.view().camera().eye();
    m_hands.type(height, "w");
    EXPECT_EQ(m_window.view().camera().eye(), eye);
    EXPECT_EQ(height.text(), "7w");
    strike(height, Qt::Key_Backspace);

    m_hands.click(control(1401)); // a tool gives the keyboard back to the view
    EXPECT_TRUE(waitUntil([this] { return viewHasKeyboard(); }));

    QWidget& slider = control(STRENGTH); // and from a control without text the view is flown
    slider.window()->activateWindow();
    slider.setFocus();
    ASSERT_TRUE(ui::waitUntilActive(CMapPanel::window()));
    m_hands.holdKey(slider, Qt::Key_W, [&] { return m_window.view().camera().eye() != eye; });
    EXPECT_NE(m_window.view().camera().eye(), eye);
    strike(slider, Qt::Key_5);
    EXPECT_EQ(chosen(), 1410);
}

TEST_F(Keys, HeldKeysChangeOneStroke) {
    strike(m_window.view(), Qt::Key_2);
    CMapPanel::press(2010);
    EXPECT_GT(dragUp(Qt::NoModifier), 0);
    EXPECT_LT(dragUp(Qt::ControlModifier), 0);
    EXPECT_EQ(chosen(), RAISE_TOOL);

    const std::uint64_t changes = m_window.document().map().getChangeCount(MapChange::HEIGHTS);
    CMapPanel::stepStrength(1);
    dragUp(Qt::ShiftModifier);
    EXPECT_GT(m_window.document().map().getChangeCount(MapChange::HEIGHTS), changes);
    EXPECT_TRUE(waitUntil([this] { return chosen() == RAISE_TOOL && viewHasKeyboard(); }));
}

/// A hand is faster than the events of a mouse: all the way is painted, also when only its ends are told.
TEST_F(Keys, AQuickStrokeLeavesNoHole) {
    strike(m_window.view(), Qt::Key_0);
    CMapPanel::press(2010);
    CMapPanel::setStrength(10);
    QWidget& view = m_window.view();
    m_window.view().lookFrom({160, 90, 260}, {160, 20, 180});
    const QPointF from(120.0, view.height() * 0.7);
    const QPointF to = from + QPointF(840.0, 0.0);
    const TerrainHit first = m_window.view().pick(from).value();
    const TerrainHit last = m_window.view().pick(to).value();
    const CMemoryMap& map = m_window.document().map();
    const std::vector<qxCColour> before(map.getColours().begin(), map.getColours().end());
    m_hands.moveTo(view, from);
    m_hands.press(Qt::LeftButton);
    m_hands.moveTo(view, to);
    m_hands.release(Qt::LeftButton);
    const int edge = map.getGridDim() + 1;
    for (int x = std::min(first.x, last.x); x <= std::max(first.x, last.x); ++x) {
        const double part = first.x == last.x ? 0.0 : double(x - first.x) / (last.x - first.x);
        const int z = first.z + static_cast<int>(std::lround(part * (last.z - first.z)));
        bool painted = false;
        for (int dz = -1; dz <= 1; ++dz) {
            const auto point = static_cast<std::size_t>((z + dz) * edge + x);
            painted = painted || map.getColours()[point] != before[point];
        }
        EXPECT_TRUE(painted) << x;
    }
}

TEST_F(Keys, FramesThePointerOrTheSelection) {
    QPointF place = QRectF(m_window.view().rect()).center();
    EXPECT_TRUE(waitUntil([&] { // a real pointer that rests elsewhere may have its say in between
        m_hands.moveTo(m_window.view(), place += QPointF(2, 1));
        m_window.findChild<QAction*>("frame")->trigger();
        return m_window.view().camera().pivotDistance() < 40.0;
    }));
    const CViewCamera::Vector near = m_window.view().camera().pivot();
    strike(m_window.view(), Qt::Key_A, Qt::ControlModifier);
    strike(m_window.view(), Qt::Key_F);
    EXPECT_GT(m_window.view().camera().pivotDistance(), 200.0);
    EXPECT_NE(m_window.view().camera().pivot(), near);
}

TEST_F(Keys, KeysAreChosenInADialogThatTellsConflicts) {
    CShortcutTable table(*m_window.menuBar());
    {
        CShortcutsDialog dialog(table, &m_window);
        dialog.show();
        auto& list = *dialog.findChild<QTreeWidget*>();
        auto& key = *dialog.findChild<QKeySequenceEdit*>();
        auto& ok = *dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
        for (QTreeWidgetItemIterator item(&list); *item != nullptr; ++item) {
            if ((*item)->text(0) == "Raise") {
                list.setCurrentItem(*item);
            }
        }
        key.setKeySequence(Qt::Key_7);
        EXPECT_FALSE(ok.isEnabled());
        EXPECT_EQ(dialog.findChild<QLabel*>("conflict")->text(),
                  "7 is the key of \"Raise\" and of \"Smooth\".");
        key.setKeySequence(Qt::Key_J);
        ui::click(ok);
    }
    strike(m_window.view(), Qt::Key_J);
    EXPECT_EQ(chosen(), RAISE_TOOL);
    EXPECT_EQ(QSettings().value("shortcuts/tool-1401").toString(), "J");
    CMainWindow next;
    EXPECT_EQ(next.findChild<QAction*>("tool-1401")->shortcut(), QKeySequence(Qt::Key_J))
        << "kept for the next time";
}

} // namespace
