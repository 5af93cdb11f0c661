#pragma once

#include "platform/framework/command_target.h"
#include "platform/windows/gdi.h"

#include <memory>

class CDC;

/// A pen, brush or bitmap of the drawing system. Deletes what it made; a stand-in for one that was current in
/// a context before belongs to that context's owner.
class CGdiObject : public CObject {
public:
    HGDIOBJ GetSafeHandle() const { return m_hObject; }
    /// Frees the object early. It must no longer be current in a context.
    BOOL DeleteObject();

protected:
    BOOL take(HGDIOBJ__ object);

private:
    friend class CDC;
    void standFor(HGDIOBJ object);

    std::unique_ptr<HGDIOBJ__> m_pOwned;
    HGDIOBJ m_hObject = nullptr;
};

class CPen : public CGdiObject {
public:
    CPen() = default;
    CPen(int style, int width, COLORREF colour) { CreatePen(style, width, colour); }
    /// Only PS_SOLID; width in pixels.
    BOOL CreatePen(int style, int width, COLORREF colour);
};

class CBrush : public CGdiObject {
public:
    CBrush() = default;
    explicit CBrush(COLORREF colour) { CreateSolidBrush(colour); }
    BOOL CreateSolidBrush(COLORREF colour);
};

class CBitmap : public CGdiObject {
public:
    /// Black at first. FALSE, and no bitmap, for a size that is not positive.
    BOOL CreateCompatibleBitmap(CDC* pDC, int width, int height);
};
