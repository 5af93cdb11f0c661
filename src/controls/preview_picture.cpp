#include "controls/preview_picture.h"

#include "engine/qx_image_file.h"

#include <array>
#include <bit>
#include <cstddef>
#include <vector>

namespace {

constexpr int SQUARE_SHIFT = 4; // squares of 16 by 16 pixels
constexpr std::uint32_t BLACK = 0xFF000000;
constexpr std::uint32_t WHITE = 0xFFFFFFFF;
constexpr unsigned ALPHA_SHIFT = 24;
constexpr std::uint32_t IN_EVERY_CHANNEL = 0x00010101;
constexpr std::uint32_t CHANNEL_MAX = 255;

/// The source index of each of `size` pixels along one side.
std::vector<std::size_t> sourceIndices(int size, int sourceSize, int tiles) {
    std::vector<std::size_t> indices(static_cast<std::size_t>(size));
    for (int i = 0; i < size; ++i) {
        const std::int64_t source = std::int64_t{tiles} * i * sourceSize / size % sourceSize;
        // A negative count repeats the image mirrored instead of reaching outside it.
        indices[static_cast<std::size_t>(i)] = static_cast<std::size_t>(source < 0 ? -source : source);
    }
    return indices;
}

/// A row of the checkerboard, every pixel opaque; row 0 begins black, row 1 white.
std::vector<std::uint32_t> checkerRow(int width, int squareRow) {
    std::vector<std::uint32_t> row(static_cast<std::size_t>(width));
    for (int x = 0; x < width; ++x) {
        row[static_cast<std::size_t>(x)] = (((x >> SQUARE_SHIFT) + squareRow) & 1) != 0 ? WHITE : BLACK;
    }
    return row;
}

void gatherRow(std::uint32_t* row, std::span<const std::size_t> columns, const qxCColour* source) {
    for (std::size_t x = 0; x < columns.size(); ++x) {
        row[x] = std::bit_cast<std::uint32_t>(source[columns[x]]);
    }
}

/// Every channel becomes (channel * alpha + (255 - alpha) * checker) / 255, the top byte the checker's. Alpha
/// is first laid beside every channel, so that the second loop is one operation on bytes throughout.
void blendRow(std::uint32_t* row, std::uint32_t* alphas, const std::uint32_t* checker, std::size_t width) {
    for (std::size_t x = 0; x < width; ++x) {
        alphas[x] = (row[x] >> ALPHA_SHIFT) * IN_EVERY_CHANNEL;
    }
    auto* const channels = reinterpret_cast<std::uint8_t*>(row);
    const auto* const alphaBytes = reinterpret_cast<const std::uint8_t*>(alphas);
    const auto* const checkerBytes = reinterpret_cast<const std::uint8_t*>(checker);
    for (std::size_t i = 0; i < width * sizeof(std::uint32_t); ++i) {
        const unsigned alpha = alphaBytes[i];
        const unsigned product = channels[i] * alpha;
        const unsigned quotient = (product + 1 + (product >> 8U)) >> 8U; // = product / 255 up to 65534
        channels[i] = static_cast<std::uint8_t>(quotient + (checkerBytes[i] & (CHANNEL_MAX - alpha)));
    }
}

} // namespace

bool composePreview(std::span<std::uint32_t> picture, int width, int height, const qxCImageFile& image,
                    int tilesX, int tilesY) {
    if (image.width <= 0 || image.height <= 0) {
        return false;
    }
    const auto sourceWidth = static_cast<std::size_t>(image.width);
    const std::span<const qxCColour> source = image.getPixels();
    if (source.size() < sourceWidth * static_cast<std::size_t>(image.height)) {
        return false; // the size is a public member, the pixels are not
    }
    const std::vector<std::size_t> columns = sourceIndices(width, image.width, tilesX);
    const std::vector<std::size_t> rows = sourceIndices(height, image.height, tilesY);
    const std::array<std::vector<std::uint32_t>, 2> checkers = {checkerRow(width, 0), checkerRow(width, 1)};
    std::vector<std::uint32_t> alphas(columns.size());
    for (std::size_t y = 0; y < rows.size(); ++y) {
        std::uint32_t* const row = picture.data() + y * columns.size();
        gatherRow(row, columns, source.data() + rows[y] * sourceWidth);
        blendRow(row, alphas.data(), checkers[(y >> SQUARE_SHIFT) & 1U].data(), columns.size());
    }
    return true;
}
