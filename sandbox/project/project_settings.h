#pragma once

#include "engine/qx_colour.h"
#include "engine/qx_map_records.h"
#include "engine/qx_texture.h"
#include "sandbox/project/project_film.h"

#include <QString>
#include <array>
#include <optional>
#include <vector>

/// One texture of the project's scene.
struct ProjectTexture {
    QString name;
    QString file; ///< bare file name
    qxTextureSize size = qxTextureSize256;
    qxImagePixelFormat format = qxPixelFormatAuto;
};

/// One detail; `texture` is a position in ProjectSettings::textures, or NO_TEXTURE.
struct ProjectDetail {
    int texture = -1;
    qxDetailType type = qxDetailTypeQuad;
    std::array<qxCVector3d, 3> points;
    float scalar = 1.0F;
};

/// File names of the layers beside the project file, bare.
struct ProjectLayers {
    QString heights; ///< 16-bit grey PNG, height units
    QString blends;  ///< 16-bit grey PNG, 0 smooth to 65535 rough
    QString colours; ///< PNG with alpha, the points' tint
    QString water;   ///< grey PNG, anything but 0 is water
    QString details; ///< layer of details; empty where the project file lists them
};

/// What a project file says: all of a map and its scene but the values of each point, which are layers.
struct ProjectSettings {
    static constexpr int NO_TEXTURE = -1;

    ProjectLayers layers;
    float waterLevel = 0.0F;  ///< world units
    float heightScale = 1.0F; ///< world units per height unit, positive
    int tiling = 1;           ///< 1 to 256
    int currentDefinition = 0;
    qxCColour ambient;
    qxCColour diffuse;
    bool fog = false;
    bool checker = false;
    std::array<int, 3> baseTextures{NO_TEXTURE, NO_TEXTURE, NO_TEXTURE}; ///< smooth, rough, water
    std::vector<ProjectTexture> textures;
    std::vector<qxCMapMultiTexture> definitions;
    std::vector<_qxMapTerrainDef> terrainTypes;
    std::vector<ProjectDetail> details;
    std::optional<ProjectFilm> film; ///< none in a project from before there were films
};
