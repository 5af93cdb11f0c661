#pragma once

#include <array>
#include <cstddef>

/// The modal dialogs that the editors run.
enum class DialogKind { TEXTURE_LIST, TERRAIN_TYPES, SOUNDTRACK, COLOUR, FILES, MESSAGE, COUNT };

/// How a dialog was left; BY_CHANCE is what no gesture meant: a stray Enter, a double click on an entry.
enum class LeaveWay { OK, CANCEL, ESCAPE, CLOSE_BOX, DESTROYED, BY_CHANCE, COUNT };

/// What happened in a session of events, so that one that went idle does not pass for a good one.
struct EventTally {
    using Ways = std::array<int, static_cast<std::size_t>(LeaveWay::COUNT)>;

    int events = 0;
    std::array<Ways, static_cast<std::size_t>(DialogKind::COUNT)> left{}; ///< dialogs, by the way
    int opened = 0;                                                       ///< map editors
    int openedMovies = 0;                                                 ///< movie editors
    int closedByUser = 0; ///< map editors, by "Close" or the close box
    int imported = 0;     ///< textures
    int recorded = 0;     ///< events after which the history held another number of points
    int dialogsAtOnce = 0;

    Ways& leftOf(DialogKind kind) { return left[static_cast<std::size_t>(kind)]; }
};
