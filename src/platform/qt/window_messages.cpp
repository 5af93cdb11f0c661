#include "platform/framework/wnd.h"
#include "platform/qt/dispatch_scope.h"
#include "platform/qt/window_registry.h"

#include <QDialog>
#include <QMetaObject>

#include <algorithm>
#include <vector>

using qtbackend::CDispatchScope;
using qtbackend::CWindow;
using qtbackend::CWindowRegistry;

namespace {

CWindow* find(HWND window) {
    return CWindowRegistry::instance().find(window);
}

/// Tells the window and its controls of their end, outermost first, and forgets them, innermost first.
void finish(HWND handle) {
    SendMessage(handle, WM_DESTROY, 0, 0);
    if (CWindow* const window = find(handle)) {
        std::vector<HWND> controls;
        for (const CWindow* control : window->children()) {
            controls.push_back(control->handle());
        }
        std::for_each(controls.begin(), controls.end(), finish);
    }
    SendMessage(handle, WM_NCDESTROY, 0, 0);
    if (CWindow* const window = find(handle)) {
        CWindowRegistry::instance().retire(*window);
    }
}

} // namespace

LRESULT SendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    CWindow* const target = find(window);
    if (target == nullptr) {
        return 0;
    }
    const CDispatchScope scope;
    try {
        return target->object() != nullptr ? target->object()->WindowProc(message, wParam, lParam)
                                           : target->process(message, wParam, lParam);
    } catch (...) {
        return 0; // what a handler let through ends with its message: the window system cannot carry it
    }
}

BOOL PostMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    CWindow* const target = find(window);
    if (target == nullptr) {
        return FALSE;
    }
    const auto deliver = [=] { SendMessage(window, message, wParam, lParam); };
    QMetaObject::invokeMethod(target, deliver, Qt::QueuedConnection);
    return TRUE;
}

LRESULT DefWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    CWindow* const target = find(window);
    return target != nullptr ? target->process(message, wParam, lParam) : 0;
}

BOOL DestroyWindow(HWND window) {
    CWindow* const ending = find(window);
    if (ending == nullptr || ending->isEnding() || ending->isForeign()) {
        return FALSE;
    }
    const QPointer<QWidget> widget = ending->widget();
    ending->markEnding();
    if (widget != nullptr) {
        widget->hide();
        for (QDialog* common : widget->findChildren<QDialog*>(QString(), Qt::FindDirectChildrenOnly)) {
            common->reject(); // a message box over a window that goes; dialogs of ours end in their own way
        }
    }
    qtbackend::endWindow(window);
    if (widget != nullptr) {
        qtbackend::deleteWhenIdle(widget);
    }
    return TRUE;
}

void qtbackend::endWindow(HWND window) {
    CWindow* const ending = find(window);
    if (ending == nullptr) {
        return;
    }
    ending->markEnding();
    for (HWND owned : CWindowRegistry::instance().ownedBy(*ending)) {
        DestroyWindow(owned);
    }
    finish(window);
}
