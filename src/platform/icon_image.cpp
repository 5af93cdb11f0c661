#include "platform/icon_image.h"

#include "platform/byte_reader.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::uint32_t HEADER_SIZE = 40;
constexpr std::int32_t LARGEST_SIDE = 256;

using Colour = std::array<std::uint8_t, 4>; // red, green, blue, alpha
constexpr std::uint8_t FULLY_OPAQUE = 255;

/// The parts of an icon image, all within the data they were read from.
struct IconParts {
    std::size_t width = 0;
    std::size_t height = 0;
    std::size_t bitsPerPixel = 0;
    std::size_t colourStride = 0;
    std::size_t maskStride = 0;
    std::vector<Colour> palette;
    std::span<const std::byte> colours;
    std::span<const std::byte> mask;
};

std::uint8_t byteAt(std::span<const std::byte> bytes, std::size_t index) {
    return std::to_integer<std::uint8_t>(bytes[index]);
}

/// Rows of a bitmap are padded to four bytes.
std::size_t strideOf(std::size_t width, std::size_t bitsPerPixel) {
    return (width * bitsPerPixel + 31) / 32 * 4;
}

bool isSupportedDepth(std::size_t bitsPerPixel) {
    constexpr std::array<std::size_t, 5> DEPTHS = {1, 4, 8, 24, 32};
    return std::ranges::find(DEPTHS, bitsPerPixel) != DEPTHS.end();
}

bool readPalette(CByteReader& reader, IconParts& parts, std::uint32_t coloursUsed) {
    if (parts.bitsPerPixel > 8) {
        reader.skip(std::size_t{coloursUsed} * 4); // a hint for palette displays
        return true;
    }
    const std::size_t most = std::size_t{1} << parts.bitsPerPixel;
    const std::size_t count = coloursUsed == 0 ? most : coloursUsed;
    if (count > most) {
        return false;
    }
    const auto bytes = reader.readBytes(count * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 4) {
        parts.palette.push_back({byteAt(bytes, i + 2), byteAt(bytes, i + 1), byteAt(bytes, i), FULLY_OPAQUE});
    }
    return true;
}

/// Shape and depth; nothing for a form of bitmap that is not supported.
std::optional<IconParts> readHeader(CByteReader& reader) {
    const std::uint32_t size = reader.readU32();
    const std::int32_t width = reader.readI32();
    const std::int32_t doubleHeight = reader.readI32(); // colours and mask
    reader.readU16();                                   // planes
    const std::size_t bitsPerPixel = reader.readU16();
    const std::uint32_t compression = reader.readU32();
    reader.skip(12); // image size, resolution
    const bool sizeFits = width >= 1 && width <= LARGEST_SIDE && doubleHeight >= 2 &&
                          doubleHeight <= 2 * LARGEST_SIDE && doubleHeight % 2 == 0;
    if (size != HEADER_SIZE || compression != 0 || !isSupportedDepth(bitsPerPixel) || !sizeFits) {
        return std::nullopt;
    }
    IconParts parts;
    parts.width = static_cast<std::size_t>(width);
    parts.height = static_cast<std::size_t>(doubleHeight / 2);
    parts.bitsPerPixel = bitsPerPixel;
    parts.colourStride = strideOf(parts.width, bitsPerPixel);
    parts.maskStride = strideOf(parts.width, 1);
    return parts;
}

std::optional<IconParts> readParts(std::span<const std::byte> data) {
    CByteReader reader(data);
    auto parts = readHeader(reader);
    const std::uint32_t coloursUsed = reader.readU32();
    reader.readU32(); // important colours
    if (!parts || !readPalette(reader, *parts, coloursUsed)) {
        return std::nullopt;
    }
    parts->colours = reader.readBytes(parts->colourStride * parts->height);
    parts->mask = reader.readBytes(parts->maskStride * parts->height);
    if (reader.failed()) {
        return std::nullopt;
    }
    return parts;
}

bool isMasked(const IconParts& parts, std::size_t x, std::size_t row) {
    return (byteAt(parts.mask, row * parts.maskStride + x / 8) >> (7 - x % 8) & 1) != 0;
}

/// Nothing when the pixel names a colour that the palette has not.
std::optional<Colour> colourAt(const IconParts& parts, std::size_t x, std::size_t row) {
    const std::size_t bit = x * parts.bitsPerPixel;
    const std::size_t at = row * parts.colourStride + bit / 8;
    if (parts.bitsPerPixel >= 24) {
        const std::uint8_t alpha = parts.bitsPerPixel == 32 ? byteAt(parts.colours, at + 3) : FULLY_OPAQUE;
        return Colour{byteAt(parts.colours, at + 2), byteAt(parts.colours, at + 1), byteAt(parts.colours, at),
                      alpha};
    }
    const std::size_t shift = 8 - parts.bitsPerPixel - bit % 8;
    const std::size_t index =
        std::size_t{byteAt(parts.colours, at)} >> shift & ((std::size_t{1} << parts.bitsPerPixel) - 1);
    if (index >= parts.palette.size()) {
        return std::nullopt;
    }
    return parts.palette[index];
}

bool hasAlpha(const IconParts& parts) {
    if (parts.bitsPerPixel != 32) {
        return false;
    }
    for (std::size_t at = 3; at < parts.colours.size(); at += 4) {
        if (parts.colours[at] != std::byte{0}) {
            return true;
        }
    }
    return false;
}

} // namespace

std::optional<IconImage> readIconImage(std::span<const std::byte> data) {
    const auto parts = readParts(data);
    if (!parts) {
        return std::nullopt;
    }
    const bool alphaFromImage = hasAlpha(*parts);
    IconImage image;
    image.width = static_cast<int>(parts->width);
    image.height = static_cast<int>(parts->height);
    image.pixels.reserve(parts->width * parts->height * 4);
    for (std::size_t row = parts->height; row-- > 0;) {
        for (std::size_t x = 0; x < parts->width; ++x) {
            auto colour = colourAt(*parts, x, row);
            if (!colour) {
                return std::nullopt;
            }
            if (!alphaFromImage) {
                (*colour)[3] = isMasked(*parts, x, row) ? 0 : FULLY_OPAQUE;
            }
            image.pixels.insert(image.pixels.end(), colour->begin(), colour->end());
        }
    }
    return image;
}
