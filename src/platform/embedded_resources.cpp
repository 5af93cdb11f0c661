#include "platform/resources.h"

// The assembler takes the compiled resource file in as it is: no generated source, nothing to parse.
asm(".pushsection .rodata\n"
    ".balign 16\n"
    ".hidden veskResourcesBegin\n"
    ".global veskResourcesBegin\n"
    "veskResourcesBegin:\n"
    ".incbin \"" VESK_RESOURCE_FILE "\"\n"
    ".hidden veskResourcesEnd\n"
    ".global veskResourcesEnd\n"
    "veskResourcesEnd:\n"
    ".byte 0\n"
    ".popsection\n");

extern "C" {
[[gnu::visibility("hidden")]] extern const std::byte veskResourcesBegin[];
[[gnu::visibility("hidden")]] extern const std::byte veskResourcesEnd[];
}

std::span<const std::byte> embeddedResources() {
    return {veskResourcesBegin, veskResourcesEnd};
}
