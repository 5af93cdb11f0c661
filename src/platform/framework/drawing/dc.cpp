#include "platform/framework/drawing/dc.h"

#include "platform/framework/wnd.h"

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

// Callers cast the result to what it was, so the former pen comes as CPen, the former brush as CBrush.
CGdiObject* CDC::SelectStockObject(int index) {
    const HGDIOBJ stock = ::GetStockObject(index);
    if (stock == nullptr) {
        return nullptr;
    }
    CGdiObject& former = stock->kind == HGDIOBJ__::Kind::PEN ? static_cast<CGdiObject&>(m_formerPen)
                                                             : static_cast<CGdiObject&>(m_formerBrush);
    former.standFor(::SelectObject(m_hDC, stock));
    return &former;
}

CPaintDC::CPaintDC(CWnd* pWnd) : m_hWnd(pWnd->m_hWnd) {
    m_hDC = ::BeginPaint(m_hWnd);
}

CPaintDC::~CPaintDC() {
    ::EndPaint(m_hWnd, Detach());
}

CClientDC::CClientDC(CWnd* pWnd) {
    Attach(::GetDC(pWnd->m_hWnd));
}
