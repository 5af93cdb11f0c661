#pragma once

#include <cstdint>
#include <span>

/// stb_image with nothing but its TGA reader. It trusts a file to hold all of its pixels and knows no
/// right-to-left order: callers check and turn.

/// Rows from the top, `channels` (1 to 4) bytes a pixel in the order red, green, blue, alpha or grey, alpha.
/// Null when it is no TGA file. The caller gives the pixels to freeTga.
std::uint8_t* loadTga(std::span<const std::uint8_t> file, int channels);
void freeTga(void* pixels);
