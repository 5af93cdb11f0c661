#include "platform/qt/native_event.h"

#include <QAbstractScrollArea>

#include <utility>

namespace qtbackend {

namespace {

NativeEvent* g_current = nullptr;

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

NativeEvent::NativeEvent(Window& window, UINT message, QObject* target, QEvent* event)
    : m_window(window)
    , m_message(message)
    , m_target(target)
    , m_event(event)
    , m_outer(std::exchange(g_current, this)) {}

NativeEvent::~NativeEvent() {
    g_current = m_outer;
}

bool NativeEvent::pass(const Window& window, UINT message) {
    NativeEvent* const current = g_current;
    if (current == nullptr || &current->m_window != &window || current->m_message != message ||
        current->m_passed) {
        return false;
    }
    current->m_passed = true;
    deliver(*current->m_target, *current->m_event);
    return true;
}

const QEvent* NativeEvent::current() {
    return g_current != nullptr ? g_current->m_event : nullptr;
}

} // namespace qtbackend
