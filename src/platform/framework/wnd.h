#pragma once

#include "platform/cstring.h"
#include "platform/framework/command_target.h"
#include "platform/windows/functions.h"
#include "platform/windows/geometry.h"
#include "platform/windows/styles.h"

class CDataExchange;
class CScrollBar;
struct DRAWITEMSTRUCT;

/// A window of the window system. The object is attached to the window from its creation (or SubclassWindow)
/// until the window's end, and handles its messages through its message map; what nobody handles goes to the
/// window's own kind. Whoever made the object owns it; destroying it destroys its window.
class CWnd : public CCmdTarget {
public:
    HWND m_hWnd = nullptr;

    CWnd() = default;
    ~CWnd() override;

    /// The object attached to a window, or a stand-in that lives as long as the window; null for null.
    static CWnd* FromHandle(HWND hWnd);
    HWND GetSafeHwnd() const { return m_hWnd; }

    /// Makes a child window of a predefined or registered class. Style, rectangle in the parent's client
    /// area.
    virtual BOOL Create(LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle, const RECT& rect,
                        CWnd* pParentWnd, UINT nID, void* pContext = nullptr);
    BOOL CreateEx(DWORD dwExStyle, LPCTSTR lpszClassName, LPCTSTR lpszWindowName, DWORD dwStyle,
                  const RECT& rect, CWnd* pParentWnd, UINT nID, LPVOID lpParam = nullptr);
    /// Takes over a control that a template made.
    BOOL SubclassWindow(HWND hWnd);
    /// Leaves the window to itself; the handle left.
    HWND Detach();
    virtual BOOL DestroyWindow();

    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::SendMessage(m_hWnd, message, wParam, lParam);
    }
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return ::PostMessage(m_hWnd, message, wParam, lParam);
    }

    void GetWindowText(CString& text) const;
    void SetWindowText(LPCTSTR text) { ::SetWindowText(m_hWnd, text); }
    BOOL EnableWindow(BOOL enable = TRUE) { return ::EnableWindow(m_hWnd, enable); }
    BOOL IsWindowEnabled() const { return ::IsWindowEnabled(m_hWnd); }
    BOOL ShowWindow(int command) { return ::ShowWindow(m_hWnd, command); }
    int GetDlgCtrlID() const { return ::GetDlgCtrlID(m_hWnd); }

    CWnd* GetParent() const { return FromHandle(::GetParent(m_hWnd)); }
    CWnd* GetWindow(UINT relation) const { return FromHandle(::GetWindow(m_hWnd, relation)); }
    CWnd* GetDlgItem(int id) const { return FromHandle(::GetDlgItem(m_hWnd, id)); }
    /// The length of the text; 0 and an empty text when there is no such control.
    int GetDlgItemText(int id, CString& text) const;
    void SetDlgItemText(int id, LPCTSTR text) { ::SetWindowText(::GetDlgItem(m_hWnd, id), text); }
    CWnd* GetNextDlgTabItem(CWnd* control, BOOL previous = FALSE) const;
    static CWnd* GetFocus() { return FromHandle(::GetFocus()); }
    CWnd* SetFocus() { return FromHandle(::SetFocus(m_hWnd)); }
    static CWnd* GetActiveWindow() { return FromHandle(::GetActiveWindow()); }
    CWnd* SetActiveWindow() { return FromHandle(::SetActiveWindow(m_hWnd)); }
    static CWnd* GetCapture() { return FromHandle(::GetCapture()); }
    CWnd* SetCapture() { return FromHandle(::SetCapture(m_hWnd)); }

    void GetWindowRect(LPRECT rect) const { ::GetWindowRect(m_hWnd, rect); }
    void GetClientRect(LPRECT rect) const { ::GetClientRect(m_hWnd, rect); }
    void ScreenToClient(LPPOINT point) const { ::ScreenToClient(m_hWnd, point); }
    void ScreenToClient(LPRECT rect) const;
    void ClientToScreen(LPPOINT point) const { ::ClientToScreen(m_hWnd, point); }
    BOOL SetWindowPos(const CWnd* insertAfter, int x, int y, int width, int height, UINT flags) {
        return ::SetWindowPos(m_hWnd, insertAfter != nullptr ? insertAfter->m_hWnd : nullptr, x, y, width,
                              height, flags);
    }
    void MoveWindow(LPCRECT rect, BOOL repaint = TRUE);
    /// Centres over the given window, else over the parent; the window stays on the screen.
    void CenterWindow(CWnd* alternate = nullptr);

    void Invalidate(BOOL erase = TRUE) { ::InvalidateRect(m_hWnd, nullptr, erase); }
    void InvalidateRect(LPCRECT rect, BOOL erase = TRUE) { ::InvalidateRect(m_hWnd, rect, erase); }
    void UpdateWindow() { ::UpdateWindow(m_hWnd); }
    BOOL RedrawWindow(LPCRECT rect = nullptr, HRGN region = nullptr,
                      UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE) {
        return ::RedrawWindow(m_hWnd, rect, region, flags);
    }

    UINT_PTR SetTimer(UINT_PTR id, UINT milliseconds, std::nullptr_t procedure) {
        return ::SetTimer(m_hWnd, id, milliseconds, procedure);
    }
    BOOL KillTimer(UINT_PTR id) { return ::KillTimer(m_hWnd, id); }

    /// Runs the data exchange: TRUE reads the controls, FALSE writes them. FALSE when a control held a value
    /// that does not fit; the user has been told and stands in that control again.
    BOOL UpdateData(BOOL bSaveAndValidate = TRUE);
    virtual void DoDataExchange(CDataExchange* pDX);
    virtual BOOL PreTranslateMessage(MSG* pMsg);

    /// Entry of every message of an attached window.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// A control hands a message back to its own object. TRUE when that object dealt with it.
    virtual BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);

protected:
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    /// The default processing of the message being handled.
    LRESULT Default();
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    virtual void PreSubclassWindow();
    /// The last call for a window; an object that owns itself ends its life here.
    virtual void PostNcDestroy();

    afx_msg void OnClose();
    afx_msg void OnPaint();
    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);
    afx_msg void OnDrawItem(int nIDCtl, DRAWITEMSTRUCT* lpDrawItemStruct);
    afx_msg void OnLButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnLButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnRButtonDown(UINT nFlags, CPoint point);
    afx_msg void OnRButtonUp(UINT nFlags, CPoint point);
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    /// FALSE leaves the turn to the parent.
    afx_msg BOOL OnMouseWheel(UINT nFlags, short zDelta, CPoint pt);
    afx_msg void OnKeyDown(UINT nChar, UINT nRepCnt, UINT nFlags);
    afx_msg void OnTimer(UINT_PTR nIDEvent);

    DECLARE_MESSAGE_MAP()
};
