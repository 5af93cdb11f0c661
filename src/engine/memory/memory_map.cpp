#include "engine/memory/memory_map.h"

#include "engine/memory/map/terrain_types.h"
#include "engine/memory/map/water_fill.h"
#include "engine/memory/memory_scene.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace {

constexpr int COLOUR_LAYER = 0;
constexpr int BLEND_LAYER = 1;
constexpr int MIN_TILING = 1;
constexpr int MAX_TILING = 256;
constexpr int NEW_MAP_TILING = 16;
constexpr int MAX_CURSOR_KIND = 15;
constexpr qxCColour WHITE(255, 255, 255, 255);
constexpr qxCColour SHADE(96, 96, 96, 255);

int heldGridDim(int gridDim) {
    return std::clamp(gridDim, 1, CMemoryMap::MAX_GRID_DIM);
}

template <class T> bool isIndexOf(const std::vector<T>& values, int index) {
    return index >= 0 && static_cast<std::size_t>(index) < values.size();
}

// Writes where the layer has the point; a value that stands there already is no change.
template <class T> void setPoint(CPointLayer<T>& layer, CGridRegion& changes, int x, int z, const T& value) {
    if (!layer.contains(x, z) || layer.at(x, z) == value) {
        return;
    }
    layer.keep(x, z);
    layer.at(x, z) = value;
    changes.add(x, z);
}

// Rounded towards the target, so that painting on reaches it instead of stalling short of it.
int movedTowards(int from, int to, float weight) {
    const float step = static_cast<float>(to - from) * weight;
    const auto whole = static_cast<int>(step);
    const float rest = step - static_cast<float>(whole);
    return from + whole + (rest > 0.0F ? 1 : 0) - (rest < 0.0F ? 1 : 0);
}

} // namespace

CMemoryMap::CMemoryMap(int gridDim, CMemoryScene* scene, MapPoints points)
    : m_pScene(scene)
    , m_nGridDim(heldGridDim(gridDim))
    , m_heights(m_nGridDim + 1, 0, std::move(points.heights))
    , m_colours(m_nGridDim + 1, WHITE, std::move(points.colours))
    , m_blends(m_nGridDim + 1, 0, std::move(points.blends))
    , m_water(m_nGridDim + 1, 0, std::move(points.water))
    , m_markers(m_nGridDim + 1, qxCColour(), std::move(points.markers))
    , m_nTiling(NEW_MAP_TILING)
    , m_ambient(SHADE)
    , m_diffuse(WHITE)
    , m_terrainDefs(makeDefaultTerrainTypes()) {}

CMemoryMap::~CMemoryMap() = default;

qxCScene* CMemoryMap::getScene() const {
    return m_pScene;
}

int CMemoryMap::getGridDim() const {
    return m_nGridDim;
}

int CMemoryMap::getPointHeight(int x, int z) const {
    return m_heights.nearest(x, z);
}

void CMemoryMap::setPointHeight(int x, int z, int height, bool /*direct*/) {
    setPoint(m_heights, m_heightChanges, x, z, static_cast<std::uint16_t>(std::clamp(height, 0, MAX_HEIGHT)));
}

qxCColour CMemoryMap::getPointColour(int layer, int x, int z) const {
    return layer == COLOUR_LAYER ? m_colours.nearest(x, z) : qxCColour();
}

void CMemoryMap::setPointColour(int layer, int x, int z, const qxCColour& colour) {
    if (layer == COLOUR_LAYER) {
        setPoint(m_colours, m_surfaceChanges, x, z, colour);
    }
}

bool CMemoryMap::getPointWater(int x, int z) const {
    return m_water.contains(x, z) && m_water.at(x, z) != 0;
}

float CMemoryMap::getGradient(int x, int z) const {
    x = std::clamp(x, 0, m_nGridDim);
    z = std::clamp(z, 0, m_nGridDim);
    const int left = std::max(x - 1, 0);
    const int right = std::min(x + 1, m_nGridDim);
    const int top = std::max(z - 1, 0);
    const int bottom = std::min(z + 1, m_nGridDim);
    const auto slope = [this](int rise, int cells) {
        return static_cast<float>(rise) * heightScale / (static_cast<float>(cells) * CELL_SIZE);
    };
    const float alongX = slope(m_heights.at(right, z) - m_heights.at(left, z), right - left);
    const float alongZ = slope(m_heights.at(x, bottom) - m_heights.at(x, top), bottom - top);
    return std::atan(std::hypot(alongX, alongZ)) * 180.0F / std::numbers::pi_v<float>;
}

int CMemoryMap::getPointHeightQ(int x, int z) const {
    return m_heights.nearest(x, z);
}

qxCColour CMemoryMap::getPointColourQ(int layer, int x, int z) const {
    return layer == COLOUR_LAYER ? m_colours.nearest(x, z) : qxCColour();
}

int CMemoryMap::getPointBlendQ(int layer, int x, int z) const {
    return layer == BLEND_LAYER ? m_blends.nearest(x, z) : 0;
}

void CMemoryMap::setPointBlend(int layer, int x, int z, int value) {
    if (layer == BLEND_LAYER) {
        setPoint(m_blends, m_surfaceChanges, x, z,
                 static_cast<std::uint16_t>(std::clamp(value, 0, MAX_BLEND)));
    }
}

void CMemoryMap::paintMultiTexture(int x, int z, float weight) {
    if (!(weight > 0.0F) || !m_blends.contains(x, z) || !isIndexOf(m_definitions, m_nCurrentDefinition)) {
        return;
    }
    const float held = std::min(weight, 1.0F);
    const qxCMapMultiTexture& definition = *m_definitions[static_cast<std::size_t>(m_nCurrentDefinition)];
    const CSurfacePattern::Sample target =
        m_pattern.sample(definition, CSurfacePattern::texelAt(x, m_nGridDim, m_nTiling),
                         CSurfacePattern::texelAt(z, m_nGridDim, m_nTiling));
    const int blend = static_cast<int>(std::lround(target.blend * MAX_BLEND));
    setPointBlend(BLEND_LAYER, x, z, movedTowards(m_blends.at(x, z), blend, held));
    setPointColour(COLOUR_LAYER, x, z, interpolate(m_colours.at(x, z), target.tint, held));
}

void CMemoryMap::addWater(int x, int z) {
    floodWater(m_heights, m_water, x, z, getWaterHeight(), m_surfaceChanges);
}

void CMemoryMap::removeWater(int x, int z) {
    drainWater(m_water, x, z, m_surfaceChanges);
}

void CMemoryMap::setPointWater(int x, int z, bool water) {
    setPoint(m_water, m_surfaceChanges, x, z, static_cast<std::uint8_t>(water ? 1 : 0));
}

int CMemoryMap::getWaterHeight() const {
    if (!(heightScale > 0.0F)) {
        return -1;
    }
    const float level = waterLevel / heightScale;
    if (!(level > -1.0F)) {
        return -1;
    }
    return static_cast<int>(std::min(level, static_cast<float>(MAX_HEIGHT)));
}

int CMemoryMap::getNumMultiTextures() const {
    return static_cast<int>(m_definitions.size());
}

qxCMapMultiTexture* CMemoryMap::getMultiTexture(int index) {
    return isIndexOf(m_definitions, index) ? m_definitions[static_cast<std::size_t>(index)].get() : nullptr;
}

qxCMapMultiTexture* CMemoryMap::addMultiTexture() {
    m_definitions.push_back(std::make_unique<qxCMapMultiTexture>());
    countChange(MapChange::TEXTURES);
    return m_definitions.back().get();
}

void CMemoryMap::removeMultiTexture(int index) {
    if (!isIndexOf(m_definitions, index)) {
        return;
    }
    m_definitions.erase(m_definitions.begin() + index);
    if (index < m_nCurrentDefinition) {
        --m_nCurrentDefinition;
    }
    m_nCurrentDefinition = std::clamp(m_nCurrentDefinition, 0, std::max(getNumMultiTextures() - 1, 0));
    countChange(MapChange::TEXTURES);
}

void CMemoryMap::setCurrentMultiTexture(int index) {
    if (isIndexOf(m_definitions, index)) {
        m_nCurrentDefinition = index;
    }
}

int CMemoryMap::getCurrentMultiTexture() const {
    return m_nCurrentDefinition;
}

void CMemoryMap::setTexture(qxMapLayerType layer, qxCTexture* texture) {
    const auto index = static_cast<std::size_t>(layer);
    if (index >= m_textures.size() || m_textures[index] == texture) {
        return;
    }
    m_textures[index] = texture;
    countChange(MapChange::TEXTURES);
}

qxCTexture* CMemoryMap::getTexture(qxMapLayerType layer) const {
    const auto index = static_cast<std::size_t>(layer);
    return index < m_textures.size() ? m_textures[index] : nullptr;
}

void CMemoryMap::setTextureTiling(int tiling) {
    const int held = std::clamp(tiling, MIN_TILING, MAX_TILING);
    if (held == m_nTiling) {
        return;
    }
    m_nTiling = held;
    countChange(MapChange::TEXTURES);
}

int CMemoryMap::getTextureTiling() const {
    return m_nTiling;
}

void CMemoryMap::invalidate() {
    countChange(MapChange::TEXTURES);
}

void CMemoryMap::setAmbient(const qxCColour& colour) {
    m_ambient = colour;
    countChange(MapChange::MATERIAL);
}

qxCColour CMemoryMap::getAmbient() const {
    return m_ambient;
}

void CMemoryMap::setDiffuse(const qxCColour& colour) {
    m_diffuse = colour;
    countChange(MapChange::MATERIAL);
}

qxCColour CMemoryMap::getDiffuse() const {
    return m_diffuse;
}

void CMemoryMap::setFlag(qxMapFlag flag) {
    m_nFlags |= static_cast<unsigned>(flag);
    countChange(MapChange::MATERIAL);
}

void CMemoryMap::clearFlag(qxMapFlag flag) {
    m_nFlags &= ~static_cast<unsigned>(flag);
    countChange(MapChange::MATERIAL);
}

bool CMemoryMap::hasFlag(qxMapFlag flag) const {
    return (m_nFlags & static_cast<unsigned>(flag)) != 0;
}

int CMemoryMap::getNumTerrainDefs() const {
    return static_cast<int>(m_terrainDefs.size());
}

_qxMapTerrainDef* CMemoryMap::getTerrainDef(int index) {
    return isIndexOf(m_terrainDefs, index) ? &m_terrainDefs[static_cast<std::size_t>(index)] : nullptr;
}

qxCMapDetailRecord* CMemoryMap::addDetail(qxDetailType type, qxCTexture* texture, const qxCVector3d& p0,
                                          const qxCVector3d& p1, const qxCVector3d& p2, float scalar) {
    return counted(m_details.add(type, texture, p0, p1, p2, scalar));
}

qxCMapDetailRecord* CMemoryMap::addDetail(qxDetailType type, qxCTexture* texture, const qxCVector3d& point,
                                          float s1, float s2, float s3) {
    return counted(m_details.add(type, texture, point, s1, s2, s3));
}

qxCMapDetailRecord* CMemoryMap::counted(qxCMapDetailRecord* added) {
    if (added != nullptr) {
        countChange(MapChange::DETAILS);
    }
    return added;
}

void CMemoryMap::keepPoints() {
    m_heights.startKeeping();
    m_colours.startKeeping();
    m_blends.startKeeping();
    m_water.startKeeping();
}

KeptPoints CMemoryMap::takeKeptPoints() {
    return {m_heights.takeKept(), m_colours.takeKept(), m_blends.takeKept(), m_water.takeKept()};
}

void CMemoryMap::exchangePoints(KeptPoints& points) {
    m_heights.exchange(points.heights, m_heightChanges);
    m_colours.exchange(points.colours, m_surfaceChanges);
    m_blends.exchange(points.blends, m_surfaceChanges);
    m_water.exchange(points.water, m_surfaceChanges);
}

void CMemoryMap::replaceDetails(int first, int count, std::span<const qxCMapDetailRecord> records) {
    m_details.replace(first, count, records);
    countChange(MapChange::DETAILS);
}

void CMemoryMap::removeDetail(qxCMapDetailRecord* detail) {
    if (m_details.remove(detail)) {
        countChange(MapChange::DETAILS);
    }
}

qxCMapDetailRecord* CMemoryMap::findDetail(float x, float z) {
    return m_details.find(x, z);
}

void CMemoryMap::addEditCursor(int x, int z, int kind) {
    if (kind < 0 || kind > MAX_CURSOR_KIND) {
        return;
    }
    m_editCursors.push_back({x, z, kind});
    countChange(MapChange::EDIT_CURSORS);
}

void CMemoryMap::clearEditCursors() {
    m_editCursors.clear();
    countChange(MapChange::EDIT_CURSORS);
}

void CMemoryMap::clearDetailHighlights() {
    for (int i = 0; i < m_details.size(); ++i) {
        m_details[i].highlighted = 0;
    }
}

void CMemoryMap::lockMarkerLayer() {
    ++m_nMarkerLocks;
}

void CMemoryMap::unlockMarkerLayer() {
    m_nMarkerLocks = std::max(m_nMarkerLocks - 1, 0);
}

void CMemoryMap::setMarkerPixel(qxMapMarkerType type, int x, int z, const qxCColour& colour) {
    if (type == qxMapMarkerStroke) {
        setPoint(m_markers, m_markerChanges, x, z, colour);
    }
}

std::uint64_t CMemoryMap::getChangeCount(MapChange kind) const {
    switch (kind) {
    case MapChange::HEIGHTS:
        return m_heightChanges.getChangeCount();
    case MapChange::SURFACE:
        return m_surfaceChanges.getChangeCount();
    case MapChange::MARKERS:
        return m_markerChanges.getChangeCount();
    default:
        return m_changeCounts[static_cast<std::size_t>(kind)];
    }
}
