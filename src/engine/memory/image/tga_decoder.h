#pragma once

#include "engine/memory/image/decoded_image.h"

#include <cstdint>
#include <optional>
#include <span>

/// Decodes a TGA file: true colour of 15, 16, 24 and 32 bits, grey of 8 bits and of 16 (grey and alpha),
/// colour maps of those colours with indices of 8 and 16 bits, plain and run-length packed, from any of the
/// four corners. Terms as for decodeImage.
///
/// Alpha: the fourth byte of a 32-bit colour and the second of a 16-bit grey; the top bit of a 16-bit colour
/// when the header declares an alpha bit. When the header declares none and every pixel is transparent, that
/// byte was never meant as alpha, and the image is opaque.
std::optional<DecodedImage> decodeTga(std::span<const std::uint8_t> bytes);
