#pragma once

#include "platform/windows/gdi.h"

#include <QImage>
#include <QPainter>

#include <memory>

/// A drawing surface with its current pen, brush and bitmap: a widget being painted, a bitmap, or nothing,
/// which takes all drawing and shows none.
struct HDC__ {
public:
    HDC__() = default;
    /// Paints with a painter that lives on while this context does.
    explicit HDC__(QPainter& painter) : m_pPainter(&painter) {}
    /// Paints a widget with a painter of its own.
    explicit HDC__(std::unique_ptr<QPainter> painter)
        : m_pOwn(std::move(painter)), m_pPainter(m_pOwn.get()) {}

    HGDIOBJ select(HGDIOBJ object);
    QPainter* painter() { return m_pPainter; }
    /// The bitmap that is drawn on; null when it is none.
    HGDIOBJ bitmap() const { return m_bitmap; }
    QPen pen() const;
    QBrush brush() const;

private:
    void drawOn(HGDIOBJ bitmap);

    HGDIOBJ m_pen = GetStockObject(BLACK_PEN);
    HGDIOBJ m_brush = GetStockObject(WHITE_BRUSH);
    HGDIOBJ m_bitmap = nullptr;
    QImage m_picture; ///< the bitmap's pixels
    std::unique_ptr<QPainter> m_pOwn;
    QPainter* m_pPainter = nullptr;
};
