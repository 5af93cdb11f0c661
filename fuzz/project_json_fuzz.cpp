#include "sandbox/project/project_json.h"

#include <cstdint>
#include <cstdlib>

/// What parses must be written and read back as the same settings.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const ProjectJsonReading reading = parseProjectJson(
        QByteArray::fromRawData(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    if (reading.error.isEmpty()) {
        const QByteArray written = writeProjectJson(reading.settings, reading.original, reading.checksums);
        const ProjectJsonReading again = parseProjectJson(written);
        if (!again.error.isEmpty() ||
            writeProjectJson(again.settings, again.original, again.checksums) != written) {
            std::abort();
        }
    }
    return 0;
}
