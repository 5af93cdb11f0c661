#include "engine/memory/image_decoder.h"

#include "engine/memory/png_decoder.h"
#include "engine/memory/tga_decoder.h"

std::optional<CDecodedImage> decodeImage(std::span<const std::uint8_t> bytes) {
    return isPng(bytes) ? decodePng(bytes) : decodeTga(bytes);
}
