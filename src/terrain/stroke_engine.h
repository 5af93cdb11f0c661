#pragma once

class CMapEditorModel;

/// A brush stroke on the map, from the host's start to its stop. Any ints are taken: points beyond the grid
/// reach the engine, which ignores them, and are never recorded; an edge, corner, brush size or tool that
/// does not exist changes nothing.

/// Begin a stroke at cell (x, z) and, for most tools, run its first update. `edge` 0 to 5 and `corner` 0 to 3
/// stay in force for the stroke.
void strokeStart(CMapEditorModel& model, int x, int z, int edge, int corner);

/// Continue at (x, z). `amount` is the signed drag amount since the start; it replaces that of the update
/// before, it does not add to it.
void strokeUpdate(CMapEditorModel& model, int x, int z, int amount);

/// The map's side of a stroke's end: completes or drops the selection and clears the marks and the cursors.
void strokeEnd(CMapEditorModel& model);
