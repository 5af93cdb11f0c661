#include "platform/windows/functions.h"

#include "platform/framework/controls/scroll_bar.h"
#include "platform/qt/native_event.h"
#include "platform/qt/window_registry.h"
#include "platform/windows/back_end.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScreen>

#include <algorithm>
#include <cstring>

using qtbackend::CWindow;
using qtbackend::CWindowRegistry;

namespace {

CWindow* find(HWND window) {
    return CWindowRegistry::instance().find(window);
}

QWidget* widgetOf(HWND window) {
    const CWindow* const found = find(window);
    return found != nullptr ? found->widget() : nullptr;
}

HWND handleOf(const QWidget* widget) {
    const CWindow* const found = CWindowRegistry::instance().find(widget);
    return found != nullptr ? found->handle() : nullptr;
}

/// What EnableWindow last said, whatever state the parent is in.
bool isSwitchedOn(const QWidget& widget) {
    return !widget.testAttribute(Qt::WA_ForceDisabled);
}

RECT toRect(const QRect& rect) {
    return {rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()};
}

int copyText(const QByteArray& text, LPSTR buffer, int size) {
    if (buffer == nullptr || size <= 0) {
        return 0;
    }
    const auto length = std::min<qsizetype>(text.size(), size - 1);
    std::memcpy(buffer, text.constData(), static_cast<std::size_t>(length));
    buffer[length] = '\0';
    return static_cast<int>(length);
}

} // namespace

BOOL IsWindow(HWND window) {
    return find(window) != nullptr ? TRUE : FALSE;
}

BOOL IsWindowEnabled(HWND window) {
    const QWidget* const widget = widgetOf(window);
    return widget != nullptr && isSwitchedOn(*widget) ? TRUE : FALSE;
}

BOOL IsWindowVisible(HWND window) {
    const QWidget* const widget = widgetOf(window);
    if (widget == nullptr) {
        return FALSE;
    }
    // While a dialog initialises it is hidden; its controls count as shown then, as they are about to be.
    const bool asked = widget->isWindow() ? widget->isVisible() : widget->isVisibleTo(widget->window());
    return asked ? TRUE : FALSE;
}

BOOL EnableWindow(HWND window, BOOL enable) {
    QWidget* const widget = widgetOf(window);
    if (widget == nullptr) {
        return FALSE;
    }
    const bool wasDisabled = !isSwitchedOn(*widget);
    if (wasDisabled == (enable != FALSE)) {
        widget->setEnabled(enable != FALSE);
    }
    return wasDisabled ? TRUE : FALSE;
}

BOOL ShowWindow(HWND window, int command) {
    QWidget* const widget = widgetOf(window);
    if (widget == nullptr) {
        return FALSE;
    }
    const bool wasShown = !widget->isHidden();
    const bool show = command != SW_HIDE;
    if (wasShown != show) {
        widget->setVisible(show);
    }
    return wasShown ? TRUE : FALSE;
}

int GetWindowText(HWND window, LPSTR buffer, int size) {
    const CWindow* const found = find(window);
    return copyText(found != nullptr ? found->text().toUtf8() : QByteArray(), buffer, size);
}

int GetWindowTextLength(HWND window) {
    const CWindow* const found = find(window);
    return found != nullptr ? static_cast<int>(found->text().toUtf8().size()) : 0;
}

BOOL SetWindowText(HWND window, LPCSTR text) {
    CWindow* const found = find(window);
    if (found == nullptr) {
        return FALSE;
    }
    const QString wanted = QString::fromUtf8(text);
    if (found->text() != wanted) {
        found->setText(wanted);
    }
    return TRUE;
}

BOOL SetToolTip(HWND window, LPCSTR text) {
    QWidget* const widget = widgetOf(window);
    if (widget == nullptr) {
        return FALSE;
    }
    widget->setToolTip(QString::fromUtf8(text));
    return TRUE;
}

int GetClassName(HWND window, LPSTR buffer, int size) {
    const CWindow* const found = find(window);
    return found != nullptr ? copyText(QByteArray::fromStdString(found->className()), buffer, size) : 0;
}

DWORD GetWindowStyle(HWND window) {
    const CWindow* const found = find(window);
    return found != nullptr ? found->style() : 0;
}

int GetDlgCtrlID(HWND window) {
    const CWindow* const found = find(window);
    return found != nullptr ? found->id() : 0;
}

HWND GetDlgItem(HWND dialog, int id) {
    const CWindow* const found = find(dialog);
    const CWindow* const child = found != nullptr ? found->child(id) : nullptr;
    return child != nullptr ? child->handle() : nullptr;
}

HWND GetParent(HWND window) {
    const CWindow* const found = find(window);
    const CWindow* const parent = found != nullptr ? found->parentWindow() : nullptr;
    return parent != nullptr ? parent->handle() : nullptr;
}

HWND GetWindow(HWND window, UINT relation) {
    CWindow* const found = find(window);
    if (found == nullptr) {
        return nullptr;
    }
    if (relation == GW_CHILD) {
        return found->children().empty() ? nullptr : found->children().front()->handle();
    }
    CWindow* const parent = found->parentWindow();
    if (parent == nullptr || relation == GW_OWNER) {
        return parent != nullptr ? parent->handle() : nullptr;
    }
    const auto& siblings = parent->children();
    const auto place = std::find(siblings.begin(), siblings.end(), found);
    if (relation == GW_HWNDPREV) {
        return place != siblings.end() && place != siblings.begin() ? (*(place - 1))->handle() : nullptr;
    }
    return place != siblings.end() && place + 1 != siblings.end() ? (*(place + 1))->handle() : nullptr;
}

HWND GetActiveWindow() {
    const QWidget* const active = QApplication::activeWindow();
    const HWND ours = handleOf(active);
    if (active == nullptr || ours != nullptr) {
        return ours;
    }
    const HWND hosts = reinterpret_cast<HWND>(active->winId());
    return CWindowRegistry::instance().findOrAdopt(hosts)->handle();
}

HWND GetForegroundWindow() {
    return GetActiveWindow();
}

HWND GetDesktopWindow() {
    static char s_desktop = 0;
    return reinterpret_cast<HWND>(&s_desktop);
}

HWND SetActiveWindow(HWND window) {
    const HWND former = GetActiveWindow();
    QWidget* const widget = widgetOf(window);
    if (widget != nullptr && !widget->isActiveWindow()) {
        widget->activateWindow();
    }
    return former;
}

BOOL GetWindowRect(HWND window, LPRECT rect) {
    const CWindow* const found = find(window);
    *rect = found != nullptr ? toRect(found->screenGeometry()) : RECT();
    return found != nullptr ? TRUE : FALSE;
}

BOOL GetClientRect(HWND window, LPRECT rect) {
    const CWindow* const found = find(window);
    *rect = found != nullptr ? toRect(QRect(QPoint(), found->clientRect().size())) : RECT();
    return found != nullptr ? TRUE : FALSE;
}

BOOL ScreenToClient(HWND window, LPPOINT point) {
    POINT origin;
    const BOOL known = ClientToScreen(window, &origin);
    *point = {point->x - origin.x, point->y - origin.y};
    return known;
}

BOOL ClientToScreen(HWND window, LPPOINT point) {
    const CWindow* const found = find(window);
    if (found == nullptr) {
        return FALSE;
    }
    const QPoint origin = found->screenGeometry().topLeft() + found->clientRect().topLeft();
    *point = {point->x + origin.x(), point->y + origin.y()};
    return TRUE;
}

BOOL SetWindowPos(HWND window, HWND, int x, int y, int width, int height, UINT flags) {
    CWindow* const found = find(window);
    if (found == nullptr || found->widget() == nullptr) {
        return FALSE;
    }
    QRect rect = found->widget()->geometry();
    if ((flags & SWP_NOMOVE) == 0) {
        rect.moveTo(x, y);
    }
    if ((flags & SWP_NOSIZE) == 0) {
        rect.setSize(QSize(width, height));
    }
    found->setGeometry(rect);
    if ((flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW)) != 0) {
        ShowWindow(window, (flags & SWP_SHOWWINDOW) != 0 ? SW_SHOW : SW_HIDE);
    }
    return TRUE;
}

RECT GetWorkArea(HWND window) {
    const CWindow* const found = find(window);
    const QPoint middle = found != nullptr ? found->screenGeometry().center() : QPoint();
    const QScreen* screen = QGuiApplication::screenAt(middle);
    if (screen == nullptr) {
        screen = QGuiApplication::primaryScreen();
    }
    return screen != nullptr ? toRect(screen->availableGeometry()) : RECT();
}

BOOL InvalidateRect(HWND window, LPCRECT rect, BOOL) {
    return RedrawWindow(window, rect, nullptr, RDW_INVALIDATE);
}

BOOL UpdateWindow(HWND window) {
    return RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW);
}

BOOL RedrawWindow(HWND window, LPCRECT rect, HRGN, UINT flags) {
    QWidget* const widget = widgetOf(window);
    if (widget == nullptr) {
        return FALSE;
    }
    const QRect part = rect == nullptr
                           ? widget->rect()
                           : QRect(QPoint(rect->left, rect->top), QPoint(rect->right - 1, rect->bottom - 1));
    if ((flags & RDW_UPDATENOW) != 0) {
        widget->repaint(part);
    } else if ((flags & RDW_INVALIDATE) != 0) {
        widget->update(part);
    }
    return TRUE;
}

HWND GetFocus() {
    return handleOf(QApplication::focusWidget());
}

HWND SetFocus(HWND window) {
    const HWND former = GetFocus();
    QWidget* const widget = widgetOf(window);
    if (widget == nullptr || !widget->isEnabled()) {
        return former;
    }
    widget->setFocus(Qt::OtherFocusReason);
    if (widget->window()->isVisible() && !widget->isActiveWindow()) {
        widget->activateWindow(); // the keyboard is with the active window
    }
    return former;
}

BOOL IsKeyHeld(WPARAM key) {
    Qt::KeyboardModifiers modifiers = QGuiApplication::keyboardModifiers();
    const QEvent* const event = qtbackend::CNativeEvent::current();
    if (event != nullptr && event->type() == QEvent::KeyPress) {
        modifiers = static_cast<const QKeyEvent*>(event)->modifiers();
    }
    const Qt::KeyboardModifier wanted = key == VK_SHIFT ? Qt::ShiftModifier : Qt::ControlModifier;
    return (modifiers & wanted) != 0 ? TRUE : FALSE;
}

SHORT GetKeyState(int key) {
    constexpr SHORT HELD = -0x8000;
    return IsKeyHeld(static_cast<WPARAM>(key)) != FALSE ? HELD : 0;
}

UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, std::nullptr_t) {
    CWindow* const found = find(window);
    if (found == nullptr) {
        return 0;
    }
    found->runTimer(id, milliseconds);
    return id;
}

BOOL KillTimer(HWND window, UINT_PTR id) {
    CWindow* const found = find(window);
    return found != nullptr && found->stopTimer(id) ? TRUE : FALSE;
}

void SetWindowObject(HWND window, CWnd* object) {
    if (CWindow* const found = find(window)) {
        found->setObject(object);
    }
}

CWnd* GetWindowObject(HWND window) {
    const CWindow* const found = find(window);
    return found != nullptr ? found->object() : nullptr;
}

CWnd* GetOrMakeWindowObject(HWND window) {
    CWindow* const found = CWindowRegistry::instance().findOrAdopt(window);
    if (found == nullptr) {
        return nullptr;
    }
    return found->object() != nullptr ? found->object() : found->standIn();
}

CScrollBar* GetScrollBarObject(HWND window) {
    CWindow* const found = find(window);
    if (found == nullptr) {
        return nullptr;
    }
    auto* const scrollBar = dynamic_cast<CScrollBar*>(found->object());
    return scrollBar != nullptr ? scrollBar : found->scrollBarStandIn();
}
