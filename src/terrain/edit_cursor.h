#pragma once

class CMapEditorModel;

/// Rebuild the edit cursor for cell (x, z): what the selected tool would touch there. On the Details tab the
/// detail under the pointer becomes the current one, highlighted unless `duringStroke`.
void updateCursor(CMapEditorModel& model, int x, int z, int edge, int corner, bool duringStroke);
