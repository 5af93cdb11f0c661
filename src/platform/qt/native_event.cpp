#include "platform/qt/native_event.h"

#include <QAbstractScrollArea>

#include <utility>

namespace qtbackend {

namespace {

CNativeEvent* g_current = nullptr;

/// Names what a scroll area hears its viewport's events with.
struct ScrollAreaAccess : QAbstractScrollArea {
    using QAbstractScrollArea::viewportEvent;
};

/// Lets the widget act on the event. A viewport leaves its events to its scroll area.
void deliver(QObject& target, QEvent& event) {
    auto* const area = qobject_cast<QAbstractScrollArea*>(target.parent());
    if (area != nullptr && area->viewport() == &target) {
        (area->*&ScrollAreaAccess::viewportEvent)(&event);
    } else {
        target.event(&event);
    }
}

} // namespace

CNativeEvent::CNativeEvent(const void* window, UINT message, QObject* target, QEvent* event)
    : m_pWindow(window)
    , m_nMessage(message)
    , m_pTarget(target)
    , m_pEvent(event)
    , m_pOuter(std::exchange(g_current, this)) {}

CNativeEvent::~CNativeEvent() {
    g_current = m_pOuter;
}

bool CNativeEvent::pass(const void* window, UINT message) {
    CNativeEvent* const current = g_current;
    if (current == nullptr || current->m_pWindow != window || current->m_nMessage != message ||
        current->m_bPassed) {
        return false;
    }
    current->m_bPassed = true;
    deliver(*current->m_pTarget, *current->m_pEvent);
    return true;
}

const QEvent* CNativeEvent::current() {
    return g_current != nullptr ? g_current->m_pEvent : nullptr;
}

} // namespace qtbackend
