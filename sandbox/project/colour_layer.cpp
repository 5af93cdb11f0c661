#include "sandbox/project/colour_layer.h"

#include "sandbox/core/png_picture.h"

#include <cstring>
#include <new>

namespace {

std::size_t pointsOf(int edge) {
    return static_cast<std::size_t>(edge) * static_cast<std::size_t>(edge);
}

} // namespace

QString decodeColours(std::span<const std::uint8_t> file, int edge, std::vector<qxCColour>& colours) {
    PngHeader header;
    std::string reason = readPngHeader(file, header);
    if (reason.empty() && (header.width != static_cast<unsigned>(edge) || header.height != header.width)) {
        reason = "the picture is " + header.sizeText() + ", which does not fit the map";
    }
    PngPicture picture;
    if (reason.empty()) {
        reason = decodePng(file, header, picture);
    }
    if (reason.empty() && picture.kind != PngKind::COLOUR) {
        reason = "the picture is grey; the colours of a map are red, green, blue and alpha";
    }
    if (!reason.empty()) {
        return QString::fromStdString(reason);
    }
    colours.resize(pointsOf(edge));
    std::memcpy(colours.data(), picture.pixels.data(), picture.pixels.size());
    return {};
}

QByteArray encodeColours(int edge, std::span<const qxCColour> colours) {
    const auto file = encodePng(
        {edge,
         edge,
         PngKind::COLOUR,
         {reinterpret_cast<const std::uint8_t*>(colours.data()), pointsOf(edge) * sizeof(qxCColour)}});
    if (!file) {
        throw std::bad_alloc();
    }
    return {reinterpret_cast<const char*>(file->data()), static_cast<qsizetype>(file->size())};
}
