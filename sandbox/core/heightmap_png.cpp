#include "sandbox/core/heightmap_png.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <bit>
#include <csetjmp>
#include <cstring>
#include <new>

namespace {

constexpr std::array<std::uint8_t, 8> SIGNATURE{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr std::size_t CHUNK_FRAME = 12; // length, type and checksum around a chunk's data
constexpr std::size_t HEADER_SIZE = 13;
constexpr std::uint64_t DEFLATE_MAX_RATIO = 1032; // RFC 1951: 258 bytes from two bits at best
constexpr const char* ENDS_EARLY = "the file ends early";

struct PictureHeader {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    int bitDepth = 0;
    int colourType = 0;

    std::uint64_t rowBytes() const { return std::uint64_t{width} * static_cast<unsigned>(bitDepth / 8); }
    std::string sizeText() const { return std::to_string(width) + " x " + std::to_string(height); }
};

std::uint32_t readBigEndian(std::span<const std::uint8_t> bytes) {
    return std::uint32_t{bytes[0]} << 24U | std::uint32_t{bytes[1]} << 16U | std::uint32_t{bytes[2]} << 8U |
           std::uint32_t{bytes[3]};
}

bool hasType(std::span<const std::uint8_t> chunk, const char* type) {
    return std::memcmp(chunk.data() + 4, type, 4) == 0;
}

/// Total length of the compressed picture data; stops at the first chunk that does not fit the file.
std::uint64_t pictureDataLength(std::span<const std::uint8_t> chunks) {
    std::uint64_t total = 0;
    while (chunks.size() >= CHUNK_FRAME) {
        const std::size_t length = readBigEndian(chunks);
        if (length > chunks.size() - CHUNK_FRAME) {
            break;
        }
        if (hasType(chunks, "IDAT")) {
            total += length;
        }
        chunks = chunks.subspan(CHUNK_FRAME + length);
    }
    return total;
}

std::string checkHeader(const PictureHeader& header, std::uint64_t dataLength) {
    if (header.colourType != PNG_COLOR_TYPE_GRAY) {
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
    if (header.rowBytes() * header.height > dataLength * DEFLATE_MAX_RATIO) {
        return "the file is too short for a picture of " + header.sizeText();
    }
    return {};
}

/// Read the header by hand, so that nothing is allocated for a picture that will be refused. Returns the
/// reason for a refusal, empty when the picture may be decoded.
std::string examine(std::span<const std::uint8_t> file, PictureHeader& header) {
    const std::size_t known = std::min(file.size(), SIGNATURE.size());
    if (file.empty() ||
        !std::equal(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(known), SIGNATURE.begin())) {
        return "it is not a PNG file";
    }
    if (file.size() < SIGNATURE.size() + CHUNK_FRAME + HEADER_SIZE) {
        return ENDS_EARLY;
    }
    const auto chunk = file.subspan(SIGNATURE.size());
    if (readBigEndian(chunk) != HEADER_SIZE || !hasType(chunk, "IHDR")) {
        return "it is not a PNG file";
    }
    header.width = readBigEndian(chunk.subspan(8));
    header.height = readBigEndian(chunk.subspan(12));
    header.bitDepth = chunk[16];
    header.colourType = chunk[17];
    return checkHeader(header, pictureDataLength(chunk));
}

struct ErrorText {
    std::array<char, 160> text{};
};

[[noreturn]] void onError(png_structp png, png_const_charp message) {
    auto* error = static_cast<ErrorText*>(png_get_error_ptr(png));
    std::strncpy(error->text.data(), message, error->text.size() - 1);
    png_longjmp(png, 1);
}

void onWarning(png_structp, png_const_charp) {}

void readBytes(png_structp png, png_bytep destination, std::size_t count) {
    auto* rest = static_cast<std::span<const std::uint8_t>*>(png_get_io_ptr(png));
    if (count > rest->size()) {
        png_error(png, ENDS_EARLY);
    }
    std::memcpy(destination, rest->data(), count);
    *rest = rest->subspan(count);
}

/// The part of decoding that libpng may leave by a long jump: nothing in it has a destructor.
bool readPicture(png_structp png, png_infop info, std::uint8_t* pixels, std::size_t rowBytes,
                 png_uint_32 rows) {
    if (setjmp(png_jmpbuf(png)) != 0) {
        return false;
    }
    png_set_user_limits(png, HEIGHTMAP_MAX_EDGE, HEIGHTMAP_MAX_EDGE);
    // Text, profiles and the like are skipped unread: they cannot be used to make the decoder work or grow.
    png_set_keep_unknown_chunks(png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
    png_read_info(png, info);
    if constexpr (std::endian::native == std::endian::little) {
        png_set_swap(png);
    }
    const int passes = png_set_interlace_handling(png);
    png_read_update_info(png, info);
    if (png_get_rowbytes(png, info) != rowBytes || png_get_image_height(png, info) != rows) {
        png_error(png, "the header is repeated");
    }
    for (int pass = 0; pass < passes; ++pass) {
        for (png_uint_32 row = 0; row < rows; ++row) {
            png_read_row(png, pixels + rowBytes * row, nullptr);
        }
    }
    png_read_end(png, nullptr);
    return true;
}

std::string decodePixels(std::span<const std::uint8_t> file, const PictureHeader& header,
                         std::vector<std::uint8_t>& pixels) {
    ErrorText error;
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &error, onError, onWarning);
    png_infop info = png != nullptr ? png_create_info_struct(png) : nullptr;
    if (info == nullptr) {
        png_destroy_read_struct(&png, nullptr, nullptr);
        return "there is not enough memory";
    }
    png_set_read_fn(png, &file, readBytes);
    const auto rowBytes = static_cast<std::size_t>(header.rowBytes());
    pixels.resize(rowBytes * header.height);
    const bool decoded = readPicture(png, info, pixels.data(), rowBytes, header.height);
    png_destroy_read_struct(&png, &info, nullptr);
    if (decoded) {
        return {};
    }
    return std::strcmp(error.text.data(), ENDS_EARLY) == 0
               ? ENDS_EARLY
               : std::string("the file is damaged: ") + error.text.data();
}

Heightmap takeMiddleSquare(const PictureHeader& header, const std::vector<std::uint8_t>& pixels) {
    const std::size_t edge = std::min(header.width, header.height);
    const std::size_t left = (header.width - edge) / 2;
    const std::size_t top = (header.height - edge) / 2;
    const auto rowBytes = static_cast<std::size_t>(header.rowBytes());
    Heightmap map{static_cast<int>(edge), std::vector<std::uint16_t>(edge * edge)};
    for (std::size_t row = 0; row < edge; ++row) {
        const std::uint8_t* source = pixels.data() + (top + row) * rowBytes;
        std::uint16_t* target = map.heights.data() + row * edge;
        if (header.bitDepth == 16) {
            std::memcpy(target, source + left * 2, edge * 2);
        } else {
            std::copy_n(source + left, edge, target);
        }
    }
    return map;
}

void appendBytes(png_structp png, png_bytep source, std::size_t count) {
    auto* file = static_cast<std::vector<std::uint8_t>*>(png_get_io_ptr(png));
    bool appended = true;
    try {
        file->insert(file->end(), source, source + count);
    } catch (const std::bad_alloc&) {
        appended =
            false; // an exception must not pass through libpng's frames, nor a long jump leave a handler
    }
    if (!appended) {
        png_error(png, "out of memory");
    }
}

bool writePicture(png_structp png, png_infop info, const std::uint16_t* heights, std::size_t edge) {
    if (setjmp(png_jmpbuf(png)) != 0) {
        return false;
    }
    const auto size = static_cast<png_uint_32>(edge);
    png_set_IHDR(png, info, size, size, 16, PNG_COLOR_TYPE_GRAY, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_SUB | PNG_FILTER_UP | PNG_FILTER_PAETH);
    png_write_info(png, info);
    if constexpr (std::endian::native == std::endian::little) {
        png_set_swap(png);
    }
    for (std::size_t row = 0; row < edge; ++row) {
        png_write_row(png, reinterpret_cast<png_const_bytep>(heights + row * edge));
    }
    png_write_end(png, nullptr);
    return true;
}

} // namespace

HeightmapReading decodeHeightmap(std::span<const std::uint8_t> file) {
    HeightmapReading reading;
    PictureHeader header;
    reading.error = examine(file, header);
    if (!reading.error.empty()) {
        return reading;
    }
    std::vector<std::uint8_t> pixels;
    reading.error = decodePixels(file, header, pixels);
    if (!reading.error.empty()) {
        return reading;
    }
    reading.pictureWidth = static_cast<int>(header.width);
    reading.pictureHeight = static_cast<int>(header.height);
    reading.pictureBits = header.bitDepth;
    reading.map = takeMiddleSquare(header, pixels);
    return reading;
}

std::optional<std::vector<std::uint8_t>> encodeHeightmap(const Heightmap& map) {
    ErrorText error;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, &error, onError, onWarning);
    png_infop info = png != nullptr ? png_create_info_struct(png) : nullptr;
    if (info == nullptr) {
        png_destroy_write_struct(&png, nullptr);
        return std::nullopt;
    }
    std::vector<std::uint8_t> file;
    png_set_write_fn(png, &file, appendBytes, [](png_structp) {});
    const bool written = writePicture(png, info, map.heights.data(), static_cast<std::size_t>(map.edge));
    png_destroy_write_struct(&png, &info);
    return written ? std::optional(std::move(file)) : std::nullopt;
}
