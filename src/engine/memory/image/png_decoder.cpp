#include "engine/memory/image/png_decoder.h"

#include "engine/qx_image_file.h"

#include <algorithm>
#include <array>

#include <png.h>

namespace {

// The signature and the length and type of the header chunk, which must come first.
constexpr std::array<std::uint8_t, 16> START = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n',
                                                0,    0,   0,   13,  'I',  'H',  'D',  'R'};
constexpr std::size_t OFFSET_DEPTH = 24;
constexpr std::size_t OFFSET_COLOUR_TYPE = 25;
constexpr std::size_t HEADER_SIZE = 33;

// No deflate stream grows by more than this factor.
constexpr std::uint64_t MAX_INFLATION = 1032;

std::uint64_t channelsOf(std::uint8_t colourType) {
    const bool isPalette = (colourType & PNG_COLOR_MASK_PALETTE) != 0;
    const bool isColour = (colourType & PNG_COLOR_MASK_COLOR) != 0 && !isPalette;
    const bool hasAlpha = (colourType & PNG_COLOR_MASK_ALPHA) != 0;
    return (isColour ? 3U : 1U) + (hasAlpha ? 1U : 0U);
}

bool canHold(std::span<const std::uint8_t> bytes, std::uint64_t width, std::uint64_t height) {
    const std::uint64_t bitsPerPixel = bytes[OFFSET_DEPTH] * channelsOf(bytes[OFFSET_COLOUR_TYPE]);
    const std::uint64_t rowSize = 1 + (width * bitsPerPixel + 7) / 8;
    return rowSize * height <= bytes.size() * MAX_INFLATION;
}

// Frees what libpng holds for a decoding that was broken off.
struct PngImage : png_image {
    PngImage() : png_image() { version = PNG_IMAGE_VERSION; }
    ~PngImage() { png_image_free(this); }
    PngImage(const PngImage&) = delete;
    PngImage& operator=(const PngImage&) = delete;
};

} // namespace

bool isPng(std::span<const std::uint8_t> bytes) {
    return bytes.size() >= HEADER_SIZE && std::ranges::equal(bytes.first(START.size()), START);
}

std::optional<DecodedImage> decodePng(std::span<const std::uint8_t> bytes) {
    PngImage image;
    if (png_image_begin_read_from_memory(&image, bytes.data(), bytes.size()) == 0) {
        return std::nullopt;
    }
    constexpr auto MAX_EDGE = static_cast<png_uint_32>(qxCImageFile::MAX_EDGE);
    if (image.width > MAX_EDGE || image.height > MAX_EDGE || !canHold(bytes, image.width, image.height)) {
        return std::nullopt;
    }
    // Blue, green, red, alpha bytes are the layout of qxCColour. Samples of 16 bits are colour values like
    // those of eight bits, not linear light.
    image.format = PNG_FORMAT_BGRA;
    image.flags |= PNG_IMAGE_FLAG_16BIT_sRGB;
    DecodedImage result;
    result.width = static_cast<int>(image.width);
    result.height = static_cast<int>(image.height);
    result.pixels.resize(std::size_t{image.width} * image.height);
    if (png_image_finish_read(&image, nullptr, result.pixels.data(), 0, nullptr) == 0) {
        return std::nullopt;
    }
    return result;
}
