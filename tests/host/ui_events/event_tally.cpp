#include "host/ui_events/event_tally.h"

#include <ostream>

const char* nameOf(EventKind kind) {
    constexpr std::array<const char*, EVENT_KINDS> NAMES = {
        "press",  "double click", "context press", "move",  "release",  "key",   "wheel", "focus",
        "resize", "close",        "stroke",        "hover", "map edit", "movie", "editor"};
    return NAMES[static_cast<std::size_t>(kind)];
}

const char* nameOf(DialogKind kind) {
    constexpr std::array<const char*, DIALOG_KINDS> NAMES = {
        "Texture List", "Terrain Type Editor", "Soundtrack", "colour dialog", "file dialog", "message box"};
    return NAMES[static_cast<std::size_t>(kind)];
}

const char* nameOf(LeaveWay way) {
    constexpr std::array<const char*, LEAVE_WAYS> NAMES = {"OK",        "Cancel",    "Escape",
                                                           "close box", "destroyed", "by chance"};
    return NAMES[static_cast<std::size_t>(way)];
}

void EventTally::print(std::ostream& out) const {
    out << events << " events:";
    for (std::size_t kind = 0; kind < EVENT_KINDS; ++kind) {
        out << ' ' << nameOf(static_cast<EventKind>(kind)) << ' ' << kinds[kind]
            << (kind + 1 < EVENT_KINDS ? "," : "\n");
    }
    for (std::size_t kind = 0; kind < DIALOG_KINDS; ++kind) {
        out << nameOf(static_cast<DialogKind>(kind)) << " entered " << entered[kind] << ", left:";
        for (std::size_t way = 0; way < LEAVE_WAYS; ++way) {
            out << ' ' << nameOf(static_cast<LeaveWay>(way)) << ' ' << left[kind][way]
                << (way + 1 < LEAVE_WAYS ? "," : "\n");
        }
    }
    out << "map editors opened " << opened << ", movie editors " << openedMovies << ", closed by the user "
        << closedByUser << ", textures imported " << imported << ", changes of the history " << recorded
        << ", dialogs at once " << dialogsAtOnce << ", loops inside each other " << deepest << '\n';
    out << "slowest event: " << static_cast<int>(slowest * 1000.0) << " ms, " << slowestEvent << std::endl;
}
