#pragma once

#include "sandbox/core/heightmap_png.h"

#include <QString>

/// Read the heightmap file at `path`. The reason of a failure is a clause for a person.
HeightmapReading readHeightmapFile(const QString& path);

/// Write the map to `path` as a 16-bit grey PNG: beside the file first, then in its place, with the
/// permissions that the file had. Returns the reason of a failure, empty on success; after a failure the old
/// file is as it was.
QString writeHeightmapFile(const QString& path, const Heightmap& map);
