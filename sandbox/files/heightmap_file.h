#pragma once

#include "sandbox/core/heightmap_png.h"

#include <QString>

/// Read the heightmap file at `path`. The reason of a failure is a clause for a person. Throws
/// std::bad_alloc.
HeightmapReading readHeightmapFile(const QString& path);

/// How many points a side the map has that readHeightmapFile would give, from the file's first bytes; 0 when
/// they are not those of a picture.
int edgeOfHeightmapFile(const QString& path);

/// Write heights, `edge` times `edge`, to `path` as a grey PNG: beside the file first, then in its place.
/// Returns the reason of a failure, empty on success; after a failure the old file is as it was.
QString writeHeightmapFile(const QString& path, int edge, std::span<const std::uint16_t> heights,
                           HeightmapBits bits);
