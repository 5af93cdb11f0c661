#pragma once

#include "engine/memory/image/decoded_image.h"

#include <cstdint>
#include <optional>
#include <span>

/// True when the bytes begin with the PNG signature and a complete IHDR chunk.
bool isPng(std::span<const std::uint8_t> bytes);

/// Decodes every kind of PNG to eight bits a channel, straight alpha. Terms as for decodeImage.
std::optional<DecodedImage> decodePng(std::span<const std::uint8_t> bytes);
