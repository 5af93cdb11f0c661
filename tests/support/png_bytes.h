#pragma once

#include <cstdint>
#include <vector>

/// A PNG file of `width` x `height` pixels. `samples` holds the rows as PNG stores them, without filter
/// bytes; the numbers of `colourType` are PNG's own. A palette image gets the four colours black, red, half
/// transparent green and blue.
std::vector<std::uint8_t> makePng(int width, int height, int colourType, int depth, bool interlaced,
                                  std::vector<std::uint8_t> samples);
