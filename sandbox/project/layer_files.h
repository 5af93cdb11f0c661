#pragma once

#include "sandbox/project/project_settings.h"

#include <QDir>
#include <QStringList>

/// The layer files of a project folder: their names, and which of them a save of this program made.

/// Names that stand in the folder for nothing yet: heights.7.png and so on, from `number` upwards. `number`
/// becomes the one taken.
ProjectLayers unusedLayerNames(const QDir& folder, int& number);

QStringList filesOf(const ProjectLayers& layers);

/// Remove every layer that this program wrote to the folder and that is not among `kept`: those of the save
/// before, named in `replaced`, and what killed or failed saves left. A file that only bears such a name is
/// told from ours by its first bytes and stays.
void sweepLayers(const QDir& folder, const QStringList& kept, const QStringList& replaced);
