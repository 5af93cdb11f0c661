#pragma once

#include "platform/windows_types.h"

#include <algorithm>

/// A point in pixels.
class CPoint : public POINT {
public:
    CPoint() = default;
    CPoint(int pointX, int pointY) : POINT{pointX, pointY} {}
    CPoint(const POINT& point) : POINT(point) {}
};

/// A width and a height in pixels.
class CSize : public SIZE {
public:
    CSize() = default;
    CSize(int width, int height) : SIZE{width, height} {}
};

/// A rectangle in pixels; right and bottom lie just outside.
class CRect : public RECT {
public:
    CRect() = default;
    CRect(int l, int t, int r, int b) : RECT{l, t, r, b} {}
    CRect(const RECT& rect) : RECT(rect) {}

    operator LPRECT() { return this; }
    operator LPCRECT() const { return this; }

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    CSize Size() const { return {Width(), Height()}; }
    bool IsRectEmpty() const { return left >= right || top >= bottom; }

    /// Takes the common part of both. FALSE, and this rectangle empty, when there is none.
    BOOL IntersectRect(LPCRECT a, LPCRECT b) {
        const CRect common(std::max(a->left, b->left), std::max(a->top, b->top), std::min(a->right, b->right),
                           std::min(a->bottom, b->bottom));
        *this = common.IsRectEmpty() ? CRect() : common;
        return common.IsRectEmpty() ? FALSE : TRUE;
    }
};

inline BOOL IntersectRect(LPRECT result, LPCRECT a, LPCRECT b) {
    CRect common;
    const BOOL meets = common.IntersectRect(a, b);
    *result = common;
    return meets;
}
