#include "platform/framework/controls/button.h"
#include "platform/framework/controls/scroll_bar.h"
#include "platform/framework/message_state.h"
#include "platform/framework/wnd.h"
#include "platform/windows/back_end.h"

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
ON_WM_DRAWITEM()
END_MESSAGE_MAP()

namespace {

/// Hands a notification of a control to the control's own object. TRUE when that dealt with it.
BOOL reflectTo(HWND control, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    CWnd* const object = ::GetWindowObject(control);
    return object != nullptr ? object->OnChildNotify(message, wParam, lParam, result) : FALSE;
}

} // namespace

// A handler may end the window and its object. Nothing after a call to one may touch `this`.

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = m_hWnd;
    const MSG handled{window, message, wParam, lParam, 0, {}};
    const CStateScope current(messageState().current, &handled);
    if (message == WM_NCDESTROY) {
        DefWindowProc(message, wParam, lParam);
        Detach();
        PostNcDestroy();
        return 0;
    }
    LRESULT result = 0;
    if (OnWndMsg(message, wParam, lParam, &result) != FALSE) {
        return result;
    }
    // A handler that passed the message on may have ended the window first, and this object with it.
    return ::GetWindowObject(window) == this ? DefWindowProc(message, wParam, lParam) : 0;
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    return ::DefWindowProc(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default() {
    const MSG* const current = messageState().current;
    return current != nullptr ? DefWindowProc(current->message, current->wParam, current->lParam) : 0;
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) {
    if (message == WM_COMMAND) {
        return OnCommand(wParam, lParam);
    }
    if (message == WM_NOTIFY) {
        return OnNotify(wParam, lParam, pResult);
    }
    const AFX_MSGMAP_ENTRY* const entry = FindMessageEntry(message);
    if (entry == nullptr) {
        return FALSE;
    }
    BOOL handled = TRUE;
    *pResult = entry->pfn(*this, AFX_MESSAGE{message, 0, wParam, lParam, nullptr}, handled);
    return handled;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
    const UINT id = LOWORD(wParam);
    const HWND control = reinterpret_cast<HWND>(lParam);
    if (control != nullptr) {
        if (messageState().lockedOut == m_hWnd) {
            return TRUE;
        }
        LRESULT ignored = 0;
        if (reflectTo(control, WM_COMMAND, wParam, lParam, &ignored) != FALSE) {
            return TRUE;
        }
    }
    return id != 0 ? OnCmdMsg(id, HIWORD(wParam), nullptr, nullptr) : FALSE;
}

BOOL CWnd::OnNotify(WPARAM, LPARAM lParam, LRESULT* pResult) {
    NMHDR* const header = reinterpret_cast<NMHDR*>(lParam);
    if (messageState().lockedOut == m_hWnd) {
        return TRUE;
    }
    AFX_NOTIFY notify{pResult, header};
    return OnCmdMsg(static_cast<UINT>(header->idFrom), static_cast<int>(header->code), &notify, nullptr);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM, LRESULT*) {
    if (message != WM_COMMAND) {
        return FALSE;
    }
    const UINT reflected = WM_COMMAND + WM_REFLECT_BASE;
    const AFX_MSGMAP_ENTRY* const entry = FindCommandEntry(reflected, HIWORD(wParam), 0);
    if (entry == nullptr) {
        return FALSE;
    }
    BOOL handled = TRUE;
    entry->pfn(*this, AFX_MESSAGE{reflected, 0, wParam, 0, nullptr}, handled);
    return handled;
}

void CWnd::PostNcDestroy() {}

void CWnd::OnClose() {
    Default();
}
void CWnd::OnPaint() {
    Default();
}
void CWnd::OnHScroll(UINT, UINT, CScrollBar*) {
    Default();
}
void CWnd::OnLButtonDown(UINT, CPoint) {
    Default();
}
void CWnd::OnLButtonUp(UINT, CPoint) {
    Default();
}
void CWnd::OnRButtonDown(UINT, CPoint) {
    Default();
}
void CWnd::OnRButtonUp(UINT, CPoint) {
    Default();
}
void CWnd::OnMouseMove(UINT, CPoint) {
    Default();
}
BOOL CWnd::OnMouseWheel(UINT, short, CPoint) {
    return FALSE;
}
void CWnd::OnKeyDown(UINT, UINT, UINT) {
    Default();
}

void CWnd::OnTimer(UINT_PTR) {
    Default();
}

void CWnd::OnDrawItem(int, DRAWITEMSTRUCT* lpDrawItemStruct) {
    LRESULT result = 0;
    const LPARAM record = reinterpret_cast<LPARAM>(lpDrawItemStruct);
    if (reflectTo(lpDrawItemStruct->hwndItem, WM_DRAWITEM, 0, record, &result) == FALSE) {
        Default();
    }
}

CScrollBar* afx::scrollBarOf(const AFX_MESSAGE& message) {
    return ::GetScrollBarObject(reinterpret_cast<HWND>(message.lParam));
}
