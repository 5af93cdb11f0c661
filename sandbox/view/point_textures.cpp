#include "sandbox/view/point_textures.h"

#include "sandbox/core/ground_normals.h"

#include <QOpenGLPixelTransferOptions>
#include <algorithm>

namespace {

using Format = QOpenGLTexture::TextureFormat;
using Pixel = QOpenGLTexture::PixelFormat;
using Type = QOpenGLTexture::PixelType;

/// How one attribute of the points is stored in a texture and where it comes from.
struct CAttributeFormat {
    Format texture;
    Pixel pixel;
    Type type;
    bool filtered; // interpolated between points and at a distance
};

constexpr std::array<CAttributeFormat, static_cast<std::size_t>(CPointTextures::EUnit::COUNT)> FORMATS{{
    {Format::R16U, Pixel::Red_Integer, Type::UInt16, false}, // heights
    {Format::RG16_SNorm, Pixel::RG, Type::Int16, true},      // normals
    {Format::RGBA8_UNorm, Pixel::BGRA, Type::UInt8, true},   // colours
    {Format::R16_UNorm, Pixel::Red, Type::UInt16, true},     // blends
    {Format::R8U, Pixel::Red_Integer, Type::UInt8, false},   // water
    {Format::RGBA8_UNorm, Pixel::BGRA, Type::UInt8, false},  // markers
}};

std::unique_ptr<QOpenGLTexture> makeTexture(const CAttributeFormat& format, int edge) {
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
void send(QOpenGLTexture& texture, const CAttributeFormat& format, const CGridRect& points, int stride,
          const void* first) {
    QOpenGLPixelTransferOptions options;
    options.setAlignment(1);
    options.setRowLength(stride);
    texture.setData(points.x0, points.z0, 0, points.x1 - points.x0 + 1, points.z1 - points.z0 + 1, 1, 0,
                    format.pixel, format.type, first, &options);
}

CGridRect grownByOne(const CGridRect& points, int gridDim) {
    return {std::max(points.x0 - 1, 0), std::max(points.z0 - 1, 0), std::min(points.x1 + 1, gridDim),
            std::min(points.z1 + 1, gridDim)};
}

} // namespace

CHeightField heightFieldOf(const CMemoryMap& map) {
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
    const CGridRect all{0, 0, edge - 1, edge - 1};
    sendHeights(map, all);
    sendSurface(map, all);
    sendMarkers(map, all);
    refreshMipmaps();
}

CGridRect CPointTextures::update(CMemoryMap& map) {
    const CGridRect heights = map.takeDirtyHeights();
    if (!heights.isEmpty()) {
        sendHeights(map, heights);
    }
    const CGridRect surface = map.takeDirtySurface();
    if (!surface.isEmpty()) {
        sendSurface(map, surface);
    }
    const CGridRect markers = map.takeDirtyMarkers();
    if (!markers.isEmpty()) {
        sendMarkers(map, markers);
    }
    return heights;
}

void CPointTextures::sendHeights(const CMemoryMap& map, const CGridRect& points) {
    const int edge = map.getGridDim() + 1;
    const auto first = static_cast<std::size_t>(points.z0) * static_cast<std::size_t>(edge) +
                       static_cast<std::size_t>(points.x0);
    send(*at(EUnit::HEIGHTS), FORMATS[0], points, edge, map.getHeights().data() + first);
    const CGridRect leaning = grownByOne(points, map.getGridDim());
    const std::vector<std::int16_t> normals = groundNormals(heightFieldOf(map), leaning);
    send(*at(EUnit::NORMALS), FORMATS[1], leaning, leaning.x1 - leaning.x0 + 1, normals.data());
    m_bStaleMipmaps = true;
}

void CPointTextures::sendSurface(const CMemoryMap& map, const CGridRect& points) {
    const int edge = map.getGridDim() + 1;
    const auto first = static_cast<std::size_t>(points.z0) * static_cast<std::size_t>(edge) +
                       static_cast<std::size_t>(points.x0);
    send(*at(EUnit::COLOURS), FORMATS[2], points, edge, map.getColours().data() + first);
    send(*at(EUnit::BLENDS), FORMATS[3], points, edge, map.getBlends().data() + first);
    send(*at(EUnit::WATER), FORMATS[4], points, edge, map.getWaterFlags().data() + first);
    m_bStaleMipmaps = true;
}

void CPointTextures::sendMarkers(const CMemoryMap& map, const CGridRect& points) {
    const int edge = map.getGridDim() + 1;
    const auto first = static_cast<std::size_t>(points.z0) * static_cast<std::size_t>(edge) +
                       static_cast<std::size_t>(points.x0);
    send(*at(EUnit::MARKERS), FORMATS[5], points, edge, map.getMarkers().data() + first);
}

void CPointTextures::refreshMipmaps() {
    if (!m_bStaleMipmaps) {
        return;
    }
    for (const EUnit unit : {EUnit::NORMALS, EUnit::COLOURS, EUnit::BLENDS}) {
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
