#pragma once

#include "engine/memory/image/decoded_image.h"
#include "engine/qx_api.h"

#include <cstdint>
#include <optional>
#include <span>

/// Decodes the bytes of a PNG or TGA file. Nothing for any other content, for a size beyond
/// qxCImageFile::MAX_EDGE and for a file that does not hold all of its pixels. Memory is taken only when the
/// bytes at hand can hold the image that the header promises.
QX_API std::optional<DecodedImage> decodeImage(std::span<const std::uint8_t> bytes);
