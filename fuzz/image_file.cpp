#include "engine/memory/image/image_decoder.h"

#include <cstdlib>

// Any bytes as an image file: nothing, or an image whose size and pixels agree.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto image = decodeImage({data, size});
    if (!image) {
        return 0;
    }
    const bool isWhole = image->width > 0 && image->height > 0 &&
                         image->pixels.size() ==
                             static_cast<std::size_t>(image->width) * static_cast<std::size_t>(image->height);
    if (!isWhole) {
        std::abort();
    }
    return 0;
}
