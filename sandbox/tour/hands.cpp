#include "sandbox/tour/hands.h"

#include <QCoreApplication>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

namespace {

QWindow& windowOf(QWidget& widget) {
    return *widget.window()->windowHandle();
}

} // namespace

void CHands::moveTo(QWidget& widget, QPointF place) {
    m_pWindow = &windowOf(widget);
    m_place = widget.mapTo(widget.window(), place.toPoint());
    QTest::mouseMove(m_pWindow, m_place);
}

void CHands::press(Qt::MouseButton button) {
    QTest::mousePress(m_pWindow, button, Qt::NoModifier, m_place);
}

void CHands::release(Qt::MouseButton button) {
    QTest::mouseRelease(m_pWindow, button, Qt::NoModifier, m_place);
}

void CHands::drag(QWidget& widget, QPointF from, QPointF to, Qt::MouseButton button, int steps) {
    widget.setUpdatesEnabled(false);
    moveTo(widget, from);
    press(button);
    for (int step = 1; step <= steps; ++step) {
        moveTo(widget, from + (to - from) * step / steps);
    }
    release(button);
    widget.setUpdatesEnabled(true);
}

void CHands::click(QWidget& widget, QPointF place) {
    moveTo(widget, place);
    press(Qt::LeftButton);
    release(Qt::LeftButton);
}

void CHands::turnWheel(QWidget& widget, QPointF place, int steps) {
    moveTo(widget, place);
    constexpr int ONE_STEP = 120;
    for (int step = 0; step < std::abs(steps); ++step) {
        QWheelEvent event(m_place, m_pWindow->mapToGlobal(m_place), QPoint(),
                          QPoint(0, steps > 0 ? ONE_STEP : -ONE_STEP), Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(m_pWindow, &event);
    }
}

void CHands::strike(QWidget& widget, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&windowOf(widget), key, modifiers);
}

void CHands::type(QWidget& widget, const QString& text) {
    for (const QChar letter : text) {
        QTest::keyClick(&windowOf(widget), letter.toLatin1());
    }
}

QPoint CHands::screenPlace() const {
    return m_pWindow != nullptr ? m_pWindow->mapToGlobal(m_place) : QPoint();
}

bool waitUntil(const std::function<bool()>& condition) {
    constexpr int PATIENCE = 10000; // milliseconds
    return QTest::qWaitFor(condition, PATIENCE);
}
