#pragma once

#include "platform/windows_types.h"

#include <QEvent>

namespace qtbackend {

/// The Qt event that a message was made from, while its handlers run. The default processing of the message
/// hands the event to the widget, once.
class CNativeEvent {
public:
    /// `window` only names the window whose message this is.
    CNativeEvent(const void* window, UINT message, QObject* target, QEvent* event);
    ~CNativeEvent();
    CNativeEvent(const CNativeEvent&) = delete;
    CNativeEvent& operator=(const CNativeEvent&) = delete;

    bool wasPassed() const { return m_bPassed; }
    /// Hands the event of this message to its widget when one is on its way.
    static bool pass(const void* window, UINT message);
    /// The innermost event on its way, or null.
    static const QEvent* current();

private:
    const void* m_pWindow;
    UINT m_nMessage;
    QObject* m_pTarget;
    QEvent* m_pEvent;
    bool m_bPassed = false;
    CNativeEvent* m_pOuter;
};

} // namespace qtbackend
