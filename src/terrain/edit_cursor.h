#pragma once

class CMapEditorModel;

/// Why the cursor is drawn: the pointer hovers, or a stroke follows it.
enum class CursorUse { HOVER, STROKE };

/// Rebuild the edit cursor for cell (x, z): what the selected tool would touch there. On the Details tab the
/// detail under the pointer becomes the current one, highlighted while the pointer hovers.
void updateCursor(CMapEditorModel& model, int x, int z, int edge, int corner, CursorUse use);
