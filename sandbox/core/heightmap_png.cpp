#include "sandbox/core/heightmap_png.h"

#include "sandbox/core/png_picture.h"

#include <algorithm>

namespace {

constexpr int GREY = 0; // of PngHeader::colourType

std::string checkHeader(const PngHeader& header) {
    if (header.colourType != GREY) {
        return "the picture is not plain grey; a heightmap is grey with 8 or 16 bits a pixel";
    }
    if (header.bitDepth != 8 && header.bitDepth != 16) {
        return "the picture has " + std::to_string(header.bitDepth) +
               " bits a pixel; a heightmap has 8 or 16";
    }
    if (std::max(header.width, header.height) > static_cast<std::uint32_t>(HEIGHTMAP_MAX_EDGE)) {
        const std::string most = std::to_string(HEIGHTMAP_MAX_EDGE);
        return "the picture is " + header.sizeText() + "; at most " + most + " x " + most + " can be opened";
    }
    if (std::min(header.width, header.height) < 2) {
        return "the picture is " + header.sizeText() + "; a map has at least 2 x 2 points";
    }
    return {};
}

Heightmap takeMiddleSquare(const PngPicture& picture) {
    const auto width = static_cast<std::size_t>(picture.width);
    const auto height = static_cast<std::size_t>(picture.height);
    const std::size_t edge = std::min(width, height);
    const std::size_t left = (width - edge) / 2;
    const std::size_t top = (height - edge) / 2;
    Heightmap map{static_cast<int>(edge), {}};
    map.heights.reserve(edge * edge);
    for (std::size_t row = 0; row < edge; ++row) {
        const std::size_t first = (top + row) * width + left;
        const std::uint8_t* const pixels = picture.pixels.data();
        if (picture.kind == PngKind::GREY_16) {
            const auto* const source = reinterpret_cast<const std::uint16_t*>(pixels) + first;
            map.heights.insert(map.heights.end(), source, source + edge);
        } else {
            map.heights.insert(map.heights.end(), pixels + first, pixels + first + edge);
        }
    }
    return map;
}

} // namespace

HeightmapReading decodeHeightmap(std::span<const std::uint8_t> file) {
    HeightmapReading reading;
    PngHeader header;
    reading.error = readPngHeader(file, header);
    if (reading.error.empty()) {
        reading.error = checkHeader(header);
    }
    PngPicture picture;
    if (reading.error.empty()) {
        reading.error = decodePng(file, header, picture);
    }
    if (!reading.error.empty()) {
        return reading;
    }
    reading.pictureWidth = picture.width;
    reading.pictureHeight = picture.height;
    reading.pictureBits = header.bitDepth;
    reading.map = takeMiddleSquare(picture);
    return reading;
}

std::optional<std::vector<std::uint8_t>> encodeHeightmap(int edge, std::span<const std::uint16_t> heights,
                                                         HeightmapBits bits) {
    if (bits == HeightmapBits::SIXTEEN) {
        const auto* const bytes = reinterpret_cast<const std::uint8_t*>(heights.data());
        return encodePng({edge, edge, PngKind::GREY_16, {bytes, heights.size_bytes()}});
    }
    std::vector<std::uint8_t> pixels(heights.size());
    std::ranges::transform(heights, pixels.begin(),
                           [](std::uint16_t height) { return static_cast<std::uint8_t>(height); });
    return encodePng({edge, edge, PngKind::GREY_8, pixels});
}
