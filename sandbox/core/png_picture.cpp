#include "sandbox/core/png_picture.h"

#include "sandbox/core/long_work.h"

#include <png.h>

#include <algorithm>
#include <array>
#include <bit>
#include <csetjmp>
#include <cstring>
#include <new>
#include <string_view>

namespace {

constexpr std::array<std::uint8_t, 8> SIGNATURE{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr std::size_t CHUNK_FRAME = 12; // length, type and checksum around a chunk's data
constexpr std::size_t HEADER_SIZE = 13;
constexpr std::uint64_t DEFLATE_MAX_RATIO = 1032; // RFC 1951: 258 bytes from two bits at best
constexpr int LEVEL = 2;                          // of 9
constexpr const char* ENDS_EARLY = "the file ends early";
constexpr const char* CALLED_OFF = "it was called off";
constexpr const char* NO_MEMORY = "there is not enough memory";
constexpr std::string_view PROGRAM_KEY = "Software";
constexpr std::string_view PROGRAM = "veskutil sandbox";

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

PngKind kindOf(const PngHeader& header) {
    if (header.colourType == PNG_COLOR_TYPE_GRAY && header.bitDepth >= 8) {
        return header.bitDepth == 16 ? PngKind::GREY_16 : PngKind::GREY_8;
    }
    return PngKind::COLOUR;
}

std::size_t pixelBytes(PngKind kind) {
    switch (kind) {
    case PngKind::GREY_8:
        return 1;
    case PngKind::GREY_16:
        return 2;
    default:
        return 4;
    }
}

template <class Picture> std::size_t rowBytesOf(const Picture& picture) {
    return static_cast<std::size_t>(picture.width) * pixelBytes(picture.kind);
}

/// The least that a picture's rows come to before they are compressed: a byte for its filter, then its bits.
std::uint64_t leastData(const PngHeader& header) {
    constexpr std::array<std::uint64_t, 7> CHANNELS{1, 1, 3, 1, 2, 1, 4};
    const auto type = static_cast<std::size_t>(std::clamp(header.colourType, 0, 6));
    const std::uint64_t bits =
        std::uint64_t{header.width} * CHANNELS[type] * static_cast<unsigned>(header.bitDepth);
    return (1 + bits / 8) * header.height;
}

/// Every few rows the person is told how far it is. False when the work was called off.
bool tell(png_uint_32 row, png_uint_32 rows) {
    constexpr png_uint_32 FEW = 32;
    return row % FEW != 0 || CLongWork::reach(static_cast<double>(row) / rows);
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

void convertToColour(png_structp png) {
    png_set_expand(png); // palettes, few bits a pixel, and transparency
    png_set_strip_16(png);
    png_set_gray_to_rgb(png);
    png_set_add_alpha(png, 0xFF, PNG_FILLER_AFTER);
    png_set_bgr(png);
}

/// The part of decoding that libpng may leave by a long jump: nothing in it has a destructor.
bool readPicture(png_structp png, png_infop info, const PngPicture& picture, std::uint8_t* pixels,
                 std::size_t rowBytes) {
    if (setjmp(png_jmpbuf(png)) != 0) {
        return false;
    }
    const auto rows = static_cast<png_uint_32>(picture.height);
    png_set_user_limits(png, static_cast<png_uint_32>(picture.width), rows);
    // Text, profiles and the like are skipped unread: they cannot be used to make the decoder work or grow.
    png_set_keep_unknown_chunks(png, PNG_HANDLE_CHUNK_NEVER, nullptr, -1);
    png_read_info(png, info);
    if (picture.kind == PngKind::COLOUR) {
        convertToColour(png);
    } else if constexpr (std::endian::native == std::endian::little) {
        png_set_swap(png);
    }
    const int passes = png_set_interlace_handling(png);
    png_read_update_info(png, info);
    if (png_get_rowbytes(png, info) != rowBytes || png_get_image_height(png, info) != rows) {
        png_error(png, "the header is repeated");
    }
    for (png_uint_32 pass = 0; pass < static_cast<png_uint_32>(passes); ++pass) {
        for (png_uint_32 row = 0; row < rows; ++row) {
            png_read_row(png, pixels + rowBytes * row, nullptr);
            if (!tell(pass * rows + row, static_cast<png_uint_32>(passes) * rows)) {
                png_error(png, CALLED_OFF);
            }
        }
    }
    png_read_end(png, nullptr);
    return true;
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

void nameProgram(png_structp png, png_infop info) {
    std::array<char, PROGRAM_KEY.size() + 1> key{};
    std::array<char, PROGRAM.size() + 1> value{};
    PROGRAM_KEY.copy(key.data(), PROGRAM_KEY.size());
    PROGRAM.copy(value.data(), PROGRAM.size());
    png_text text{};
    text.compression = PNG_TEXT_COMPRESSION_NONE;
    text.key = key.data();
    text.text = value.data();
    png_set_text(png, info, &text, 1);
}

bool writePicture(png_structp png, png_infop info, const PngView& picture, std::size_t rowBytes) {
    if (setjmp(png_jmpbuf(png)) != 0) {
        return false;
    }
    const bool isColour = picture.kind == PngKind::COLOUR;
    png_set_IHDR(png, info, static_cast<png_uint_32>(picture.width), static_cast<png_uint_32>(picture.height),
                 picture.kind == PngKind::GREY_16 ? 16 : 8,
                 isColour ? PNG_COLOR_TYPE_RGB_ALPHA : PNG_COLOR_TYPE_GRAY, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    png_set_compression_level(png, LEVEL);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_SUB | PNG_FILTER_UP | PNG_FILTER_PAETH);
    nameProgram(png, info);
    png_write_info(png, info);
    if (isColour) {
        png_set_bgr(png);
    } else if constexpr (std::endian::native == std::endian::little) {
        png_set_swap(png);
    }
    for (std::size_t row = 0; row < static_cast<std::size_t>(picture.height); ++row) {
        png_write_row(png, picture.pixels.data() + row * rowBytes);
        if (!tell(static_cast<png_uint_32>(row), static_cast<png_uint_32>(picture.height))) {
            png_error(png, CALLED_OFF);
        }
    }
    png_write_end(png, nullptr);
    return true;
}

} // namespace

std::string readPngHeader(std::span<const std::uint8_t> file, PngHeader& header) {
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
    return {};
}

std::string decodePng(std::span<const std::uint8_t> file, const PngHeader& header, PngPicture& picture) {
    const auto chunks = file.subspan(SIGNATURE.size());
    if (leastData(header) > pictureDataLength(chunks) * DEFLATE_MAX_RATIO) {
        return "the file is too short for a picture of " + header.sizeText();
    }
    ErrorText error;
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &error, onError, onWarning);
    png_infop info = png != nullptr ? png_create_info_struct(png) : nullptr;
    if (info == nullptr) {
        png_destroy_read_struct(&png, nullptr, nullptr);
        return NO_MEMORY;
    }
    png_set_read_fn(png, &file, readBytes);
    PngPicture read{static_cast<int>(header.width), static_cast<int>(header.height), kindOf(header), {}};
    const std::size_t rowBytes = rowBytesOf(read);
    bool decoded = false;
    try {
        read.pixels.resize(rowBytes * header.height);
        decoded = readPicture(png, info, read, read.pixels.data(), rowBytes);
    } catch (const std::bad_alloc&) {
        png_destroy_read_struct(&png, &info, nullptr);
        throw;
    }
    png_destroy_read_struct(&png, &info, nullptr);
    if (decoded) {
        picture = std::move(read);
        return {};
    }
    return std::strcmp(error.text.data(), ENDS_EARLY) == 0
               ? ENDS_EARLY
               : std::string("the file is damaged: ") + error.text.data();
}

std::optional<std::vector<std::uint8_t>> encodePng(const PngView& picture) {
    ErrorText error;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, &error, onError, onWarning);
    png_infop info = png != nullptr ? png_create_info_struct(png) : nullptr;
    if (info == nullptr) {
        png_destroy_write_struct(&png, nullptr);
        return std::nullopt;
    }
    std::vector<std::uint8_t> file;
    png_set_write_fn(png, &file, appendBytes, [](png_structp) {});
    const bool written = writePicture(png, info, picture, rowBytesOf(picture));
    png_destroy_write_struct(&png, &info);
    return written ? std::optional(std::move(file)) : std::nullopt;
}

bool isOurPng(std::span<const std::uint8_t> bytes) {
    // Signature, header chunk, then the chunk of text that names the program.
    constexpr std::size_t TEXT_AT = SIGNATURE.size() + CHUNK_FRAME + HEADER_SIZE + 8;
    const std::string expected = std::string(PROGRAM_KEY) + '\0' + std::string(PROGRAM);
    const std::size_t signature = std::min(bytes.size(), SIGNATURE.size());
    if (!std::equal(SIGNATURE.begin(), SIGNATURE.begin() + static_cast<std::ptrdiff_t>(signature),
                    bytes.begin())) {
        return false;
    }
    if (bytes.size() <= TEXT_AT) {
        return true; // too short for a picture at all
    }
    const std::size_t count = std::min(bytes.size() - TEXT_AT, expected.size());
    return std::memcmp(bytes.data() + TEXT_AT, expected.data(), count) == 0;
}
