#pragma once

#include "engine/qx_colour.h"
#include "engine/qx_vector3d.h"

class qxCTexture;

/// A terrain texture definition. The engine may keep more behind these fields.
class qxCMapMultiTexture {
public:
    qxCColour tint1{255, 255, 255, 255}; ///< first tint colour
    qxCColour tint2{255, 255, 255, 255}; ///< second tint colour
    float blend = 0.0F;                  ///< 0.0 all smooth texture, 1.0 all rough texture
    float variation = 0.0F;              ///< random spread of the blend, 0.0 to 1.0
};

/// A terrain type: the parameters of the engine's smoothing pass.
struct _qxMapTerrainDef { // NOLINT(bugprone-reserved-identifier): the engine's name for it
    static constexpr int FILTER_EDGE = 5;

    char name[31] = {}; ///< zero-terminated
    bool preserveFlatAreas = false;
    float noise = 0.0F;
    float effectOnNeighbours = 0.0F;
    float filter[FILTER_EDGE * FILTER_EDGE] = {}; ///< column by column: element 5 * column + row
    float weighting = 0.0F;
};

/// Value of qxCMapDetailRecord::type.
enum qxDetailType { qxDetailTypeQuad = 0, qxDetailTypePoint = 1 };

/// One terrain detail, drawn from the current values of these fields. The map owns it.
class qxCMapDetailRecord {
public:
    qxCTexture* texture = nullptr; ///< not owned
    qxCVector3d point0;            ///< quad: origin corner
    qxCVector3d point1;            ///< quad: corner along x
    qxCVector3d point2;            ///< quad: corner along z
    float scalar = 1.0F;
    unsigned char highlighted = 0; ///< non-zero: drawn highlighted
    qxDetailType type = qxDetailTypeQuad;
};
