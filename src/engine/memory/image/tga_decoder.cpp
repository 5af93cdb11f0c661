#include "engine/memory/image/tga_decoder.h"

#include "engine/qx_image_file.h"

#include <algorithm>
#include <utility>
#include <vector>

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
    /// The top bit of a 16-bit colour is its alpha.
    bool hasAlphaBit() const { return (kind == KIND_MAPPED ? mapBits : pixelBits) == 16 && declaresAlpha(); }
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

// The pixels that the packets stand for. Nothing when the bytes end before the image does; each packet is
// checked before its pixels are written, so a short file takes no more memory than a packet more than it
// holds.
std::optional<std::vector<std::uint8_t>> unpack(Bytes bytes, std::size_t pixelCount, std::size_t pixelSize) {
    std::vector<std::uint8_t> pixels;
    while (pixels.size() < pixelCount * pixelSize) {
        if (bytes.empty()) {
            return std::nullopt;
        }
        const bool isRepeat = (bytes[0] & REPEAT) != 0;
        const std::size_t left = pixelCount - pixels.size() / pixelSize;
        const std::size_t count = std::min<std::size_t>((bytes[0] & ~REPEAT & 0xFFU) + 1, left);
        const std::size_t stored = isRepeat ? pixelSize : count * pixelSize;
        if (bytes.size() <= stored) {
            return std::nullopt;
        }
        for (std::size_t i = 0; i < count * pixelSize; ++i) {
            pixels.push_back(bytes[1 + i % stored]);
        }
        bytes = bytes.subspan(1 + stored);
    }
    return pixels;
}

qxCColour colourOfWord(int word, bool hasAlphaBit) {
    const auto channel = [word](int shift) { return (word >> shift & 31) * 255 / 31; };
    return {channel(10), channel(5), channel(0), !hasAlphaBit || (word & 0x8000) != 0 ? 255 : 0};
}

std::vector<qxCColour> colourMap(const TgaHeader& header, Bytes bytes) {
    std::vector<qxCColour> map;
    if (header.kind != KIND_MAPPED) {
        return map;
    }
    map.reserve(static_cast<std::size_t>(header.mapLength));
    const std::uint8_t* entry = bytes.data() + header.mapOffset();
    for (int i = 0; i < header.mapLength; ++i, entry += bytesFor(header.mapBits)) {
        map.push_back(header.mapBits <= 16
                          ? colourOfWord(entry[0] | entry[1] << 8, header.hasAlphaBit())
                          : qxCColour(entry[2], entry[1], entry[0], header.mapBits == 32 ? entry[3] : 255));
    }
    return map;
}

// The colour of a pixel from its stored bytes.
class CPixelReader {
public:
    CPixelReader(const TgaHeader& header, Bytes bytes) : m_header(header), m_map(colourMap(header, bytes)) {}

    qxCColour operator()(const std::uint8_t* bytes) const {
        if (m_header.kind == KIND_MAPPED) {
            return mapped(m_header.pixelBits == 16 ? bytes[0] | bytes[1] << 8 : bytes[0]);
        }
        switch (bytesFor(m_header.pixelBits)) {
        case 1:
            return {bytes[0], bytes[0], bytes[0], 255};
        case 2:
            return m_header.kind == KIND_GREY
                       ? qxCColour(bytes[0], bytes[0], bytes[0], bytes[1])
                       : colourOfWord(bytes[0] | bytes[1] << 8, m_header.hasAlphaBit());
        case 3:
            return {bytes[2], bytes[1], bytes[0], 255};
        default:
            return {bytes[2], bytes[1], bytes[0], bytes[3]};
        }
    }

private:
    // An index outside the map has no colour: transparent black.
    qxCColour mapped(int index) const {
        const int entry = index - m_header.mapFirst;
        return entry >= 0 && entry < m_header.mapLength ? m_map[static_cast<std::size_t>(entry)]
                                                        : qxCColour();
    }

    const TgaHeader& m_header;
    std::vector<qxCColour> m_map;
};

std::vector<qxCColour> readPixels(const TgaHeader& header, Bytes bytes, Bytes stored) {
    const CPixelReader read(header, bytes);
    const std::size_t size = bytesFor(header.pixelBits);
    std::vector<qxCColour> pixels(header.pixelCount());
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        pixels[i] = read(&stored[i * size]);
    }
    return pixels;
}

// Nothing when the pixels are not all there.
std::optional<std::vector<qxCColour>> decodePixels(const TgaHeader& header, Bytes bytes) {
    const Bytes data = bytes.subspan(header.pixelOffset());
    const std::size_t pixelSize = bytesFor(header.pixelBits);
    if (header.isPacked) {
        const auto unpacked = unpack(data, header.pixelCount(), pixelSize);
        return unpacked ? std::optional(readPixels(header, bytes, *unpacked)) : std::nullopt;
    }
    return data.size() >= header.pixelCount() * pixelSize ? std::optional(readPixels(header, bytes, data))
                                                          : std::nullopt;
}

// From the file's order of rows and pixels to rows from the top, pixels from the left.
void turn(const TgaHeader& header, std::vector<qxCColour>& pixels) {
    if ((header.descriptor & FROM_RIGHT) != 0) {
        for (auto row = pixels.begin(); row != pixels.end(); row += header.width) {
            std::reverse(row, row + header.width);
        }
    }
    if ((header.descriptor & FROM_TOP) == 0) {
        auto top = pixels.begin();
        for (auto bottom = pixels.end() - header.width; top < bottom; top += header.width) {
            std::swap_ranges(top, top + header.width, bottom);
            bottom -= header.width;
        }
    }
}

} // namespace

std::optional<DecodedImage> decodeTga(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < HEADER_SIZE) {
        return std::nullopt;
    }
    const TgaHeader header(bytes);
    if (!isSupported(header, bytes)) {
        return std::nullopt;
    }
    std::optional<std::vector<qxCColour>> pixels = decodePixels(header, bytes);
    if (!pixels) {
        return std::nullopt;
    }
    turn(header, *pixels);
    const auto isTransparent = [](const qxCColour& pixel) { return pixel.a == 0; };
    if (!header.declaresAlpha() && std::ranges::all_of(*pixels, isTransparent)) {
        for (qxCColour& pixel : *pixels) {
            pixel.a = 255;
        }
    }
    return DecodedImage{header.width, header.height, std::move(*pixels)};
}
