#pragma once

#include "engine/qx_api.h"
#include "engine/qx_colour.h"
#include "engine/qx_map_records.h"
#include "engine/qx_node.h"

class qxCTexture;

enum qxMapLayerType { qxMapLayerSmooth = 0, qxMapLayerRough = 1, qxMapLayerWater = 2 };

/// Kinds of marker pixels; the toolkit's stroke and selection marks are of kind 2.
enum qxMapMarkerType { qxMapMarkerStroke = 2 };

/// Display flags of a map. The toolkit's checkerboard button switches 32: the ground is drawn with a
/// checkerboard of its cells instead of its textures.
enum qxMapFlag { qxMapFlagChecker = 32 };

/// The terrain: a square grid of getGridDim() cells a side and so getGridDim() + 1 points a side. A point is
/// addressed by x, then z, both 0 to getGridDim(); cell (x, z) has the corners (x, z), (x + 1, z),
/// (x + 1, z + 1) and (x, z + 1). Every per-point operation accepts any ints: a write outside the grid is
/// ignored, a read there gives a harmless value. The host owns the map; all calls come from its
/// user-interface thread.
class QX_API qxCMap : public qxCNode {
public:
    /// Height of standing water in world units; divided by heightScale it is in point-height units.
    float waterLevel = 0.0F;
    /// World units per point-height unit, positive.
    float heightScale = 1.0F;

    virtual int getGridDim() const = 0;

    // Points. Colours are kept on layer 0, blends on layer 1. The Q reads give the stored value: written back
    // through the matching set operation it restores the point exactly.
    virtual int getPointHeight(int x, int z) const = 0;
    /// Height units. `direct` is true when a tool shapes the point by hand, false when a filter or an undo
    /// writes it; an engine may react to hand work (settle what stands there) but stores both alike.
    virtual void setPointHeight(int x, int z, int height, bool direct) = 0;
    virtual qxCColour getPointColour(int layer, int x, int z) const = 0;
    virtual void setPointColour(int layer, int x, int z, const qxCColour& colour) = 0;
    virtual bool getPointWater(int x, int z) const = 0;
    /// Slope at the point in degrees, 0 on level ground.
    virtual float getGradient(int x, int z) const = 0;
    virtual int getPointHeightQ(int x, int z) const = 0;
    virtual qxCColour getPointColourQ(int layer, int x, int z) const = 0;
    virtual int getPointBlendQ(int layer, int x, int z) const = 0;
    virtual void setPointBlend(int layer, int x, int z, int value) = 0;

    // Painting and water.
    /// Mix the current texture definition into the point; weight 0.0 to 1.0.
    virtual void paintMultiTexture(int x, int z, float weight) = 0;
    virtual void addWater(int x, int z) = 0;
    virtual void removeWater(int x, int z) = 0;

    // Texture definitions and base textures.
    virtual int getNumMultiTextures() const = 0;
    /// Null outside 0 to getNumMultiTextures() - 1. Valid until removed.
    virtual qxCMapMultiTexture* getMultiTexture(int index) = 0;
    virtual qxCMapMultiTexture* addMultiTexture() = 0;
    /// Later definitions move down by one. An index that does not exist is ignored.
    virtual void removeMultiTexture(int index) = 0;
    virtual void setCurrentMultiTexture(int index) = 0;
    virtual int getCurrentMultiTexture() const = 0;
    virtual void setTexture(qxMapLayerType layer, qxCTexture* texture) = 0;
    virtual qxCTexture* getTexture(qxMapLayerType layer) const = 0;
    /// Repeats of the base textures over the map, 1 to 256.
    virtual void setTextureTiling(int tiling) = 0;
    virtual int getTextureTiling() const = 0;
    /// Rebuild what the engine derives from the textures and the tiling.
    virtual void invalidate() = 0;

    // Material, flags, terrain types.
    virtual void setAmbient(const qxCColour& colour) = 0;
    virtual qxCColour getAmbient() const = 0;
    virtual void setDiffuse(const qxCColour& colour) = 0;
    virtual qxCColour getDiffuse() const = 0;
    virtual void setFlag(qxMapFlag flag) = 0;
    virtual void clearFlag(qxMapFlag flag) = 0;
    virtual bool hasFlag(qxMapFlag flag) const = 0;
    virtual int getNumTerrainDefs() const = 0;
    /// Null outside 0 to getNumTerrainDefs() - 1; edited in place.
    virtual _qxMapTerrainDef* getTerrainDef(int index) = 0;

    // Details. Records belong to the map and stay valid until removed.
    virtual qxCMapDetailRecord* addDetail(qxDetailType type, qxCTexture* texture, const qxCVector3d& p0,
                                          const qxCVector3d& p1, const qxCVector3d& p2, float scalar) = 0;
    virtual qxCMapDetailRecord* addDetail(qxDetailType type, qxCTexture* texture, const qxCVector3d& position,
                                          float s1, float s2, float s3) = 0;
    virtual void removeDetail(qxCMapDetailRecord* detail) = 0;
    /// The detail under the grid position, or null.
    virtual qxCMapDetailRecord* findDetail(float x, float z) = 0;

    // Edit cursors (kinds 0 to 15; cells beyond the grid are harmless) and the marker overlay.
    virtual void addEditCursor(int x, int z, int kind) = 0;
    virtual void clearEditCursors() = 0;
    virtual void lockMarkerLayer() = 0;
    virtual void unlockMarkerLayer() = 0;
    virtual void setMarkerPixel(qxMapMarkerType type, int x, int z, const qxCColour& colour) = 0;
};
