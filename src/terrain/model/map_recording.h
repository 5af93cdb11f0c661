#pragma once

#include <cstdint>

class CMapEditorModel;

/// Record every point of x0..x1 by z0..z1 in the history, bounds inclusive, x by x, before a tool changes
/// them. Points beyond the grid are not recorded. The first one that a stroke records, on whichever of its
/// updates, starts its undo step.
void recordBlock(CMapEditorModel& model, std::int64_t x0, std::int64_t z0, std::int64_t x1, std::int64_t z1);

/// The map's side of the command "Undo": put the points of the newest stroke back, newest first.
void undo(CMapEditorModel& model);
