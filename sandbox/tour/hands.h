#pragma once

#include <QPoint>
#include <QWidget>

/// A person's hands for a tour: mouse and keyboard events that enter the application where the window
/// system's own do, so that grabs, focus, shortcuts and disabled controls behave as they do under a real
/// hand.
class CHands {
public:
    /// Move the pointer over a place of the widget, in its own logical pixels.
    void moveTo(QWidget& widget, QPointF place);
    void press(Qt::MouseButton button);
    void release(Qt::MouseButton button);
    /// Press at the first place and release at the last, moving there in even steps. The widget is not drawn
    /// on the way: a tour is looked at between its steps.
    void drag(QWidget& widget, QPointF from, QPointF to, Qt::MouseButton button, int steps = 12);
    void click(QWidget& widget, QPointF place);
    void click(QWidget& widget) { click(widget, QRectF(widget.rect()).center()); }
    void turnWheel(QWidget& widget, QPointF place, int steps);
    /// Strike a key while the widget's window has the keyboard.
    void strike(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Type text there.
    void type(QWidget& widget, const QString& text);
    /// Where the pointer is, in pixels of the screen.
    QPoint screenPlace() const;

private:
    QWindow* m_pWindow = nullptr;
    QPoint m_place; // in the window
};

/// Handle events until `condition` holds; false when it has not come about in ten seconds.
bool waitUntil(const std::function<bool()>& condition);
