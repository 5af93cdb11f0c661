#include "sandbox/app/editor_window.h"

#include <QAction>
#include <QApplication>
#include <QScreen>
#include <QSettings>
#include <algorithm>
#include <utility>

namespace {

constexpr int GRIP = 40;        // pixels of a panel's title bar that stay on the screen
constexpr qint64 SETTLED = 500; // milliseconds that a window system may take to move a window
constexpr int MOST_TRIES = 10;  // to tell a window its place

QString settingOf(const EditorKind& kind) {
    return QStringLiteral("panels/") + kind.panelName;
}

} // namespace

CEditorWindow::CEditorWindow(QMainWindow& host, EditorKind kind)
    : QObject(&host)
    , m_host(host)
    , m_kind(std::move(kind))
    , m_pAction(new QAction(host.style()->standardIcon(m_kind.icon), m_kind.text, this)) {
    const QVariant place = QSettings().value(settingOf(m_kind));
    if (place.canConvert<QPoint>()) {
        m_place = place.toPoint();
    }
    m_pAction->setObjectName(m_kind.actionName);
    m_pAction->setCheckable(true);
    m_pAction->setShortcut(m_kind.key);
    connect(m_pAction, &QAction::triggered, this, [this](bool open) { open ? this->open() : close(); });
}

void CEditorWindow::open() {
    m_kind.create();
    if (QWidget* const window = panel()) {
        m_bFramed = false;
        m_nTries = 0;
        m_wanted = placeFor(*window);
        window->move(m_wanted);
    }
    noteState();
}

/// Where the panel goes: where the person put it, as far as its title bar can be reached there.
QPoint CEditorWindow::placeFor(const QWidget& window) const {
    if (!m_place || m_bDocked) {
        return m_kind.firstPlace(window);
    }
    const QRect screen = m_host.screen()->availableGeometry();
    const QPoint place = m_host.pos() + *m_place;
    return {std::clamp(place.x(), screen.left() + GRIP - window.width(), screen.right() - GRIP),
            std::clamp(place.y(), screen.top(), screen.bottom() - GRIP)};
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
    const bool framed = window.frameGeometry() != window.geometry();
    if (framed && !m_bFramed) {
        // A window manager has put its frame around the window, which shifts it, and is told the place again.
        m_bFramed = true;
        m_sinceFramed.start();
        m_wanted = placeFor(window);
        window.move(m_wanted);
    } else if (m_bDocked) {
        m_wanted = m_kind.firstPlace(window);
        if (window.pos() != m_wanted) {
            window.move(m_wanted);
        }
    } else if (framed && window.geometry().topLeft() == m_wanted && m_nTries < MOST_TRIES) {
        ++m_nTries; // the frame came after the move: the window itself stands where the frame is to be
        window.move(m_wanted);
    } else if (window.pos() != m_wanted && !(framed && m_sinceFramed.elapsed() < SETTLED)) {
        m_wanted = window.pos();
        m_place = m_wanted - m_host.pos();
    }
}

void CEditorWindow::setDocked(bool docked) {
    m_bDocked = docked;
    if (QWidget* const window = panel()) {
        m_wanted = placeFor(*window);
        window->move(m_wanted);
    }
}

void CEditorWindow::noteState() {
    const bool open = isOpen();
    m_pAction->setChecked(open);
    if (std::exchange(m_bWasOpen, open) != open) {
        if (!open && m_place) {
            QSettings().setValue(settingOf(m_kind), *m_place);
        }
        m_kind.changed(open);
    }
}

QWidget* CEditorWindow::panel() const {
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::ranges::find(windows, QString(m_kind.panelName), &QObject::objectName);
    return found != windows.end() ? *found : nullptr;
}
