#include "terrain/panel_fixture.h"

#include "host/veskutil.h"
#include "support/modal_steps.h"

#include <QTabBar>
#include <QTest>

PanelTest::PanelTest() {
    vuDestroySettings();
}

PanelTest::~PanelTest() {
    vuDestroyEditor();
    vuDestroySettings();
    g_bEditingInProgress = false;
}

void PanelTest::open(qxCMap& other, bool fullEditing) {
    vuCreateEditor(nullptr, &other, "", nullptr, fullEditing, nullptr);
    ASSERT_TRUE(vuIsEditorActive());
    ASSERT_NE(panel(), nullptr);
    panel()->activateWindow();
    ASSERT_TRUE(ui::waitUntilActive(panel()));
}

void PanelTest::selectTab(int index) {
    auto& bar = ui::control<QTabBar>(*panel(), IDC_TOOL_TABS);
    ui::click(bar, bar.tabRect(index).center());
}

void PanelTest::stroke(int x, int z, int amount, int corner) {
    vuStartEditing(x, z, 0, corner);
    vuUpdateEditing(x, z, 0, 0, 0, amount);
    vuStopEditing();
}

QString PanelTest::messageDuring(const std::function<void()>& action,
                                 const std::function<void()>& whileOpen) {
    QString shown;
    const CModalSteps person({[&](QWidget* box) {
        shown = box->property("text").toString();
        whileOpen();
        QTest::keyClick(box, Qt::Key_Return);
    }});
    action();
    EXPECT_TRUE(person.areDone());
    EXPECT_TRUE(panel() == nullptr || ui::waitUntilActive(panel()));
    return shown;
}
