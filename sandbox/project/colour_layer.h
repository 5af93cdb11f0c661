#pragma once

#include "engine/qx_colour.h"

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <span>
#include <vector>

/// Read a colour layer of `edge` points a side from the bytes of a PNG file. Returns the reason of a failure,
/// empty on success; the size is checked before memory is taken. Throws std::bad_alloc.
QString decodeColours(std::span<const std::uint8_t> file, int edge, std::vector<qxCColour>& colours);

/// The colours, `edge` times `edge`, as a PNG file with alpha. Throws std::bad_alloc.
QByteArray encodeColours(int edge, std::span<const qxCColour> colours);
