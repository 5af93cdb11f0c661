#include "engine/memory/image/tga_decoder.h"

#include "engine/memory/image/tga_library.h"
#include "engine/qx_image_file.h"

#include <algorithm>
#include <memory>

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

// Bytes that the image's packets take. Nothing when the bytes end before the image does.
std::optional<std::size_t> packedSize(Bytes bytes, std::size_t pixelCount, std::size_t pixelSize) {
    std::size_t offset = 0;
    while (pixelCount > 0) {
        if (offset >= bytes.size()) {
            return std::nullopt;
        }
        const bool isRepeat = (bytes[offset] & REPEAT) != 0;
        const std::size_t count = std::min<std::size_t>((bytes[offset] & ~REPEAT & 0xFFU) + 1, pixelCount);
        const std::size_t size = 1 + (isRepeat ? pixelSize : count * pixelSize);
        if (bytes.size() - offset < size) {
            return std::nullopt;
        }
        offset += size;
        pixelCount -= count;
    }
    return offset;
}

// The stored pixels, packed or not, without what follows them. Nothing when they are not all there.
std::optional<Bytes> storedPixels(const TgaHeader& header, Bytes bytes) {
    const Bytes data = bytes.subspan(header.pixelOffset());
    const std::size_t pixelSize = bytesFor(header.pixelBits);
    const std::optional<std::size_t> size =
        header.isPacked ? packedSize(data, header.pixelCount(), pixelSize) : header.pixelCount() * pixelSize;
    if (!size || *size > data.size()) {
        return std::nullopt;
    }
    return data.first(*size);
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

// The same image as a file that the library reads to the last bit. As it stands the library loses the alpha
// bit of 16-bit colours and the first index of a colour map, so words and indices are handed to it as plain
// greys of one or two channels: what it unpacks then are the bytes as they were stored.
std::vector<std::uint8_t> plainFile(const TgaHeader& header, Bytes bytes, Bytes pixels) {
    std::vector<std::uint8_t> file(HEADER_SIZE);
    const std::size_t size = bytesFor(header.pixelBits);
    file[2] =
        static_cast<std::uint8_t>((size <= 2 ? KIND_GREY : KIND_COLOUR) | (header.isPacked ? PACKED : 0));
    std::copy_n(bytes.begin() + 12, 4, file.begin() + 12); // width and height
    file[16] = static_cast<std::uint8_t>(8 * size);
    file[17] = static_cast<std::uint8_t>(header.descriptor & FROM_TOP);
    file.insert(file.end(), pixels.begin(), pixels.end());
    return file;
}

// The colour of a pixel as the library gives it: its stored bytes, with blue and red changed over from three
// bytes on.
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
            return {bytes[0], bytes[1], bytes[2], 255};
        default:
            return {bytes[0], bytes[1], bytes[2], bytes[3]};
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

// Rows from the top, still in the file's order from left or right.
std::vector<qxCColour> decodePixels(const TgaHeader& header, Bytes file, const CPixelReader& read) {
    const std::size_t size = bytesFor(header.pixelBits);
    const std::unique_ptr<std::uint8_t, void (*)(void*)> samples(loadTga(file, static_cast<int>(size)),
                                                                 freeTga);
    if (!samples) {
        return {};
    }
    std::vector<qxCColour> pixels(header.pixelCount());
    const std::uint8_t* sample = samples.get();
    for (qxCColour& pixel : pixels) {
        pixel = read(sample);
        sample += size;
    }
    return pixels;
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
    const std::optional<Bytes> stored = storedPixels(header, bytes);
    if (!stored) {
        return std::nullopt;
    }
    DecodedImage image{header.width, header.height,
                       decodePixels(header, plainFile(header, bytes, *stored), CPixelReader(header, bytes))};
    if (image.pixels.empty()) {
        return std::nullopt;
    }
    if ((header.descriptor & FROM_RIGHT) != 0) {
        for (auto row = image.pixels.begin(); row != image.pixels.end(); row += header.width) {
            std::reverse(row, row + header.width);
        }
    }
    const auto isTransparent = [](const qxCColour& pixel) { return pixel.a == 0; };
    if (!header.declaresAlpha() && std::ranges::all_of(image.pixels, isTransparent)) {
        for (qxCColour& pixel : image.pixels) {
            pixel.a = 255;
        }
    }
    return image;
}
