#pragma once

class CMapEditorModel;

/// The height tools that a drag sets by its amount. They stay at the point picked at the start of the stroke,
/// and an update replaces the effect of the one before: both work from the heights that the first update
/// found and recorded.

/// Raise the selection, or the brush's points, by -amount from where they stood on the first update.
void raise(CMapEditorModel& model, int amount);

/// A raised-cosine bump of radius `strength` points around the middle of the cell, -amount high, on the
/// heights of the stroke's first update.
void magnet(CMapEditorModel& model, int amount);
