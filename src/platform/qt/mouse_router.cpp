#include "platform/qt/mouse_router.h"

#include "platform/qt/native_event.h"
#include "platform/qt/window_registry.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTimer>

#include <utility>

namespace qtbackend {

namespace {

HWND g_captured = nullptr; ///< SetCapture
HWND g_pressed = nullptr;  ///< kept the mouse when it was pressed on it, as buttons do
bool g_discardPress = false;

UINT messageOf(const QMouseEvent& event) {
    const bool right = event.button() == Qt::RightButton;
    switch (event.type()) {
    case QEvent::MouseMove:
        return WM_MOUSEMOVE;
    case QEvent::MouseButtonRelease:
        return right ? WM_RBUTTONUP : WM_LBUTTONUP;
    case QEvent::MouseButtonDblClick:
        return right ? WM_RBUTTONDBLCLK : WM_LBUTTONDBLCLK;
    default:
        return right ? WM_RBUTTONDOWN : WM_LBUTTONDOWN;
    }
}

UINT keysOf(const QSinglePointEvent& event) {
    UINT keys = 0;
    keys |= (event.buttons() & Qt::LeftButton) != 0 ? MK_LBUTTON : 0;
    keys |= (event.buttons() & Qt::RightButton) != 0 ? MK_RBUTTON : 0;
    keys |= (event.modifiers() & Qt::ShiftModifier) != 0 ? MK_SHIFT : 0;
    keys |= (event.modifiers() & Qt::ControlModifier) != 0 ? MK_CONTROL : 0;
    return keys;
}

LPARAM positionIn(const CWindow& window, const QMouseEvent& event) {
    const QPoint inWidget = window.widget()->mapFromGlobal(event.globalPosition().toPoint());
    const QPoint position = inWidget - window.clientRect().topLeft();
    return MAKELPARAM(position.x(), position.y());
}

/// Sends the message. True when its default processing handed the event to the widget.
bool send(CWindow& window, QObject* watched, QMouseEvent& event) {
    CNativeEvent native(&window, messageOf(event), watched, &event);
    event.accept();
    ::SendMessage(window.handle(), messageOf(event), keysOf(event), positionIn(window, event));
    return native.wasPassed();
}

bool routePress(CWindow& window, QObject* watched, QMouseEvent& event) {
    if (std::exchange(g_discardPress, false)) {
        event.accept();
        return true;
    }
    if (!window.widget()->isEnabled()) {
        return false;
    }
    const bool captures = window.capturesMouse();
    const HWND handle = window.handle();
    if (!window.hearsMouse()) {
        g_pressed = captures ? handle : nullptr;
        return false;
    }
    const bool passed = send(window, watched, event);
    g_pressed = passed && captures && CWindowRegistry::instance().find(handle) != nullptr ? handle : nullptr;
    return true;
}

/// The window that a move or release is for; null for one that is not ours.
CWindow* receiverOf(CWindow& window, const QMouseEvent& event) {
    const CWindowRegistry& registry = CWindowRegistry::instance();
    if (CWindow* const captured = registry.find(g_captured)) {
        return captured;
    }
    if (g_pressed == window.handle()) {
        return &window;
    }
    const QWidget* under = QApplication::widgetAt(event.globalPosition().toPoint());
    CWindow* receiver = registry.find(under);
    while (receiver != nullptr && receiver->widget() != nullptr && !receiver->widget()->isEnabled()) {
        receiver = receiver->parentWindow();
    }
    return receiver;
}

bool isSupported(const QMouseEvent& event) {
    return event.type() == QEvent::MouseMove || event.button() == Qt::LeftButton ||
           event.button() == Qt::RightButton;
}

} // namespace

bool routeMouse(CWindow& window, QObject* watched, QMouseEvent& event) {
    if (!isSupported(event)) {
        return false;
    }
    if (event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick) {
        return routePress(window, watched, event);
    }
    CWindow* const receiver = receiverOf(window, event);
    if (event.type() == QEvent::MouseButtonRelease) {
        g_pressed = nullptr;
    }
    if (receiver == &window) {
        if (!window.hearsMouse()) {
            return false;
        }
        send(window, watched, event);
        return true;
    }
    if (receiver == nullptr || !receiver->hearsMouse() || receiver->widget() == nullptr) {
        return false;
    }
    event.accept();
    ::SendMessage(receiver->handle(), messageOf(event), keysOf(event), positionIn(*receiver, event));
    return true;
}

bool routeWheel(CWindow& window, QObject* watched, QWheelEvent& event) {
    const CNativeEvent native(&window, WM_MOUSEWHEEL, watched, &event);
    const QPoint position = event.globalPosition().toPoint();
    event.accept();
    ::SendMessage(window.handle(), WM_MOUSEWHEEL,
                  MAKEWPARAM(static_cast<int>(keysOf(event)), event.angleDelta().y()),
                  MAKELPARAM(position.x(), position.y()));
    return true;
}

void discardNextPress() {
    g_discardPress = true;
    // Qt delivers the press that moved the focus in the same breath; a later one is another.
    QTimer::singleShot(0, [] { g_discardPress = false; });
}

} // namespace qtbackend

HWND GetCapture() {
    using namespace qtbackend;
    return g_captured != nullptr ? g_captured : g_pressed;
}

HWND SetCapture(HWND window) {
    return std::exchange(qtbackend::g_captured, window);
}

BOOL ReleaseCapture() {
    qtbackend::g_captured = nullptr;
    return TRUE;
}
