#pragma once

#include "platform/windows/messages.h"

/// What the framework remembers while messages are being handled. There is one window thread, so one state.
struct MessageState {
    const MSG* current = nullptr; ///< the message whose handler runs
    HWND lockedOut = nullptr;     ///< the dialog whose data exchange runs; it gets no notifications
};

inline MessageState& messageState() {
    static MessageState state;
    return state;
}

/// Gives a field of the state a value for the length of a block.
template <class Value> class CStateScope {
public:
    CStateScope(Value& field, Value value) : m_field(field), m_former(field) { m_field = value; }
    ~CStateScope() { m_field = m_former; }
    CStateScope(const CStateScope&) = delete;
    CStateScope& operator=(const CStateScope&) = delete;

private:
    Value& m_field;
    Value m_former;
};
