#pragma once

class CMapEditorModel;

/// The tools of the Details tab, which place, move, turn, scale, mirror, copy and delete terrain details.

/// Whether a stroke's first update is to run as soon as the stroke starts, or is the host's first.
enum class FirstUpdate { AT_ONCE, BY_HOST };

/// What the selected detail tool does when a stroke starts; the stroke's state has been stored.
FirstUpdate startDetailTool(CMapEditorModel& model);

/// What it does on an update of the stroke at (x, z); `amount` turns or scales.
void updateDetailTool(CMapEditorModel& model, int x, int z, int amount);
