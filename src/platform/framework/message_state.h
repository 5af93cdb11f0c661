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
template <class Value> class StateScope {
public:
    StateScope(Value& field, Value value) : m_field(field), m_former(field) { m_field = value; }
    ~StateScope() { m_field = m_former; }
    StateScope(const StateScope&) = delete;
    StateScope& operator=(const StateScope&) = delete;

private:
    Value& m_field;
    Value m_former;
};
