#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// PNG files as the sandbox keeps its pictures: plain grey of 8 or 16 bits, and colour with alpha of 8 bits.

enum class PngKind { GREY_8, GREY_16, COLOUR };

/// A picture, rows from the top without gaps. 16-bit values are in the machine's byte order; a pixel of
/// colour is four bytes: blue, green, red, alpha.
struct PngPicture {
    int width = 0;
    int height = 0;
    PngKind kind = PngKind::GREY_8;
    std::vector<std::uint8_t> pixels;
};

/// What a PNG file says of itself before any of it is decoded.
struct PngHeader {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    int bitDepth = 0;
    int colourType = 0; ///< as PNG numbers them: 0 grey, 2 RGB, 6 RGB and alpha
    std::string sizeText() const { return std::to_string(width) + " x " + std::to_string(height); }
};

/// Read the header alone. Returns the reason of a refusal, empty on success.
std::string readPngHeader(std::span<const std::uint8_t> file, PngHeader& header);

/// Decode a whole file whose header the caller has found good. Grey of 8 and 16 bits and, converted, every
/// other kind as colour. A picture that the file is too short for is refused before memory is taken; a file
/// that is cut short or damaged anywhere is refused. Returns the reason, empty on success. Throws
/// std::bad_alloc.
std::string decodePng(std::span<const std::uint8_t> file, const PngHeader& header, PngPicture& picture);

/// A picture that somebody else holds, as PngPicture has it.
struct PngView {
    int width = 0;
    int height = 0;
    PngKind kind = PngKind::GREY_8;
    std::span<const std::uint8_t> pixels;
};

/// The picture as a PNG file, or nothing when libpng gives up (out of memory). It names this program, so that
/// isOurPng knows it again. Quick rather than small: a save is waited for, and with the level that is the
/// usual one it takes five times as long for a file that is a tenth smaller.
std::optional<std::vector<std::uint8_t>> encodePng(const PngView& picture);

/// Whether the bytes begin as encodePng's do, of which `bytes` may be only the first few.
bool isOurPng(std::span<const std::uint8_t> bytes);
