#include "engine/memory/image/tga_library.h"

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_TGA
#define STBI_NO_STDIO
#define STBI_NO_FAILURE_STRINGS
#include <stb/stb_image.h>

std::uint8_t* loadTga(std::span<const std::uint8_t> file, int channels) {
    int width = 0;
    int height = 0;
    int stored = 0;
    return stbi_load_from_memory(file.data(), static_cast<int>(file.size()), &width, &height, &stored,
                                 channels);
}

void freeTga(void* pixels) {
    stbi_image_free(pixels);
}
