#include "sandbox/app/editor_window.h"

#include <QAction>
#include <QApplication>
#include <algorithm>
#include <utility>

CEditorWindow::CEditorWindow(QMainWindow& host, EditorKind kind)
    : QObject(&host)
    , m_host(host)
    , m_kind(std::move(kind))
    , m_pAction(new QAction(host.style()->standardIcon(m_kind.icon), m_kind.text, this)) {
    m_pAction->setObjectName(m_kind.actionName);
    m_pAction->setCheckable(true);
    m_pAction->setShortcut(m_kind.key);
    connect(m_pAction, &QAction::triggered, this, [this](bool open) { open ? this->open() : close(); });
}

void CEditorWindow::open() {
    m_kind.create();
    if (QWidget* const window = panel()) {
        window->move(m_place ? m_host.pos() + *m_place : m_kind.firstPlace(*window));
        m_firstPlace = m_place ? std::nullopt : std::optional(window->pos());
    }
    noteState();
}

void CEditorWindow::close() {
    m_kind.destroy();
    noteState();
}

void CEditorWindow::follow() {
    if (QWidget* const window = panel(); window != nullptr && window->isVisible()) {
        notePlace(*window);
    }
    noteState();
}

void CEditorWindow::notePlace(QWidget& window) {
    if (m_firstPlace == window.pos() && window.frameGeometry() != window.geometry()) {
        // A window manager has put its frame around the window, which takes room of its own.
        window.move(m_kind.firstPlace(window));
        m_firstPlace = window.pos();
    }
    if (m_firstPlace != window.pos()) {
        m_firstPlace.reset();
        m_place = window.pos() - m_host.pos();
    }
}

void CEditorWindow::noteState() {
    const bool open = isOpen();
    m_pAction->setChecked(open);
    if (std::exchange(m_bWasOpen, open) != open) {
        m_kind.changed(open);
    }
}

QWidget* CEditorWindow::panel() const {
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::ranges::find(windows, QString(m_kind.panelName), &QObject::objectName);
    return found != windows.end() ? *found : nullptr;
}
