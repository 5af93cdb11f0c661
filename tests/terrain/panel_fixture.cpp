#include "terrain/panel_fixture.h"

#include "host/veskutil.h"
#include "module/module_state.h"
#include "resources/resource_ids.h"
#include "support/modal_steps.h"
#include "support/ui_driver.h"
#include "terrain/panel/map_editor_dlg.h"

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

void PanelTest::open(bool fullEditing) {
    open(m_map, fullEditing);
}

void PanelTest::open(qxCMap& other, bool fullEditing) {
    vuCreateEditor(nullptr, &other, "", nullptr, fullEditing, nullptr);
    ASSERT_TRUE(vuIsEditorActive());
    ASSERT_NE(panel(), nullptr);
    panel()->activateWindow();
    ASSERT_TRUE(ui::waitUntilActive(panel()));
}

void PanelTest::reopen() {
    vuDestroyEditor();
    open();
}

QWidget* PanelTest::panel() {
    return ui::dialog(IDD_MAP_EDITOR);
}

CMapEditorDlg& PanelTest::model() {
    return *g_pMapEditorDlg;
}

QWidget* PanelTest::control(int id) {
    return &ui::control(*panel(), id);
}

bool PanelTest::isEnabled(int id) {
    return control(id)->isEnabled();
}

bool PanelTest::isShown(int id) {
    return control(id)->isVisible();
}

bool PanelTest::isChecked(int id) {
    return control(id)->property("checked").toBool();
}

QString PanelTest::text(int id) {
    return control(id)->property("text").toString();
}

int PanelTest::value(int id) {
    return control(id)->property("value").toInt();
}

void PanelTest::click(int id) {
    ui::click(*control(id));
}

void PanelTest::press(int id, Qt::Key key) {
    control(id)->setFocus();
    ui::press(key);
}

void PanelTest::type(int id, const QString& newText) {
    ui::type(*control(id), newText);
}

void PanelTest::selectTab(int index) {
    auto& bar = ui::control<QTabBar>(*panel(), IDC_TOOL_TABS);
    ui::click(bar, bar.tabRect(index).center());
}

void PanelTest::expand() {
    click(IDC_EXPAND);
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
