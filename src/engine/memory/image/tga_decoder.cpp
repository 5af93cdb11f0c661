#include "engine/memory/image/tga_decoder.h"

#include "engine/qx_image_file.h"

#include <algorithm>

namespace {

using Bytes = std::span<const std::uint8_t>;

constexpr std::size_t HEADER_SIZE = 18;
constexpr int KIND_MAPPED = 1;
constexpr int KIND_COLOUR = 2;
constexpr int KIND_GREY = 3;
constexpr int PACKED = 8;
constexpr int FROM_RIGHT = 0x10;
constexpr int FROM_TOP = 0x20;
constexpr int INTERLEAVED = 0xC0;
constexpr int ALPHA_BITS = 0x0F;
constexpr std::uint8_t REPEAT = 0x80;

int wordAt(Bytes bytes, std::size_t offset) {
    return bytes[offset] | bytes[offset + 1] << 8;
}

std::size_t bytesFor(int bits) {
    return static_cast<std::size_t>(bits + 7) / 8;
}

struct TgaHeader {
    int idLength;
    bool hasMap;
    int kind;
    bool isPacked;
    int mapFirst;
    int mapLength;
    int mapBits;
    int width;
    int height;
    int pixelBits;
    int descriptor;

    explicit TgaHeader(Bytes bytes)
        : idLength(bytes[0])
        , hasMap(bytes[1] == 1)
        , kind(bytes[2] & ~PACKED)
        , isPacked((bytes[2] & PACKED) != 0)
        , mapFirst(wordAt(bytes, 3))
        , mapLength(wordAt(bytes, 5))
        , mapBits(bytes[7])
        , width(wordAt(bytes, 12))
        , height(wordAt(bytes, 14))
        , pixelBits(bytes[16])
        , descriptor(bytes[17]) {}

    std::size_t pixelCount() const {
        return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    }
    std::size_t mapOffset() const { return HEADER_SIZE + static_cast<std::size_t>(idLength); }
    std::size_t pixelOffset() const {
        return mapOffset() + (hasMap ? static_cast<std::size_t>(mapLength) * bytesFor(mapBits) : 0);
    }
    bool declaresAlpha() const { return (descriptor & ALPHA_BITS) != 0; }
};

bool isColourDepth(int bits) {
    return bits == 15 || bits == 16 || bits == 24 || bits == 32;
}

bool isKnownKind(const TgaHeader& header) {
    const bool isIndexDepth = header.pixelBits == 8 || header.pixelBits == 16;
    switch (header.kind) {
    case KIND_MAPPED:
        return isIndexDepth && header.hasMap && header.mapLength > 0 && isColourDepth(header.mapBits);
    case KIND_COLOUR:
        return isColourDepth(header.pixelBits);
    case KIND_GREY:
        return isIndexDepth;
    default:
        return false;
    }
}

bool isSupported(const TgaHeader& header, Bytes bytes) {
    return bytes[1] <= 1 && isKnownKind(header) && (header.descriptor & INTERLEAVED) == 0 &&
           header.width > 0 && header.height > 0 && header.width <= qxCImageFile::MAX_EDGE &&
           header.height <= qxCImageFile::MAX_EDGE && header.pixelOffset() <= bytes.size();
}

qxCColour colourAt(const std::uint8_t* bytes, int bits, bool hasAlphaBit) {
    if (bits >= 24)
        return {bytes[2], bytes[1], bytes[0], bits == 32 ? bytes[3] : 255};
    const int word = bytes[0] | bytes[1] << 8;
    const auto channel = [word](int shift) { return (word >> shift & 31) * 255 / 31; };
    const bool isOpaque = bits == 15 || !hasAlphaBit || (word & 0x8000) != 0;
    return {channel(10), channel(5), channel(0), isOpaque ? 255 : 0};
}

// Turns the bytes of one pixel into its colour.
class CPixelReader {
public:
    CPixelReader(const TgaHeader& header, Bytes bytes) : m_header(header) {
        if (header.kind != KIND_MAPPED)
            return;
        const std::size_t entrySize = bytesFor(header.mapBits);
        const std::uint8_t* entry = bytes.data() + header.mapOffset();
        for (int i = 0; i < header.mapLength; ++i, entry += entrySize)
            m_map.push_back(colourAt(entry, header.mapBits, header.declaresAlpha()));
    }

    qxCColour operator()(const std::uint8_t* bytes) const {
        switch (m_header.kind) {
        case KIND_MAPPED:
            return mapped(bytes);
        case KIND_GREY:
            return {bytes[0], bytes[0], bytes[0], m_header.pixelBits == 16 ? bytes[1] : 255};
        default:
            return colourAt(bytes, m_header.pixelBits, m_header.declaresAlpha());
        }
    }

private:
    // An index outside the map has no colour: transparent black.
    qxCColour mapped(const std::uint8_t* bytes) const {
        const int index =
            (m_header.pixelBits == 16 ? bytes[0] | bytes[1] << 8 : bytes[0]) - m_header.mapFirst;
        return index >= 0 && index < m_header.mapLength ? m_map[static_cast<std::size_t>(index)]
                                                        : qxCColour();
    }

    const TgaHeader& m_header;
    std::vector<qxCColour> m_map;
};

// Calls visit(bytes, count, isRepeat) for each packet, clipped to the pixels that are missing. False when the
// bytes end before the image does.
template <class Visit>
bool walkPackets(Bytes bytes, std::size_t pixelCount, std::size_t pixelSize, Visit visit) {
    while (pixelCount > 0) {
        if (bytes.empty())
            return false;
        const bool isRepeat = (bytes[0] & REPEAT) != 0;
        const std::size_t count = std::min<std::size_t>((bytes[0] & ~REPEAT & 0xFFU) + 1, pixelCount);
        const std::size_t size = 1 + (isRepeat ? pixelSize : count * pixelSize);
        if (bytes.size() < size)
            return false;
        visit(bytes.data() + 1, count, isRepeat);
        bytes = bytes.subspan(size);
        pixelCount -= count;
    }
    return true;
}

bool holdsAllPixels(const TgaHeader& header, Bytes data) {
    const std::size_t pixelSize = bytesFor(header.pixelBits);
    if (!header.isPacked)
        return data.size() / pixelSize >= header.pixelCount();
    return walkPackets(data, header.pixelCount(), pixelSize, [](const std::uint8_t*, std::size_t, bool) {});
}

std::vector<qxCColour> readPixels(const TgaHeader& header, Bytes data, const CPixelReader& read) {
    const std::size_t pixelSize = bytesFor(header.pixelBits);
    std::vector<qxCColour> pixels;
    pixels.reserve(header.pixelCount());
    const auto readRun = [&](const std::uint8_t* bytes, std::size_t count, bool isRepeat) {
        if (isRepeat) {
            pixels.insert(pixels.end(), count, read(bytes));
            return;
        }
        for (std::size_t i = 0; i < count; ++i)
            pixels.push_back(read(bytes + i * pixelSize));
    };
    if (header.isPacked)
        walkPackets(data, header.pixelCount(), pixelSize, readRun);
    else
        readRun(data.data(), header.pixelCount(), false);
    return pixels;
}

void turnUpright(const TgaHeader& header, std::vector<qxCColour>& pixels) {
    const bool isFlipped = (header.descriptor & FROM_TOP) == 0;
    const bool isMirrored = (header.descriptor & FROM_RIGHT) != 0;
    if (isFlipped)
        std::ranges::reverse(pixels);
    // Turning the whole array round mirrors its rows as well.
    if (isFlipped == isMirrored)
        return;
    for (auto row = pixels.begin(); row != pixels.end(); row += header.width)
        std::reverse(row, row + header.width);
}

} // namespace

std::optional<CDecodedImage> decodeTga(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < HEADER_SIZE)
        return std::nullopt;
    const TgaHeader header(bytes);
    if (!isSupported(header, bytes))
        return std::nullopt;
    const Bytes data = bytes.subspan(header.pixelOffset());
    if (!holdsAllPixels(header, data))
        return std::nullopt;
    CDecodedImage image;
    image.width = header.width;
    image.height = header.height;
    image.pixels = readPixels(header, data, CPixelReader(header, bytes));
    turnUpright(header, image.pixels);
    const auto isTransparent = [](const qxCColour& pixel) { return pixel.a == 0; };
    if (!header.declaresAlpha() && std::ranges::all_of(image.pixels, isTransparent)) {
        for (qxCColour& pixel : image.pixels)
            pixel.a = 255;
    }
    return image;
}
