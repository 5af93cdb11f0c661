#pragma once

#include "engine/qx_colour.h"

#include <QString>
#include <vector>

/// Read a colour layer of `edge` points a side from a PNG file. Returns the reason of a failure, empty on
/// success; the size is checked before memory is taken.
QString readColourLayer(const QString& path, int edge, std::vector<qxCColour>& colours);

/// Write the colours, `edge` times `edge`, to a PNG with alpha: beside the file first, then in its place.
/// Returns the reason of a failure, empty on success.
QString writeColourLayer(const QString& path, int edge, const std::vector<qxCColour>& colours);
