#pragma once

#include <cstdint>

class CMapEditorModel;

/// Record the point (x, z) in the history, before a tool changes it. `groupStart` marks the first record of
/// a stroke. A point beyond the grid is not recorded.
void recordPoint(CMapEditorModel& model, int x, int z, bool groupStart);

/// Record every point of x0..x1 by z0..z1, bounds inclusive, x by x. The first one recorded on a stroke's
/// first update starts the undo step.
void recordBlock(CMapEditorModel& model, std::int64_t x0, std::int64_t z0, std::int64_t x1, std::int64_t z1);

/// The map's side of the command "Undo": put the points of the newest stroke back, newest first.
void undo(CMapEditorModel& model);
