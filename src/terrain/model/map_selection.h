#pragma once

#include "terrain/grid/grid_area.h"

class CMapEditorModel;
class qxCMap;

enum class Mark { OFF, ON };

/// Draw or erase the outline of a rectangle of points on the marker layer; the corners in any order. Erasing
/// clears the pixels, whatever else was marked there.
void drawMarkRect(qxCMap& map, int x0, int z0, int x1, int z1, Mark mark);

/// The command "Select All": every cell of the map, outlined.
void selectAll(CMapEditorModel& model);

/// The command "De-select": drop the selection and its outline, if there is one.
void deselect(CMapEditorModel& model);

/// Erase the selection's outline and drop it, if there is one; its corners stay.
void dropSelection(CMapEditorModel& model);

/// A "Select" stroke begins at (x, z): the old selection goes, the anchor is set.
void startSelection(CMapEditorModel& model, int x, int z);

/// A "Select" stroke ends: order the corners, set the size. The outline is already drawn.
void completeSelection(CMapEditorModel& model);

/// All points of the selected cells: one more than the cells in each direction.
GridArea selectedPoints(const CMapEditorModel& model);
