#include "engine/qx_image_file.h"

#include "engine/memory/engine_directories.h"
#include "engine/memory/image/image_decoder.h"

#include <filesystem>
#include <fstream>
#include <system_error>

namespace {

// More than the largest image of either kind takes, packed at its worst.
constexpr std::uintmax_t MAX_FILE_SIZE = 256U << 20;

std::vector<std::uint8_t> readFile(const std::filesystem::path& path) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error || size > MAX_FILE_SIZE) {
        return {};
    }
    std::vector<std::uint8_t> bytes(size);
    std::ifstream stream(path, std::ios::binary);
    stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size));
    bytes.resize(static_cast<std::size_t>(stream.gcount()));
    return bytes;
}

} // namespace

qxCImageFile::qxCImageFile() = default;

qxCImageFile::~qxCImageFile() = default;

bool qxCImageFile::load(const char* fileName, bool /*flag*/) {
    width = 0;
    height = 0;
    m_pixels.clear();
    const auto path = fileName != nullptr ? CEngineDirectories::resolve(fileName) : std::nullopt;
    if (!path) {
        return false;
    }
    std::optional<DecodedImage> image = decodeImage(readFile(*path));
    if (!image) {
        return false;
    }
    width = image->width;
    height = image->height;
    m_pixels = std::move(image->pixels);
    return true;
}

void qxCImageFile::setSize(int newWidth, int newHeight, qxImageFileFormat /*format*/) {
    const auto isEdge = [](int edge) { return edge > 0 && edge <= MAX_EDGE; };
    const bool isSize = isEdge(newWidth) && isEdge(newHeight);
    width = isSize ? newWidth : 0;
    height = isSize ? newHeight : 0;
    m_pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), qxCColour());
}

qxCColour qxCImageFile::getPixel(int x, int y) const {
    const std::size_t index = indexOf(x, y);
    return index < m_pixels.size() ? m_pixels[index] : qxCColour();
}

void qxCImageFile::setPixel(int x, int y, const qxCColour& colour) {
    const std::size_t index = indexOf(x, y);
    if (index < m_pixels.size()) {
        m_pixels[index] = colour;
    }
}

// Past the end of the pixels for a point outside the image. The size is public, so it is not taken at its
// word.
std::size_t qxCImageFile::indexOf(int x, int y) const {
    if (x < 0 || x >= width || y < 0 || y >= height) {
        return m_pixels.size();
    }
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x);
}
