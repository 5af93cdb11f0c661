#pragma once

class CMapEditorModel;

/// The tools of the Details tab, which place, move, turn, scale, mirror, copy and delete terrain details.

/// What the selected detail tool does when a stroke starts; the stroke's state has been stored.
void startDetailTool(CMapEditorModel& model);

/// What it does on an update of the stroke at (x, z); `amount` turns or scales.
void updateDetailTool(CMapEditorModel& model, int x, int z, int amount);

/// Let go of the detail that the last stroke edited. To be called when its map may go.
void forgetDetailSnapshot();
