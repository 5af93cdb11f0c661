#pragma once

#include "platform/windows/functions.h"
#include "platform/windows/geometry.h"

#include <type_traits>

class CCmdTarget;
class CScrollBar;
struct DRAWITEMSTRUCT;

/// WM_NOTIFY on its way through the maps.
struct AFX_NOTIFY {
    LRESULT* pResult = nullptr;
    NMHDR* pNMHDR = nullptr;
};

/// What a handler may ask of the message it is run for.
struct AFX_MESSAGE {
    UINT message = WM_NULL;
    UINT nID = 0;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
    const AFX_NOTIFY* notify = nullptr;
};

/// Calls one member function with the arguments its message carries. FALSE in `handled` passes the message
/// on.
using AFX_THUNK = LRESULT (*)(CCmdTarget& target, const AFX_MESSAGE& message, BOOL& handled);

/// How message maps call member functions: one small function per handler, made by the compiler, that takes
/// the arguments out of the message. A handler of the wrong shape does not compile.
namespace afx {

template <class Handler> struct HandlerClass;
template <class Class, class Result, class... Arguments>
struct HandlerClass<Result (Class::*)(Arguments...)> {
    using type = Class;
};

template <auto Handler> auto& handlerOwner(CCmdTarget& target) {
    return static_cast<typename HandlerClass<decltype(Handler)>::type&>(target);
}

/// Calls the handler; one that answers BOOL decides itself whether the message went on.
template <auto Handler, class... Arguments>
LRESULT callMaybeRefusing(CCmdTarget& target, BOOL& handled, Arguments... arguments) {
    auto& owner = handlerOwner<Handler>(target);
    if constexpr (std::is_void_v<decltype((owner.*Handler)(arguments...))>) {
        (owner.*Handler)(arguments...);
    } else {
        handled = (owner.*Handler)(arguments...);
    }
    return 0;
}

/// void () or BOOL (), also with the control id as argument.
template <auto Handler> LRESULT callCommand(CCmdTarget& target, const AFX_MESSAGE& message, BOOL& handled) {
    using Owner = typename HandlerClass<decltype(Handler)>::type;
    if constexpr (std::is_invocable_v<decltype(Handler), Owner&>) {
        return callMaybeRefusing<Handler>(target, handled);
    } else {
        return callMaybeRefusing<Handler>(target, handled, message.nID);
    }
}

/// void (NMHDR*, LRESULT*)
template <auto Handler> LRESULT callNotify(CCmdTarget& target, const AFX_MESSAGE& message, BOOL& handled) {
    return callMaybeRefusing<Handler>(target, handled, message.notify->pNMHDR, message.notify->pResult);
}

/// LRESULT (WPARAM, LPARAM)
template <auto Handler> LRESULT callMessage(CCmdTarget& target, const AFX_MESSAGE& message, BOOL&) {
    return (handlerOwner<Handler>(target).*Handler)(message.wParam, message.lParam);
}

/// void ()
template <auto Handler> LRESULT callPlain(CCmdTarget& target, const AFX_MESSAGE&, BOOL&) {
    (handlerOwner<Handler>(target).*Handler)();
    return 0;
}

/// The scroll bar object of a WM_HSCROLL or WM_VSCROLL, null when it is the window's own.
CScrollBar* scrollBarOf(const AFX_MESSAGE& message);

/// void (UINT nSBCode, UINT nPos, CScrollBar*)
template <auto Handler> LRESULT callScroll(CCmdTarget& target, const AFX_MESSAGE& message, BOOL&) {
    (handlerOwner<Handler>(target).*Handler)(LOWORD(message.wParam), HIWORD(message.wParam),
                                             scrollBarOf(message));
    return 0;
}

inline CPoint pointOf(LPARAM lParam) {
    return {static_cast<std::int16_t>(LOWORD(lParam)), static_cast<std::int16_t>(HIWORD(lParam))};
}

/// void (UINT nFlags, CPoint point), the point in the window's client area.
template <auto Handler> LRESULT callMouse(CCmdTarget& target, const AFX_MESSAGE& message, BOOL&) {
    (handlerOwner<Handler>(target).*Handler)(static_cast<UINT>(message.wParam), pointOf(message.lParam));
    return 0;
}

/// BOOL (UINT nFlags, short zDelta, CPoint pt), the point on the screen.
template <auto Handler> LRESULT callWheel(CCmdTarget& target, const AFX_MESSAGE& message, BOOL& handled) {
    return callMaybeRefusing<Handler>(target, handled, UINT{LOWORD(message.wParam)},
                                      static_cast<short>(HIWORD(message.wParam)), pointOf(message.lParam));
}

/// void (UINT nChar, UINT nRepCnt, UINT nFlags)
template <auto Handler> LRESULT callKey(CCmdTarget& target, const AFX_MESSAGE& message, BOOL&) {
    (handlerOwner<Handler>(target).*Handler)(static_cast<UINT>(message.wParam), LOWORD(message.lParam),
                                             HIWORD(message.lParam));
    return 0;
}

/// void (UINT_PTR nIDEvent)
template <auto Handler> LRESULT callTimer(CCmdTarget& target, const AFX_MESSAGE& message, BOOL&) {
    (handlerOwner<Handler>(target).*Handler)(message.wParam);
    return 0;
}

/// void (int nIDCtl, DRAWITEMSTRUCT*)
template <auto Handler> LRESULT callDrawItem(CCmdTarget& target, const AFX_MESSAGE& message, BOOL&) {
    (handlerOwner<Handler>(target).*Handler)(static_cast<int>(message.wParam),
                                             reinterpret_cast<DRAWITEMSTRUCT*>(message.lParam));
    return 0;
}

} // namespace afx
