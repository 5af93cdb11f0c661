#pragma once

class CMapEditorModel;

/// The tools that change what the ground looks like: one update of a stroke each, at the stroke's picked
/// point. Tint and Paint record every point before they change it; water is not recorded.

/// Mix the colour of the selection's or the brush's points towards the panel's tint, by the strength in
/// hundredths. Ground under standing water keeps its colour.
void tintGround(CMapEditorModel& model);

/// Paint the current terrain texture definition onto the selection's or the brush's points, with the strength
/// in tenths as weight; half of it on the rim of BRUSH_PLUS and BRUSH_BLOCK.
void paint(CMapEditorModel& model);

/// Add water at the point.
void flood(CMapEditorModel& model);

/// Remove water at the point.
void drain(CMapEditorModel& model);
