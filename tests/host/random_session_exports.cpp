#include "host/random_session_exports.h"

#include "host/module_state.h"
#include "host/veskutil.h"
#include "resources/resource_ids.h"
#include "terrain/panel/map_editor_buttons.h"
#include "terrain/panel/map_editor_dlg.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QProgressBar>
#include <QTabBar>

#include <cstddef>

namespace {

QWidget* findPanel() {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->objectName() == "dialog-212" && window->isVisible()) {
            return window;
        }
    }
    return nullptr;
}

template <typename Widget> Widget* findControl(QWidget* window, int controlId) {
    return window->findChild<Widget*>(QString::number(controlId));
}

QTabBar* findTabs(QWidget* window) {
    QWidget* const tabs = findControl<QWidget>(window, IDC_TOOL_TABS);
    auto* const bar = qobject_cast<QTabBar*>(tabs);
    return bar != nullptr ? bar : tabs->findChild<QTabBar*>();
}

} // namespace

CExportsDriver::~CExportsDriver() {
    vuDestroyEditor();
}

void CExportsDriver::open(CMemoryMap& map) {
    const bool wasOpen = isOpen();
    vuCreateEditor(nullptr, &map, "", nullptr, true, nullptr);
    if (!wasOpen) {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the panel before
        m_pWindow = findPanel();
        click(IDC_EXPAND); // "Select All" and "De-select" stand in the right column
    }
}

void CExportsDriver::click(int controlId) {
    findControl<QAbstractButton>(m_pWindow, controlId)->click();
}

void CExportsDriver::clickClose() {
    click(IDC_CLOSE);
}

void CExportsDriver::closeWindow() {
    m_pWindow->close();
}

void CExportsDriver::destroy() {
    vuDestroyEditor();
}

void CExportsDriver::destroySettings() {
    vuDestroySettings();
}

void CExportsDriver::start(int x, int z, int edge, int corner) {
    vuStartEditing(x, z, edge, corner);
}

void CExportsDriver::update(int x, int z, int amount) {
    vuUpdateEditing(x, z, 1, 2, 3, amount);
}

void CExportsDriver::stop() {
    vuStopEditing();
}

void CExportsDriver::hover(int x, int z, int edge, int corner) {
    vuUpdateCursor(x, z, edge, corner);
}

void CExportsDriver::clickTab() {
    QTabBar* const tabs = findTabs(m_pWindow);
    tabs->setCurrentIndex(1 - tabs->currentIndex());
}

void CExportsDriver::clickTool(int tool) {
    click(TOOL_BUTTONS[static_cast<std::size_t>(tool)].controlId);
}

void CExportsDriver::clickBrush(int brush) {
    click(BRUSH_BUTTONS[static_cast<std::size_t>(brush)].controlId);
}

void CExportsDriver::clickSelectAll() {
    click(IDC_SELECT_ALL);
}

void CExportsDriver::clickDeselect() {
    click(IDC_DESELECT);
}

void CExportsDriver::clickUndo() {
    click(IDC_UNDO);
}

int CExportsDriver::shownFill() const {
    return findControl<QProgressBar>(m_pWindow, IDC_UNDO_FILL)->value();
}

bool CExportsDriver::isOpen() const {
    return vuIsEditorActive();
}

bool CExportsDriver::isEditing() const {
    return vuIsEditingInProgress();
}

CMapEditorModel* CExportsDriver::model() const {
    return isOpen() ? g_pMapEditorDlg : nullptr;
}
