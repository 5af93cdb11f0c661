#pragma once

#include "platform/framework/drawing/gdi_object.h"
#include "platform/windows/geometry.h"

class CWnd;

/// A device context: where to draw, and with what. Deletes the context it made itself.
class CDC : public CObject {
public:
    HDC m_hDC = nullptr;

    CDC() = default;
    ~CDC() override;

    /// A stand-in for a context that somebody else owns; lives until the next call.
    static CDC* FromHandle(HDC hDC);
    BOOL Attach(HDC hDC);
    HDC Detach();
    /// A context that draws into the bitmap selected into it.
    BOOL CreateCompatibleDC(CDC* pDC);
    BOOL DeleteDC();

    // Each makes the object current and returns the former one of its kind, which is to be selected again
    // before the next object of that kind but one.
    CPen* SelectObject(CPen* pen);
    CBrush* SelectObject(CBrush* brush);
    CBitmap* SelectObject(CBitmap* bitmap);

    BOOL Rectangle(LPCRECT rect) {
        return ::Rectangle(m_hDC, rect->left, rect->top, rect->right, rect->bottom);
    }
    BOOL Rectangle(int left, int top, int right, int bottom) {
        return ::Rectangle(m_hDC, left, top, right, bottom);
    }
    void FillSolidRect(LPCRECT rect, COLORREF colour);
    void FillSolidRect(int x, int y, int width, int height, COLORREF colour);
    BOOL SetPixelV(int x, int y, COLORREF colour) { return ::SetPixelV(m_hDC, x, y, colour); }
    COLORREF GetPixel(int x, int y) const { return ::GetPixel(m_hDC, x, y); }
    BOOL BitBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY, DWORD operation) {
        return ::BitBlt(m_hDC, x, y, width, height, source->m_hDC, sourceX, sourceY, operation);
    }

private:
    bool m_bOwned = false;
    CPen m_formerPen;
    CBrush m_formerBrush;
    CBitmap m_formerBitmap;
};

/// Paints a window that handles WM_PAINT.
class CPaintDC : public CDC {
public:
    explicit CPaintDC(CWnd* pWnd);
    ~CPaintDC() override;

private:
    HWND m_hWnd;
};

/// A window's context outside of WM_PAINT: to measure with, or as model for a memory context.
class CClientDC : public CDC {
public:
    explicit CClientDC(CWnd* pWnd);
};
