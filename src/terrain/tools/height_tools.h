#pragma once

class CMapEditorModel;

/// The tools that read or change point heights: one update of a stroke each, at the stroke's picked point.
/// Heights are never held to a range here, only to what an int holds; every point is recorded before it is
/// changed.

/// Set the cell's corners to their mean.
void flatten(CMapEditorModel& model);

/// Set the selection, the cell (BRUSH_CELL) or 4 x 4 points around it (BRUSH_BLOCK) to the panel's height.
void setHeight(CMapEditorModel& model);

/// Read the height of the stroke's corner into the panel's height.
void getHeight(CMapEditorModel& model);

/// Move the cell's corners by tenths (the strength) towards the mean of the 3 x 3 points around each. Only
/// when the pointer has moved.
void smooth(CMapEditorModel& model);

/// Read the gradient of the picked point into the panel's gradient; what is no number is read as 0.
void getGradient(CMapEditorModel& model);

/// Move the cell's corners up or down at random, by up to the strength.
void roughen(CMapEditorModel& model);
