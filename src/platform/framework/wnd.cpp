#include "platform/framework/wnd.h"

#include "platform/windows/back_end.h"
#include "platform/windows/dialog_manager.h"

#include <algorithm>
#include <string>

CWnd::~CWnd() {
    CWnd::DestroyWindow();
}

CWnd* CWnd::FromHandle(HWND hWnd) {
    return ::GetOrMakeWindowObject(hWnd);
}

BOOL CWnd::Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                  CWnd* pParentWnd, UINT nID, void* pContext) {
    return CreateEx(0, lpszClassName, lpszWindowName, dwStyle | WS_CHILD, rect, pParentWnd, nID, pContext);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                    const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID) {
    if (m_hWnd != nullptr || pParentWnd == nullptr) {
        return FALSE;
    }
    const HWND made = ::CreateControlWindow(dwExStyle, lpszClassName, lpszWindowName, dwStyle, rect,
                                            pParentWnd->m_hWnd, static_cast<int>(nID));
    return SubclassWindow(made);
}

BOOL CWnd::SubclassWindow(HWND hWnd) {
    if (hWnd == nullptr || m_hWnd != nullptr) {
        return FALSE;
    }
    m_hWnd = hWnd;
    ::SetWindowObject(hWnd, this);
    PreSubclassWindow();
    return TRUE;
}

void CWnd::PreSubclassWindow() {}

HWND CWnd::Detach() {
    const HWND left = m_hWnd;
    if (::GetWindowObject(left) == this) {
        ::SetWindowObject(left, nullptr);
    }
    m_hWnd = nullptr;
    return left;
}

BOOL CWnd::DestroyWindow() {
    // A stand-in names a window without being its object; its end is not the window's.
    if (m_hWnd == nullptr || ::GetWindowObject(m_hWnd) != this) {
        return FALSE;
    }
    return ::DestroyWindow(m_hWnd);
}

void CWnd::GetWindowText(CString& text) const {
    std::string buffer(static_cast<std::size_t>(::GetWindowTextLength(m_hWnd)) + 1, '\0');
    ::GetWindowText(m_hWnd, buffer.data(), static_cast<int>(buffer.size()));
    text = buffer.c_str();
}

int CWnd::GetDlgItemText(int id, CString& text) const {
    const CWnd* control = GetDlgItem(id);
    text.Empty();
    if (control != nullptr) {
        control->GetWindowText(text);
    }
    return text.GetLength();
}

CWnd* CWnd::GetNextDlgTabItem(CWnd* control, BOOL previous) const {
    return FromHandle(::GetNextDlgTabItem(m_hWnd, control != nullptr ? control->m_hWnd : nullptr, previous));
}

void CWnd::ScreenToClient(LPRECT rect) const {
    POINT corners[2] = {{rect->left, rect->top}, {rect->right, rect->bottom}};
    ::ScreenToClient(m_hWnd, &corners[0]);
    ::ScreenToClient(m_hWnd, &corners[1]);
    *rect = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}

void CWnd::MoveWindow(LPCRECT rect, BOOL) {
    ::SetWindowPos(m_hWnd, nullptr, rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top,
                   SWP_NOZORDER | SWP_NOACTIVATE);
}

void CWnd::CenterWindow(CWnd* alternate) {
    const HWND around = alternate != nullptr ? alternate->m_hWnd : ::GetParent(m_hWnd);
    const CRect area = ::GetWorkArea(around != nullptr ? around : m_hWnd);
    CRect middle = area;
    if (around != nullptr && ::IsWindowVisible(around) != FALSE) {
        ::GetWindowRect(around, middle);
    }
    CRect own;
    GetWindowRect(own);
    const int x = (middle.left + middle.right) / 2 - own.Width() / 2;
    const int y = (middle.top + middle.bottom) / 2 - own.Height() / 2;
    const auto within = [](int position, int low, int high) {
        return std::max(std::min(position, high), low);
    };
    ::SetWindowPos(m_hWnd, nullptr, within(x, area.left, area.right - own.Width()),
                   within(y, area.top, area.bottom - own.Height()), 0, 0,
                   SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void CWnd::DoDataExchange(CDataExchange*) {}

BOOL CWnd::PreTranslateMessage(MSG*) {
    return FALSE;
}
