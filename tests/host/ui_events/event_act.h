#pragma once

#include "host/ui_events/event_tally.h"

#include <functional>
#include <string>

/// One event of a gesture, sent when its turn comes: by then a dialog may have opened or the widget may be
/// gone. A gesture is a row of them, and each is sent from the innermost event loop.
struct EventAct {
    EventKind kind;
    std::string what;
    /// False when there is nothing left to send it to.
    std::function<bool()> send;
};
