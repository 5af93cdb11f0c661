#include "sandbox/view/point_textures.h"

#include "sandbox/core/ground_normals.h"

#include <QOpenGLPixelTransferOptions>
#include <algorithm>

namespace {

using Format = QOpenGLTexture::TextureFormat;
using Pixel = QOpenGLTexture::PixelFormat;
using Type = QOpenGLTexture::PixelType;

/// How one attribute of the points is stored in a texture and where it comes from.
struct AttributeFormat {
    Format texture;
    Pixel pixel;
    Type type;
    bool filtered; // interpolated between points and at a distance
};

constexpr std::array<AttributeFormat, static_cast<std::size_t>(CPointTextures::Unit::COUNT)> FORMATS{{
    {Format::R16U, Pixel::Red_Integer, Type::UInt16, false}, // heights
    {Format::RG16_SNorm, Pixel::RG, Type::Int16, true},      // normals
    {Format::RGBA8_UNorm, Pixel::BGRA, Type::UInt8, true},   // colours
    {Format::R16_UNorm, Pixel::Red, Type::UInt16, true},     // blends
    {Format::R8U, Pixel::Red_Integer, Type::UInt8, false},   // water
    {Format::RGBA8_UNorm, Pixel::BGRA, Type::UInt8, false},  // markers
}};

std::unique_ptr<QOpenGLTexture> makeTexture(const AttributeFormat& format, int edge) {
    auto texture = std::make_unique<QOpenGLTexture>(QOpenGLTexture::Target2D);
    texture->setFormat(format.texture);
    texture->setSize(edge, edge);
    if (format.filtered) {
        texture->setMipLevels(texture->maximumMipLevels());
    }
    texture->setAutoMipMapGenerationEnabled(false);
    texture->allocateStorage(format.pixel, format.type);
    texture->setWrapMode(QOpenGLTexture::ClampToEdge);
    if (format.filtered) {
        texture->setMinMagFilters(QOpenGLTexture::LinearMipMapLinear, QOpenGLTexture::Linear);
    } else {
        texture->setMinMagFilters(QOpenGLTexture::Nearest, QOpenGLTexture::Nearest);
    }
    return texture;
}

/// Send a rectangle out of an array of `stride` elements a row, whose first element to send is `first`.
void send(QOpenGLTexture& texture, const AttributeFormat& format, const GridRect& points, int stride,
          const void* first) {
    QOpenGLPixelTransferOptions options;
    options.setAlignment(1);
    options.setRowLength(stride);
    texture.setData(points.x0, points.z0, 0, points.x1 - points.x0 + 1, points.z1 - points.z0 + 1, 1, 0,
                    format.pixel, format.type, first, &options);
}

GridRect grownByOne(const GridRect& points, int gridDim) {
    return {std::max(points.x0 - 1, 0), std::max(points.z0 - 1, 0), std::min(points.x1 + 1, gridDim),
            std::min(points.z1 + 1, gridDim)};
}

} // namespace

HeightField heightFieldOf(const CMemoryMap& map) {
    return {map.getGridDim(), map.heightScale, map.getHeights().data()};
}

void CPointTextures::create(CMemoryMap& map) {
    const int edge = map.getGridDim() + 1;
    for (std::size_t i = 0; i < m_textures.size(); ++i) {
        m_textures[i] = makeTexture(FORMATS[i], edge);
    }
    map.takeDirtyHeights();
    map.takeDirtySurface();
    map.takeDirtyMarkers();
    const GridRect all{0, 0, edge - 1, edge - 1};
    sendHeights(map, all);
    sendSurface(map, all);
    sendMarkers(map, all);
    refreshMipmaps();
}

GridRect CPointTextures::update(CMemoryMap& map) {
    const GridRect heights = map.takeDirtyHeights();
    if (!heights.isEmpty()) {
        sendHeights(map, heights);
    }
    const GridRect surface = map.takeDirtySurface();
    if (!surface.isEmpty()) {
        sendSurface(map, surface);
    }
    const GridRect markers = map.takeDirtyMarkers();
    if (!markers.isEmpty()) {
        sendMarkers(map, markers);
    }
    return heights;
}

void CPointTextures::sendHeights(const CMemoryMap& map, const GridRect& points) {
    const int edge = map.getGridDim() + 1;
    const auto first = static_cast<std::size_t>(points.z0) * static_cast<std::size_t>(edge) +
                       static_cast<std::size_t>(points.x0);
    send(*at(Unit::HEIGHTS), FORMATS[0], points, edge, map.getHeights().data() + first);
    constexpr int BAND = 64; // rows: the normals of a whole large map would be the most memory of all
    GridRect band = grownByOne(points, map.getGridDim());
    const int last = band.z1;
    for (; band.z0 <= last; band.z0 += BAND) {
        band.z1 = std::min(band.z0 + BAND - 1, last);
        const std::vector<std::int16_t> normals = groundNormals(heightFieldOf(map), band);
        send(*at(Unit::NORMALS), FORMATS[1], band, band.x1 - band.x0 + 1, normals.data());
    }
    m_bStaleMipmaps = true;
}

void CPointTextures::sendSurface(const CMemoryMap& map, const GridRect& points) {
    const int edge = map.getGridDim() + 1;
    const auto first = static_cast<std::size_t>(points.z0) * static_cast<std::size_t>(edge) +
                       static_cast<std::size_t>(points.x0);
    send(*at(Unit::COLOURS), FORMATS[2], points, edge, map.getColours().data() + first);
    send(*at(Unit::BLENDS), FORMATS[3], points, edge, map.getBlends().data() + first);
    send(*at(Unit::WATER), FORMATS[4], points, edge, map.getWaterFlags().data() + first);
    m_bStaleMipmaps = true;
}

void CPointTextures::sendMarkers(const CMemoryMap& map, const GridRect& points) {
    const int edge = map.getGridDim() + 1;
    const auto first = static_cast<std::size_t>(points.z0) * static_cast<std::size_t>(edge) +
                       static_cast<std::size_t>(points.x0);
    send(*at(Unit::MARKERS), FORMATS[5], points, edge, map.getMarkers().data() + first);
}

void CPointTextures::refreshMipmaps() {
    if (!m_bStaleMipmaps) {
        return;
    }
    for (const Unit unit : {Unit::NORMALS, Unit::COLOURS, Unit::BLENDS}) {
        at(unit)->generateMipMaps();
    }
    m_bStaleMipmaps = false;
}

void CPointTextures::destroy() {
    for (Texture& texture : m_textures) {
        texture.reset();
    }
}

void CPointTextures::bind() {
    for (std::size_t i = 0; i < m_textures.size(); ++i) {
        m_textures[i]->bind(static_cast<unsigned>(i));
    }
}
