#include "platform/framework/drawing/dc.h"

#include "platform/framework/wnd.h"
#include "platform/windows/back_end.h"

#include <utility>

CDC::~CDC() {
    DeleteDC();
}

CDC* CDC::FromHandle(HDC hDC) {
    static CDC standIn;
    standIn.m_hDC = hDC;
    standIn.m_bOwned = false;
    return hDC != nullptr ? &standIn : nullptr;
}

BOOL CDC::Attach(HDC hDC) {
    if (m_hDC != nullptr || hDC == nullptr) {
        return FALSE;
    }
    m_hDC = hDC;
    m_bOwned = true;
    return TRUE;
}

HDC CDC::Detach() {
    m_bOwned = false;
    return std::exchange(m_hDC, nullptr);
}

BOOL CDC::CreateCompatibleDC(CDC* pDC) {
    return Attach(::CreateCompatibleDC(pDC != nullptr ? pDC->m_hDC : nullptr));
}

BOOL CDC::DeleteDC() {
    if (m_bOwned) {
        ::DeleteDC(m_hDC);
    }
    return Detach() != nullptr ? TRUE : FALSE;
}

CPen* CDC::SelectObject(CPen* pen) {
    m_formerPen.standFor(::SelectObject(m_hDC, pen->GetSafeHandle()));
    return &m_formerPen;
}

CBrush* CDC::SelectObject(CBrush* brush) {
    m_formerBrush.standFor(::SelectObject(m_hDC, brush->GetSafeHandle()));
    return &m_formerBrush;
}

CBitmap* CDC::SelectObject(CBitmap* bitmap) {
    m_formerBitmap.standFor(::SelectObject(m_hDC, bitmap->GetSafeHandle()));
    return &m_formerBitmap;
}

void CDC::FillSolidRect(LPCRECT rect, COLORREF colour) {
    ::FillSolidArea(m_hDC, rect, colour);
}

void CDC::FillSolidRect(int x, int y, int width, int height, COLORREF colour) {
    const RECT rect{x, y, x + width, y + height};
    ::FillSolidArea(m_hDC, &rect, colour);
}

CPaintDC::CPaintDC(CWnd* pWnd) : m_hWnd(pWnd->m_hWnd) {
    m_hDC = ::BeginWindowPaint(m_hWnd);
}

CPaintDC::~CPaintDC() {
    ::EndWindowPaint(m_hWnd, Detach());
}

CClientDC::CClientDC(CWnd* pWnd) {
    Attach(::GetDC(pWnd->m_hWnd));
}
