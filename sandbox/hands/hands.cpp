#include "sandbox/hands/hands.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>

namespace {

QWindow& windowOf(QWidget& widget) {
    return *widget.window()->windowHandle();
}

void activate(QWindow& window) {
    if (QGuiApplication::focusWindow() != &window) {
        window.requestActivate();
        waitUntil([&] { return QGuiApplication::focusWindow() == &window; });
    }
}

} // namespace

void CHands::moveTo(QWidget& widget, QPointF position) {
    QWindow* const window = &windowOf(widget);
    if (m_pWindow != nullptr && m_pWindow != window) {
        QEvent leave(QEvent::Leave); // the window system's word to the window that the pointer was over
        QCoreApplication::sendEvent(m_pWindow, &leave);
    }
    m_pWindow = window;
    m_position = widget.mapTo(widget.window(), position.toPoint());
    m_lastScreenPosition = m_pWindow->mapToGlobal(m_position);
    QTest::mouseMove(m_pWindow, m_position);
}

void CHands::press(Qt::MouseButton button) {
    activate(*m_pWindow);
    QTest::mousePress(m_pWindow, button, m_held, m_position);
}

void CHands::release(Qt::MouseButton button) {
    QTest::mouseRelease(m_pWindow, button, m_held, m_position);
}

void CHands::drag(QWidget& widget, QPointF from, QPointF to, Qt::MouseButton button, int steps) {
    moveTo(widget, from);
    press(button);
    for (int step = 1; step < steps; ++step) {
        glideTo(widget, from + (to - from) * step / steps, button);
    }
    moveTo(widget, to);
    release(button);
}

/// A move that is handed to the window alone: unlike moveTo it does not wait for what it leads to be drawn,
/// which keeps a long drag short where the processor draws.
void CHands::glideTo(QWidget& widget, QPointF position, Qt::MouseButton held) {
    m_position = widget.mapTo(widget.window(), position.toPoint());
    QMouseEvent event(QEvent::MouseMove, m_position, m_pWindow->mapToGlobal(m_position), Qt::NoButton, held,
                      m_held);
    QCoreApplication::sendEvent(m_pWindow, &event);
}

void CHands::click(QWidget& widget, QPointF position) {
    moveTo(widget, position);
    press(Qt::LeftButton);
    release(Qt::LeftButton);
}

void CHands::doubleClick(QWidget& widget) {
    moveTo(widget, QRectF(widget.rect()).center());
    activate(*m_pWindow);
    QTest::mouseDClick(m_pWindow, Qt::LeftButton, Qt::NoModifier, m_position);
}

void CHands::turnWheel(QWidget& widget, QPointF position, int steps) {
    moveTo(widget, position);
    constexpr int ONE_STEP = 120;
    for (int step = 0; step < std::abs(steps); ++step) {
        QWheelEvent event(m_position, m_pWindow->mapToGlobal(m_position), QPoint(),
                          QPoint(0, steps > 0 ? ONE_STEP : -ONE_STEP), Qt::NoButton, m_held,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(m_pWindow, &event);
    }
}

void CHands::pressKey(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    activate(windowOf(widget));
    QTest::keyClick(&windowOf(widget), key, modifiers);
}

void CHands::holdKey(QWidget& widget, Qt::Key key, const std::function<bool()>& condition) {
    activate(windowOf(widget));
    QTest::keyPress(&windowOf(widget), key);
    waitUntil(condition);
    QTest::keyRelease(&windowOf(widget), key);
}

void CHands::type(QWidget& widget, const QString& text) {
    activate(windowOf(widget));
    for (const QChar letter : text) {
        QTest::keyClick(&windowOf(widget), letter.toLatin1());
    }
}

QPoint CHands::screenPosition() const {
    return m_pWindow != nullptr ? m_pWindow->mapToGlobal(m_position) : m_lastScreenPosition;
}

bool waitUntil(const std::function<bool()>& condition) {
    constexpr int PATIENCE = 10000; // milliseconds
    const QDeadlineTimer end(PATIENCE);
    QTimer pulse; // so that waiting for events also ends when none comes
    pulse.start(10);
    while (!condition() && !end.hasExpired()) {
        // Waiting lets the application fall idle, which is when the window follows what the panel did.
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }
    return condition();
}
