#include "terrain/panel_fixture.h"

#include "host/veskutil.h"
#include "module/module_state.h"
#include "resources/resource_ids.h"
#include "support/ui_driver.h"
#include "terrain/panel/map_editor_dlg.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressBar>
#include <QTabBar>
#include <QTest>
#include <QTimer>

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
    return qobject_cast<QAbstractButton*>(control(id))->isChecked();
}

QString PanelTest::text(int id) {
    QWidget* const widget = control(id);
    if (const auto* const edit = qobject_cast<QLineEdit*>(widget)) {
        return edit->text();
    }
    if (const auto* const label = qobject_cast<QLabel*>(widget)) {
        return label->text();
    }
    return qobject_cast<QAbstractButton*>(widget)->text();
}

int PanelTest::sliderPosition() {
    return qobject_cast<QAbstractSlider*>(control(IDC_STRENGTH))->value();
}

int PanelTest::undoFill() {
    return qobject_cast<QProgressBar*>(control(IDC_UNDO_FILL))->value();
}

namespace {

QTabBar* tabBar(QWidget* tabs) {
    auto* const bar = qobject_cast<QTabBar*>(tabs);
    return bar != nullptr ? bar : tabs->findChild<QTabBar*>();
}

} // namespace

QString PanelTest::selectedTab() {
    const QTabBar* const bar = tabBar(control(IDC_TOOL_TABS));
    return bar->tabText(bar->currentIndex());
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
    QTabBar* const bar = tabBar(control(IDC_TOOL_TABS));
    ui::click(*bar, bar->tabRect(index).center());
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
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            look.stop();
            shown = box->text();
            if (whileOpen) {
                whileOpen();
            }
            QTest::keyClick(box, Qt::Key_Return);
        }
    });
    look.start(0);
    action();
    if (panel() != nullptr) {
        EXPECT_TRUE(ui::waitUntilActive(panel()));
    }
    return shown;
}
