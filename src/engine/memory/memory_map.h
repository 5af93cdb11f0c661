#pragma once

#include "engine/memory/map/detail_list.h"
#include "engine/memory/map/grid_region.h"
#include "engine/memory/map/point_layer.h"
#include "engine/memory/map/surface_pattern.h"
#include "engine/qx_map.h"

#include <array>
#include <memory>
#include <span>
#include <vector>

class CMemoryScene;

/// What of a map can change. Records that the caller edits in place (details, texture definitions, terrain
/// types) and the two public members change without a count.
enum class MapChange { HEIGHTS, SURFACE, MARKERS, DETAILS, TEXTURES, MATERIAL, EDIT_CURSORS };

/// One edit-cursor mark as the toolkit set it; the cell may lie outside the grid.
struct EditCursor {
    int x = 0;
    int z = 0;
    int kind = 0;
};

/// The layers of a whole map, element z * (gridDim + 1) + x, to be taken over by it. One that is empty is as
/// in a new map.
struct MapPoints {
    std::vector<std::uint16_t> heights;
    std::vector<qxCColour> colours;
    std::vector<std::uint16_t> blends;
    std::vector<std::uint8_t> water; ///< 1 for water, 0 for none
    std::vector<qxCColour> markers;
};

/// A terrain map in memory. The host owns it and keeps its scene alive as long. A point outside the grid
/// reads like the nearest point of the edge (never as water); there is one colour layer (0) and one blend
/// layer (1), other layers read as zero and ignore writes.
class QX_API CMemoryMap final : public qxCMap {
public:
    static constexpr int MAX_GRID_DIM = 8192;
    static constexpr int MAX_HEIGHT = 65535; ///< heights are held to 0..MAX_HEIGHT
    static constexpr int MAX_BLEND = 65535;  ///< a blend is 0 (all smooth texture) to MAX_BLEND (all rough)
    static constexpr float CELL_SIZE = 1.0F; ///< side of a grid cell in world units

    /// Level ground at height 0, all white and smooth, no water. `gridDim` is brought into 1..MAX_GRID_DIM.
    /// `scene` may be null.
    CMemoryMap(int gridDim, CMemoryScene* scene) : CMemoryMap(gridDim, scene, MapPoints()) {}
    CMemoryMap(int gridDim, CMemoryScene* scene, MapPoints points);
    ~CMemoryMap() override;
    CMemoryMap(const CMemoryMap&) = delete;
    CMemoryMap& operator=(const CMemoryMap&) = delete;

    qxCScene* getScene() const override;
    int getGridDim() const override;

    int getPointHeight(int x, int z) const override;
    void setPointHeight(int x, int z, int height, bool direct) override;
    qxCColour getPointColour(int layer, int x, int z) const override;
    void setPointColour(int layer, int x, int z, const qxCColour& colour) override;
    bool getPointWater(int x, int z) const override;
    /// Slope of the ground in degrees, 0 to 90, from the differences to the neighbours on either side (on one
    /// side only at the grid's edge) in world units.
    float getGradient(int x, int z) const override;
    int getPointHeightQ(int x, int z) const override;
    qxCColour getPointColourQ(int layer, int x, int z) const override;
    int getPointBlendQ(int layer, int x, int z) const override;
    void setPointBlend(int layer, int x, int z, int value) override;

    /// Moves the point's blend value and colour by `weight` of the way to what the current definition has at
    /// this place (CSurfacePattern). Nothing else of the point changes, so restoring the two undoes it.
    void paintMultiTexture(int x, int z, float weight) override;
    /// Flags as water the point and every point joined to it, side by side, over ground that is no higher
    /// than getWaterHeight(). A point on higher ground gains nothing.
    void addWater(int x, int z) override;
    /// Drains the point and every water point joined to it side by side.
    void removeWater(int x, int z) override;
    /// One point only, as a loaded map needs it.
    void setPointWater(int x, int z, bool water);
    /// waterLevel in point-height units, truncated towards zero and held to -1..MAX_HEIGHT; -1 when
    /// heightScale is not positive.
    int getWaterHeight() const;

    int getNumMultiTextures() const override;
    qxCMapMultiTexture* getMultiTexture(int index) override;
    qxCMapMultiTexture* addMultiTexture() override;
    void removeMultiTexture(int index) override;
    /// An index that does not exist is ignored. The current definition stays current when others are removed;
    /// when it is removed itself, the one that takes its index does, or else the last.
    void setCurrentMultiTexture(int index) override;
    int getCurrentMultiTexture() const override;
    void setTexture(qxMapLayerType layer, qxCTexture* texture) override;
    qxCTexture* getTexture(qxMapLayerType layer) const override;
    void setTextureTiling(int tiling) override;
    int getTextureTiling() const override;
    /// Counts as a change of the textures; a renderer then loads them anew.
    void invalidate() override;

    void setAmbient(const qxCColour& colour) override;
    qxCColour getAmbient() const override;
    void setDiffuse(const qxCColour& colour) override;
    qxCColour getDiffuse() const override;
    void setFlag(qxMapFlag flag) override;
    void clearFlag(qxMapFlag flag) override;
    bool hasFlag(qxMapFlag flag) const override;
    int getNumTerrainDefs() const override;
    _qxMapTerrainDef* getTerrainDef(int index) override;

    /// Both forms: see CDetailList.
    qxCMapDetailRecord* addDetail(qxDetailType type, qxCTexture* texture, const qxCVector3d& p0,
                                  const qxCVector3d& p1, const qxCVector3d& p2, float scalar) override;
    qxCMapDetailRecord* addDetail(qxDetailType type, qxCTexture* texture, const qxCVector3d& point, float s1,
                                  float s2, float s3) override;
    void removeDetail(qxCMapDetailRecord* detail) override;
    qxCMapDetailRecord* findDetail(float x, float z) override;
    const CDetailList& getDetails() const { return m_details; }
    /// Draw no detail highlighted, as when the editor is gone that pointed at one.
    void clearDetailHighlights();

    void addEditCursor(int x, int z, int kind) override;
    void clearEditCursors() override;
    std::span<const EditCursor> getEditCursors() const { return m_editCursors; }
    /// While the layer is locked its changes are held back from takeDirtyMarkers. Locks may be nested.
    void lockMarkerLayer() override;
    void unlockMarkerLayer() override;
    /// Only the stroke marks have a layer; other kinds are ignored.
    void setMarkerPixel(qxMapMarkerType type, int x, int z, const qxCColour& colour) override;

    /// For a host that takes edits back: from now on what points were is kept before they change, in tiles.
    void keepPoints();
    /// What has changed since the last call, as it was then; empty when nothing has.
    KeptPoints takeKeptPoints();
    /// Put back what was kept, and keep in its place what was there: to undo, and with the same points to
    /// redo.
    void exchangePoints(KeptPoints& points);
    /// Put `records` in the place of `count` details from `first` on. A record that goes is kept in memory as
    /// long as the map, as an editor may still point at it.
    void replaceDetails(int first, int count, std::span<const qxCMapDetailRecord> records);

    // For a renderer: whole arrays, element z * (getGridDim() + 1) + x, valid as long as the map.
    std::span<const std::uint16_t> getHeights() const { return m_heights.values(); }
    std::span<const qxCColour> getColours() const { return m_colours.values(); }
    std::span<const std::uint16_t> getBlends() const { return m_blends.values(); }
    /// 1 for water, 0 for none.
    std::span<const std::uint8_t> getWaterFlags() const { return m_water.values(); }
    std::span<const qxCColour> getMarkers() const { return m_markers.values(); }

    /// The smallest rectangle of points that changed since the last call; one renderer may call these.
    /// A write of the value that a point already has is no change.
    GridRect takeDirtyHeights() { return m_heightChanges.take(); }
    /// Colours, blends and water.
    GridRect takeDirtySurface() { return m_surfaceChanges.take(); }
    GridRect takeDirtyMarkers() { return m_nMarkerLocks > 0 ? GridRect() : m_markerChanges.take(); }
    /// Grows with every change of the kind; for any number of watchers.
    std::uint64_t getChangeCount(MapChange kind) const;

private:
    void countChange(MapChange kind) { ++m_changeCounts[static_cast<std::size_t>(kind)]; }
    qxCMapDetailRecord* counted(qxCMapDetailRecord* added);

    CMemoryScene* m_pScene;
    int m_nGridDim;
    CPointLayer<std::uint16_t> m_heights;
    CPointLayer<qxCColour> m_colours;
    CPointLayer<std::uint16_t> m_blends;
    CPointLayer<std::uint8_t> m_water;
    CPointLayer<qxCColour> m_markers;
    CGridRegion m_heightChanges;
    CGridRegion m_surfaceChanges;
    CGridRegion m_markerChanges;
    int m_nMarkerLocks = 0;

    std::vector<std::unique_ptr<qxCMapMultiTexture>> m_definitions;
    int m_nCurrentDefinition = 0;
    CSurfacePattern m_pattern;
    std::array<qxCTexture*, 3> m_textures = {};
    int m_nTiling;
    qxCColour m_ambient;
    qxCColour m_diffuse;
    unsigned m_nFlags = 0;
    std::vector<_qxMapTerrainDef> m_terrainDefs;
    CDetailList m_details;
    std::vector<EditCursor> m_editCursors;
    std::array<std::uint64_t, 7> m_changeCounts = {};
};
