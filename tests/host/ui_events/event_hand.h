#pragma once

#include <QEvent>
#include <QPoint>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <QWindow>

/// A person's hand on mouse and keyboard. What it does reaches the application where a window system hands
/// its events in, so that everything above is as with a person: windows blocked by a modal dialog hear
/// nothing, popups and a held button keep the mouse, quick presses become double clicks. Unlike QTest's
/// functions for windows it runs no event loop of its own: the session's must be the innermost one.
class CEventHand {
public:
    /// Presses a button over the widget, at a place in its coordinates.
    void press(QWidget& widget, QPoint position, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void moveTo(QWidget& widget, QPoint position);
    /// Lets the button go where the pointer is.
    void release();
    /// Presses and releases a key; it goes to the window that has the keyboard, else to that of `widget`.
    void pressKey(QWidget& widget, Qt::Key key, const QString& text, Qt::KeyboardModifiers modifiers);
    /// Turns the wheel over the widget by `notches` away from the person.
    void turnWheel(QWidget& widget, QPoint position, int notches);

    bool isHolding() const { return m_button != Qt::NoButton; }
    /// Lets this much time pass on the clock of the events, in milliseconds.
    void wait(int milliseconds) { m_nTime += milliseconds; }

private:
    void send(QEvent::Type type, Qt::MouseButton button, Qt::KeyboardModifiers modifiers);
    void point(QWidget& widget, QPoint position);

    QPointer<QWindow> m_pWindow; // the one that hears the mouse: under the pointer, or pressed on
    QPointF m_global;
    Qt::MouseButton m_button = Qt::NoButton;
    int m_nTime = 1000;
};
