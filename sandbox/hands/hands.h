#pragma once

#include <QPoint>
#include <QPointer>
#include <QWidget>
#include <QWindow>
#include <functional>

/// A person's hands on the application: mouse and keyboard events that enter the application where the window
/// system's own do, so that grabs, focus, shortcuts and disabled controls behave as they do under a real
/// hand.
class CHands {
public:
    /// Move the pointer over a place of the widget, in its own logical pixels.
    void moveTo(QWidget& widget, QPointF position);
    /// The window under the pointer becomes the active one first, as a window manager sees to.
    void press(Qt::MouseButton button);
    void release(Qt::MouseButton button);
    /// Keys held down while the mouse works, from now on.
    void hold(Qt::KeyboardModifiers held) { m_held = held; }
    /// Press at the first place and release at the last, moving there in even steps. Nothing is drawn between
    /// the steps on the way.
    void drag(QWidget& widget, QPointF from, QPointF to, Qt::MouseButton button, int steps = 12);
    void click(QWidget& widget, QPointF position);
    void click(QWidget& widget) { click(widget, QRectF(widget.rect()).center()); }
    void doubleClick(QWidget& widget);
    void turnWheel(QWidget& widget, QPointF position, int steps);
    /// Strike a key while the widget's window has the keyboard.
    void pressKey(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Hold a key down there until the condition holds, for at most ten seconds.
    void holdKey(QWidget& widget, Qt::Key key, const std::function<bool()>& condition);
    /// Type text there.
    void type(QWidget& widget, const QString& text);
    /// Where the pointer is, in pixels of the screen.
    QPoint screenPosition() const;

private:
    void glideTo(QWidget& widget, QPointF position, Qt::MouseButton held);

    QPointer<QWindow> m_pWindow;
    Qt::KeyboardModifiers m_held;
    QPoint m_position;           // in the window
    QPoint m_lastScreenPosition; // for when the window is gone
};

/// Handle events until `condition` holds; false when it has not come about in ten seconds.
bool waitUntil(const std::function<bool()>& condition);
