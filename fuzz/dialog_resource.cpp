#include "platform/resources.h"

#include <cstdint>

/// Any bytes as a compiled resource file, asked for one dialog and one icon.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto file = std::as_bytes(std::span(data, size));
    const auto dialog = findDialog(file, 237);
    const auto icon = findIcon(file, 2010);
    // The bodies alone as well, so that the fuzzer need not first find a whole file around them.
    const auto body = readDialogTemplate(file, 1);
    const auto image = readIconImage(file);
    if (image && image->pixels.size() != static_cast<std::size_t>(image->width * image->height * 4)) {
        __builtin_trap();
    }
    return 0;
}
