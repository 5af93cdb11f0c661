#include "platform/icon_image.h"

#include "platform/byte_reader.h"

namespace {

constexpr std::uint32_t HEADER_SIZE = 40;
constexpr std::int32_t LARGEST_SIDE = 256;
constexpr std::size_t COLOURS = 16;

/// Rows of a bitmap are padded to four bytes.
std::size_t strideOf(std::size_t width, std::size_t bitsPerPixel) {
    return (width * bitsPerPixel + 31) / 32 * 4;
}

std::uint8_t byteAt(std::span<const std::byte> bytes, std::size_t index) {
    return std::to_integer<std::uint8_t>(bytes[index]);
}

/// Whether the header is one of the form, with the size in `image`.
bool readHeader(CByteReader& reader, IconImage& image) {
    const std::uint32_t size = reader.readU32();
    const std::int32_t width = reader.readI32();
    const std::int32_t doubleHeight = reader.readI32(); // colours and mask
    reader.readU16();                                   // planes
    const std::uint32_t bitsPerPixel = reader.readU16();
    const std::uint32_t compression = reader.readU32();
    reader.skip(12); // image size, resolution
    const std::uint32_t coloursUsed = reader.readU32();
    reader.readU32(); // important colours
    image.width = width;
    image.height = doubleHeight / 2;
    return size == HEADER_SIZE && width >= 1 && width <= LARGEST_SIDE && doubleHeight >= 2 &&
           doubleHeight <= 2 * LARGEST_SIDE && doubleHeight % 2 == 0 && bitsPerPixel == 4 &&
           compression == 0 && (coloursUsed == 0 || coloursUsed == COLOURS);
}

} // namespace

std::optional<IconImage> readIconImage(std::span<const std::byte> data) {
    CByteReader reader(data);
    IconImage image;
    if (!readHeader(reader, image)) {
        return std::nullopt;
    }
    const auto width = static_cast<std::size_t>(image.width);
    const auto height = static_cast<std::size_t>(image.height);
    const std::size_t colourStride = strideOf(width, 4);
    const std::size_t maskStride = strideOf(width, 1);
    const auto palette = reader.readBytes(COLOURS * 4); // blue, green, red, nothing
    const auto colours = reader.readBytes(colourStride * height);
    const auto mask = reader.readBytes(maskStride * height);
    if (reader.failed()) {
        return std::nullopt;
    }
    image.pixels.reserve(width * height * 4);
    for (std::size_t row = height; row-- > 0;) {
        for (std::size_t x = 0; x < width; ++x) {
            const std::uint8_t pair = byteAt(colours, row * colourStride + x / 2);
            const std::size_t entry = std::size_t{x % 2 == 0 ? pair >> 4U : pair & 0xFU} * 4;
            const bool isMasked = (byteAt(mask, row * maskStride + x / 8) >> (7 - x % 8) & 1) != 0;
            for (const std::size_t channel : {2U, 1U, 0U}) {
                image.pixels.push_back(byteAt(palette, entry + channel));
            }
            image.pixels.push_back(isMasked ? 0 : 255);
        }
    }
    return image;
}
