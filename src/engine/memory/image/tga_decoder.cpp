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
    /// True colour of 15 or 16 bits.
    bool isWord() const { return kind == KIND_COLOUR && pixelBits <= 16; }
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
        if (offset >= bytes.size())
            return std::nullopt;
        const bool isRepeat = (bytes[offset] & REPEAT) != 0;
        const std::size_t count = std::min<std::size_t>((bytes[offset] & ~REPEAT & 0xFFU) + 1, pixelCount);
        const std::size_t size = 1 + (isRepeat ? pixelSize : count * pixelSize);
        if (bytes.size() - offset < size)
            return std::nullopt;
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
    if (!size || *size > data.size())
        return std::nullopt;
    return data.first(*size);
}

qxCColour colourOfWord(int word, bool hasAlphaBit) {
    const auto channel = [word](int shift) { return (word >> shift & 31) * 255 / 31; };
    return {channel(10), channel(5), channel(0), !hasAlphaBit || (word & 0x8000) != 0 ? 255 : 0};
}

qxCColour mapEntry(const std::uint8_t* bytes, int bits, bool hasAlphaBit) {
    if (bits >= 24)
        return {bytes[2], bytes[1], bytes[0], bits == 32 ? bytes[3] : 255};
    return colourOfWord(bytes[0] | bytes[1] << 8, hasAlphaBit);
}

// The colour map with an entry of 32 bits for every index that a pixel can hold. An index outside the file's
// map has no colour: transparent black.
std::vector<std::uint8_t> wholeMap(const TgaHeader& header, Bytes bytes) {
    constexpr int MOST_ENTRIES = 0xFFFF; // that the header can tell
    const int count = std::min(1 << header.pixelBits, MOST_ENTRIES);
    std::vector<std::uint8_t> map;
    map.reserve(std::size_t{4} * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        qxCColour colour;
        if (i >= header.mapFirst && i - header.mapFirst < header.mapLength) {
            const std::size_t entry =
                static_cast<std::size_t>(i - header.mapFirst) * bytesFor(header.mapBits);
            colour =
                mapEntry(bytes.data() + header.mapOffset() + entry, header.mapBits, header.hasAlphaBit());
        }
        map.insert(map.end(), {colour.b, colour.g, colour.r, colour.a});
    }
    return map;
}

// The same image as a file that the library reads to the last bit. As it stands the library loses the alpha
// bit of 16-bit colours and the first index of a colour map: colours of 16 bits become two plain channels,
// low and high byte, and a map becomes a whole one of 32 bits.
std::vector<std::uint8_t> plainFile(const TgaHeader& header, Bytes bytes, Bytes pixels) {
    const std::vector<std::uint8_t> map =
        header.kind == KIND_MAPPED ? wholeMap(header, bytes) : std::vector<std::uint8_t>();
    const int mapLength = static_cast<int>(map.size() / 4);
    std::vector<std::uint8_t> file(HEADER_SIZE);
    const auto put = [&file](std::size_t offset, int value) {
        file[offset] = static_cast<std::uint8_t>(value);
    };
    put(1, map.empty() ? 0 : 1);
    put(2, (header.isWord() ? KIND_GREY : header.kind) | (header.isPacked ? PACKED : 0));
    put(5, mapLength & 0xFF);
    put(6, mapLength >> 8);
    put(7, map.empty() ? 0 : 32);
    std::copy_n(bytes.begin() + 12, 4, file.begin() + 12); // width and height
    put(16, header.isWord() ? 16 : header.pixelBits);
    put(17, header.descriptor & FROM_TOP);
    file.insert(file.end(), map.begin(), map.end());
    file.insert(file.end(), pixels.begin(), pixels.end());
    return file;
}

// The library's decoding, rows from the top, as a file without a right-to-left order.
std::vector<qxCColour> decodePixels(const TgaHeader& header, Bytes file) {
    const std::size_t channels = header.isWord() ? 2 : 4;
    const std::unique_ptr<std::uint8_t, void (*)(void*)> samples(loadTga(file, static_cast<int>(channels)),
                                                                 freeTga);
    if (!samples)
        return {};
    std::vector<qxCColour> pixels(header.pixelCount());
    const std::uint8_t* sample = samples.get();
    for (qxCColour& pixel : pixels) {
        pixel = header.isWord() ? colourOfWord(sample[0] | sample[1] << 8, header.hasAlphaBit())
                                : qxCColour(sample[0], sample[1], sample[2], sample[3]);
        sample += channels;
    }
    return pixels;
}

} // namespace

std::optional<CDecodedImage> decodeTga(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < HEADER_SIZE)
        return std::nullopt;
    const TgaHeader header(bytes);
    if (!isSupported(header, bytes))
        return std::nullopt;
    const std::optional<Bytes> stored = storedPixels(header, bytes);
    if (!stored)
        return std::nullopt;
    CDecodedImage image{header.width, header.height, decodePixels(header, plainFile(header, bytes, *stored))};
    if (image.pixels.empty())
        return std::nullopt;
    if ((header.descriptor & FROM_RIGHT) != 0) {
        for (auto row = image.pixels.begin(); row != image.pixels.end(); row += header.width)
            std::reverse(row, row + header.width);
    }
    const auto isTransparent = [](const qxCColour& pixel) { return pixel.a == 0; };
    if (!header.declaresAlpha() && std::ranges::all_of(image.pixels, isTransparent)) {
        for (qxCColour& pixel : image.pixels)
            pixel.a = 255;
    }
    return image;
}
