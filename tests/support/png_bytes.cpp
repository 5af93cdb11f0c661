#include "support/png_bytes.h"

#include <png.h>

namespace {

void append(png_structp png, png_bytep bytes, png_size_t count) {
    auto& file = *static_cast<std::vector<std::uint8_t>*>(png_get_io_ptr(png));
    file.insert(file.end(), bytes, bytes + count);
}

void flush(png_structp) {}

} // namespace

std::vector<std::uint8_t> makePng(int width, int height, int colourType, int depth, bool interlaced,
                                  std::vector<std::uint8_t> samples) {
    std::vector<std::uint8_t> file;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(png, &file, append, flush);
    png_set_IHDR(png, info, static_cast<png_uint_32>(width), static_cast<png_uint_32>(height), depth,
                 colourType, interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (colourType == PNG_COLOR_TYPE_PALETTE) {
        const png_color palette[] = {{0, 0, 0}, {255, 0, 0}, {0, 255, 0}, {0, 0, 255}};
        const png_byte alpha[] = {255, 255, 128};
        png_set_PLTE(png, info, palette, 4);
        png_set_tRNS(png, info, alpha, 3, nullptr);
    }
    std::vector<png_bytep> rows;
    const std::size_t rowSize = samples.size() / static_cast<std::size_t>(height);
    for (std::size_t at = 0; at < samples.size(); at += rowSize) {
        rows.push_back(&samples[at]);
    }
    png_set_rows(png, info, rows.data());
    png_write_png(png, info, PNG_TRANSFORM_IDENTITY, nullptr);
    png_destroy_write_struct(&png, &info);
    return file;
}
