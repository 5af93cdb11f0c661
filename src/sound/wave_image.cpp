#include "sound/wave_image.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

constexpr DWORD ID_RIFF = 0x46464952;
constexpr DWORD ID_WAVE = 0x45564157;
constexpr DWORD ID_FMT = 0x20746D66;
constexpr DWORD ID_DATA = 0x61746164;

constexpr std::uint64_t CHUNK_HEAD = 8;
constexpr DWORD SMALLEST_FORMAT = 14; // all but wBitsPerSample

DWORD readWord(const BYTE* bytes) {
    return DWORD{bytes[0]} | DWORD{bytes[1]} << 8U | DWORD{bytes[2]} << 16U | DWORD{bytes[3]} << 24U;
}

bool isWaveImage(std::span<const BYTE> image) {
    return image.size() >= 12 && readWord(image.data()) == ID_RIFF && readWord(image.data() + 8) == ID_WAVE;
}

/// What the caller of parseWaveImage wants, and how much of it has been found.
struct Findings {
    WAVEFORMATEX** format;
    BYTE** data;
    DWORD* size;

    void clear() const {
        if (format != nullptr) {
            *format = nullptr;
        }
        if (data != nullptr) {
            *data = nullptr;
        }
        if (size != nullptr) {
            *size = 0;
        }
    }
    bool lacksFormat() const { return format != nullptr && *format == nullptr; }
    bool lacksData() const { return data != nullptr && *data == nullptr; }
    bool lacksSize() const { return size != nullptr && *size == 0; }
    bool takesData() const { return data != nullptr ? *data == nullptr : lacksSize(); }
    void takeData(BYTE* content, DWORD length) const {
        if (data != nullptr) {
            *data = content;
        }
        if (size != nullptr) {
            *size = length;
        }
    }
};

} // namespace

bool parseWaveImage(std::span<BYTE> image, WAVEFORMATEX** outFormat, BYTE** outData, DWORD* outSize) {
    const Findings found{outFormat, outData, outSize};
    found.clear();
    if (!isWaveImage(image)) {
        return false;
    }
    const std::uint64_t end = CHUNK_HEAD + readWord(image.data() + 4);
    std::uint64_t position = 12;
    while (position < end && position + CHUNK_HEAD <= image.size()) {
        const DWORD id = readWord(image.data() + position);
        const std::uint64_t claimed = readWord(image.data() + position + 4);
        position += CHUNK_HEAD;
        BYTE* const content = image.data() + position;
        const auto length = static_cast<DWORD>(std::min<std::uint64_t>(claimed, image.size() - position));
        if (id == ID_FMT && found.lacksFormat()) {
            if (length < SMALLEST_FORMAT) {
                return false;
            }
            *outFormat = reinterpret_cast<WAVEFORMATEX*>(content);
            if (!found.lacksData() && !found.lacksSize()) {
                return true;
            }
        } else if (id == ID_DATA && found.takesData()) {
            found.takeData(content, length);
            if (!found.lacksFormat()) {
                return true;
            }
        }
        position += claimed + (claimed & 1U);
    }
    return false;
}

CWaveFormat::CWaveFormat(std::span<const BYTE> image, const WAVEFORMATEX* found) {
    const BYTE* const first = reinterpret_cast<const BYTE*>(found);
    const auto available = static_cast<std::size_t>(image.data() + image.size() - first);
    const std::size_t length = std::min<std::size_t>(readWord(first - 4), available);
    WAVEFORMATEX head{};
    std::memcpy(&head, first, std::min(length, sizeof head));
    const std::size_t extra = length > sizeof head ? length - sizeof head : 0;
    head.cbSize = static_cast<WORD>(std::min<std::size_t>(head.cbSize, extra));
    m_bytes.resize(sizeof head + head.cbSize);
    std::memcpy(m_bytes.data(), &head, sizeof head);
    std::memcpy(m_bytes.data() + sizeof head, first + sizeof head, head.cbSize);
}
