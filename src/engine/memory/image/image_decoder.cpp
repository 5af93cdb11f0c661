#include "engine/memory/image/image_decoder.h"

#include "engine/memory/image/png_decoder.h"
#include "engine/memory/image/tga_decoder.h"

std::optional<DecodedImage> decodeImage(std::span<const std::uint8_t> bytes) {
    return isPng(bytes) ? decodePng(bytes) : decodeTga(bytes);
}
