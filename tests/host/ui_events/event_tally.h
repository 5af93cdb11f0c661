#pragma once

#include <array>
#include <cstddef>
#include <iosfwd>
#include <string>

/// What a session sent, by kind.
enum class EventKind {
    PRESS,
    DOUBLE_CLICK,
    CONTEXT_PRESS,
    MOVE,
    RELEASE,
    KEY,
    WHEEL,
    FOCUS,
    RESIZE,
    CLOSE,
    STROKE,
    HOVER,
    MAP_EDIT,
    MOVIE,
    EDITOR,
    COUNT
};
constexpr std::size_t EVENT_KINDS = static_cast<std::size_t>(EventKind::COUNT);
const char* nameOf(EventKind kind);

/// The modal dialogs that the editors run.
enum class DialogKind { TEXTURE_LIST, TERRAIN_TYPES, SOUNDTRACK, COLOUR, FILES, MESSAGE, COUNT };
constexpr std::size_t DIALOG_KINDS = static_cast<std::size_t>(DialogKind::COUNT);
const char* nameOf(DialogKind kind);

/// How a dialog was left; BY_CHANCE is what no gesture meant: a stray Enter, a double click on an entry.
enum class LeaveWay { OK, CANCEL, ESCAPE, CLOSE_BOX, DESTROYED, BY_CHANCE, COUNT };
constexpr std::size_t LEAVE_WAYS = static_cast<std::size_t>(LeaveWay::COUNT);
const char* nameOf(LeaveWay way);

/// What happened in a session of events, so that one that went idle does not pass for a good one.
struct EventTally {
    int events = 0;
    std::array<int, EVENT_KINDS> kinds{};
    std::array<int, DIALOG_KINDS> entered{};
    std::array<std::array<int, LEAVE_WAYS>, DIALOG_KINDS> left{};
    int opened = 0;       ///< map editors
    int openedMovies = 0; ///< movie editors
    int closedByUser = 0; ///< map editors, by "Close" or the close box
    int imported = 0;     ///< textures
    int recorded = 0;     ///< events after which the history held another number of points
    int deepest = 0;      ///< event loops inside each other
    int dialogsAtOnce = 0;
    double slowest = 0.0; ///< seconds
    std::string slowestEvent;

    int& count(EventKind kind) { return kinds[static_cast<std::size_t>(kind)]; }
    int& enteredOf(DialogKind kind) { return entered[static_cast<std::size_t>(kind)]; }
    int& leftOf(DialogKind kind, LeaveWay way) {
        return left[static_cast<std::size_t>(kind)][static_cast<std::size_t>(way)];
    }

    void print(std::ostream& out) const;
};
