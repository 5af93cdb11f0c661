#pragma once

#include <QSize>
#include <QString>

/// The program without its window: write the film of the map at `project` into `folder`, and say on the
/// terminal what came of it. Returns the program's exit code, 0 when all is written.
int writeFilm(const QString& project, const QString& folder, QSize size);
