#include "sandbox/app/map_document.h"

#include "engine/memory/engine_directories.h"
#include "engine/qx_texture.h"
#include "sandbox/app/heightmap_file.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

namespace {

constexpr int NEW_EDGE = 129;
constexpr std::uint16_t NEW_HEIGHT = 100;
constexpr double RELIEF = 0.07;        // highest ground over lowest, as a part of the map's width
constexpr double STEEPEST_UNIT = 0.05; // world units that a height unit may have at most
constexpr double FIRST_WATER = 0.04;   // of the way from the lowest ground to the highest

/// World units per height unit, so that a map looks like a landscape whatever unit its heights are in: its
/// relief is a set part of its width, but nearly level ground is not blown up into mountains.
float scaleFor(const CHeightmap& heights) {
    const auto [low, high] = std::ranges::minmax(heights.heights);
    const double relief = std::max(high - low, 1);
    return static_cast<float>(std::min(RELIEF * (heights.edge - 1) / relief, STEEPEST_UNIT));
}

QString cropNote(const CHeightmapReading& reading) {
    if (!reading.isCropped()) {
        return {};
    }
    return QString("The picture is %1 x %2; the %3 x %3 points in its middle were taken. "
                   "Save them under a name of their own.")
        .arg(reading.pictureWidth)
        .arg(reading.pictureHeight)
        .arg(reading.map.edge);
}

} // namespace

CMapDocument::CMapDocument() : m_scene(std::make_unique<CMemoryScene>()), m_strName("level ground") {
    const CHeightmap level{NEW_EDGE,
                           std::vector<std::uint16_t>(std::size_t{NEW_EDGE} * NEW_EDGE, NEW_HEIGHT)};
    m_map = makeMap(level, *m_scene);
    rememberState();
}

std::unique_ptr<CMemoryMap> CMapDocument::makeMap(const CHeightmap& heights, CMemoryScene& scene) {
    auto map = std::make_unique<CMemoryMap>(heights.edge - 1, &scene);
    const std::uint16_t* height = heights.heights.data();
    for (int z = 0; z < heights.edge; ++z) {
        for (int x = 0; x < heights.edge; ++x) {
            map->setPointHeight(x, z, *height++, false);
        }
    }
    map->heightScale = scaleFor(heights);
    const auto [low, high] = std::ranges::minmax(heights.heights);
    map->waterLevel = static_cast<float>(low + (high - low) * FIRST_WATER) * map->heightScale;
    return map;
}

CMapDocument::Outcome CMapDocument::open(const QString& path, const std::function<void()>& beforeSwap) {
    const CHeightmapReading reading = readHeightmapFile(path);
    if (!reading.error.empty()) {
        return {QString("Failed to open %1: %2").arg(path, QString::fromStdString(reading.error)), {}};
    }
    auto scene = std::make_unique<CMemoryScene>();
    auto map = makeMap(reading.map, *scene);
    beforeSwap();
    m_map = std::move(map);
    m_scene = std::move(scene);
    return {{}, adoptFile(path, reading)};
}

QString CMapDocument::adoptFile(const QString& path, const CHeightmapReading& reading) {
    const QFileInfo info(path);
    // Saving a part of a picture over the whole would lose the rest of it.
    m_strPath = reading.isCropped() ? QString() : info.absoluteFilePath();
    m_strName = reading.isCropped() ? QString("part of %1").arg(info.fileName()) : info.fileName();
    listTextures(info.absolutePath());
    rememberState();
    return cropNote(reading);
}

void CMapDocument::listTextures(const QString& mapFolder) {
    const QDir beside(mapFolder + "/textures");
    m_strTextureFolder = beside.exists() ? beside.absolutePath() : mapFolder;
    CEngineDirectories::setDirectories({m_strTextureFolder.toStdString(), mapFolder.toStdString()});
    for (const QFileInfo& file : beside.entryInfoList({"*.tga", "*.png"}, QDir::Files, QDir::Name)) {
        qxCTexture* texture = m_scene->createTexture();
        texture->name.setString(file.completeBaseName().toUtf8().constData());
        texture->setFilename(file.fileName().toUtf8().constData());
        m_scene->addTexture(texture);
    }
}

CMapDocument::Outcome CMapDocument::save(const QString& path) {
    const std::span<const std::uint16_t> heights = m_map->getHeights();
    const QString reason =
        writeHeightmapFile(path, {m_map->getGridDim() + 1, {heights.begin(), heights.end()}});
    if (!reason.isEmpty()) {
        return {QString("Failed to save %1: %2").arg(path, reason), {}};
    }
    const QFileInfo info(path);
    m_strPath = info.absoluteFilePath();
    m_strName = info.fileName();
    m_nSavedHeights = m_map->getChangeCount(EMapChange::heights);
    return {};
}

bool CMapDocument::isModified() const {
    return m_map->getChangeCount(EMapChange::heights) != m_nSavedHeights;
}

bool CMapDocument::hasUnkeptChanges() const {
    return unkeptChanges() != m_nOpenedUnkept;
}

std::uint64_t CMapDocument::unkeptChanges() const {
    return m_map->getChangeCount(EMapChange::surface) + m_map->getChangeCount(EMapChange::details) +
           m_map->getChangeCount(EMapChange::material);
}

void CMapDocument::rememberState() {
    m_nSavedHeights = m_map->getChangeCount(EMapChange::heights);
    m_nOpenedUnkept = unkeptChanges();
}

int CMapDocument::waterLevel() const {
    return m_map->getWaterHeight();
}

void CMapDocument::setWaterLevel(int heightUnits) {
    // Half a unit above, so that dividing by the scale again gives the same whole number.
    m_map->waterLevel = (static_cast<float>(heightUnits) + 0.5F) * m_map->heightScale;
}
