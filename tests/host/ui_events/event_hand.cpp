#include "host/ui_events/event_hand.h"

#include <QApplication>
#include <QTest>
#include <QWheelEvent>

namespace {

QWindow* windowOf(const QWidget& widget) {
    return widget.window()->windowHandle();
}

} // namespace

void CEventHand::point(QWidget& widget, QPoint position) {
    m_global = widget.mapToGlobal(position);
    if (!isHolding() || m_pWindow == nullptr) {
        m_pWindow = windowOf(widget);
    }
}

void CEventHand::send(QEvent::Type type, Qt::MouseButton button, Qt::KeyboardModifiers modifiers) {
    if (m_pWindow != nullptr && m_pWindow->isVisible()) {
        qt_handleMouseEvent(m_pWindow, m_pWindow->mapFromGlobal(m_global), m_global, m_button, button, type,
                            modifiers, m_nTime);
    }
}

void CEventHand::press(QWidget& widget, QPoint position, Qt::MouseButton button,
                       Qt::KeyboardModifiers modifiers) {
    point(widget, position);
    m_button = button;
    m_nTime += 10;
    send(QEvent::MouseButtonPress, button, modifiers);
}

void CEventHand::moveTo(QWidget& widget, QPoint position) {
    point(widget, position);
    m_nTime += 10;
    send(QEvent::MouseMove, Qt::NoButton, Qt::NoModifier);
}

void CEventHand::release() {
    const Qt::MouseButton button = m_button;
    m_button = Qt::NoButton;
    m_nTime += 10;
    send(QEvent::MouseButtonRelease, button, Qt::NoModifier);
}

void CEventHand::pressKey(QWidget& widget, Qt::Key key, const QString& text,
                          Qt::KeyboardModifiers modifiers) {
    if (QGuiApplication::focusWindow() == nullptr && QApplication::activeModalWidget() == nullptr) {
        widget.window()->activateWindow(); // nobody types into a window that has not got the keyboard
    }
    QWindow* const focused = QGuiApplication::focusWindow();
    const QPointer<QWindow> window = focused != nullptr ? focused : windowOf(widget);
    if (window != nullptr) {
        qt_handleKeyEvent(window, QEvent::KeyPress, key, modifiers, text);
    }
    if (window != nullptr) {
        qt_handleKeyEvent(window, QEvent::KeyRelease, key, modifiers, text);
    }
}

void CEventHand::turnWheel(QWidget& widget, QPoint position, int notches) {
    constexpr int NOTCH = 120;
    QWindow* const window = windowOf(widget);
    if (window == nullptr) {
        return;
    }
    const QPointF inWindow = widget.mapTo(widget.window(), position);
    QWheelEvent event(inWindow, window->mapToGlobal(inWindow), QPoint(), QPoint(0, notches * NOTCH),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(window, &event);
}
