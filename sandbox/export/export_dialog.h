#pragma once

#include "engine/memory/memory_map.h"
#include "sandbox/film/film.h"
#include "sandbox/view/view_options.h"

class QWidget;

/// "File > Export Film...": ask for a folder and the pictures' size, write the film with its progress in
/// sight, and tell what came of it.
/// The dialog begins in the folder `begin`.
void askToExportFilm(QWidget& parent, CMemoryMap& map, CFilm& film, const ViewOptions& options,
                     const QString& begin);
