#include "sandbox/project/project_map.h"

#include "engine/memory/engine_directories.h"
#include "sandbox/core/reason_text.h"

#include <QDir>
#include <QFile>
#include <algorithm>

namespace {

constexpr std::array<qxMapLayerType, 3> BASE_LAYERS = {qxMapLayerSmooth, qxMapLayerRough, qxMapLayerWater};

int indexOf(const CMemoryScene& scene, const qxCTexture* texture) {
    for (int i = 0; i < scene.getNumTextures(); ++i) {
        if (scene.getTexture(i) == texture) {
            return i;
        }
    }
    return CProjectSettings::NO_TEXTURE;
}

qxCTexture* textureAt(const CMemoryScene& scene, int index) {
    return index == CProjectSettings::NO_TEXTURE ? nullptr : scene.getTexture(index);
}

void captureScene(const CMemoryScene& scene, CProjectSettings& settings) {
    settings.fog = scene.getFogMode() == qxFogModeOn;
    for (int i = 0; i < scene.getNumTextures(); ++i) {
        const qxCTexture& texture = *scene.getTexture(i);
        settings.textures.push_back({QString::fromUtf8(texture.name.getString()),
                                     QString::fromUtf8(texture.getFilename()), texture.getSize(),
                                     texture.getPixelFormat()});
    }
}

void captureRecords(CMemoryMap& map, const CMemoryScene& scene, CProjectSettings& settings) {
    for (int i = 0; i < map.getNumMultiTextures(); ++i) {
        settings.definitions.push_back(*map.getMultiTexture(i));
    }
    for (int i = 0; i < map.getNumTerrainDefs(); ++i) {
        settings.terrainTypes.push_back(*map.getTerrainDef(i));
    }
    for (int i = 0; i < map.getDetails().size(); ++i) {
        const qxCMapDetailRecord& detail = map.getDetails()[i];
        settings.details.push_back({indexOf(scene, detail.texture),
                                    detail.type,
                                    {detail.point0, detail.point1, detail.point2},
                                    detail.scalar});
    }
}

void buildRecords(const CProjectSettings& settings, const CMemoryScene& scene, CMemoryMap& map) {
    for (const qxCMapMultiTexture& definition : settings.definitions) {
        *map.addMultiTexture() = definition;
    }
    map.setCurrentMultiTexture(settings.currentDefinition);
    const int types = std::min(map.getNumTerrainDefs(), static_cast<int>(settings.terrainTypes.size()));
    for (int i = 0; i < types; ++i) {
        *map.getTerrainDef(i) = settings.terrainTypes[static_cast<std::size_t>(i)];
    }
    for (const CProjectDetail& detail : settings.details) {
        map.addDetail(detail.type, textureAt(scene, detail.texture), detail.points[0], detail.points[1],
                      detail.points[2], detail.scalar);
    }
}

void buildPoints(const CProject& project, CMemoryMap& map) {
    std::size_t at = 0;
    for (int z = 0; z < project.edge; ++z) {
        for (int x = 0; x < project.edge; ++x, ++at) {
            map.setPointHeight(x, z, project.heights[at], false);
            map.setPointColour(0, x, z, project.colours[at]);
            map.setPointBlend(1, x, z, project.blends[at]);
            map.setPointWater(x, z, project.water[at] != 0);
        }
    }
}

template <class Values> auto toVector(const Values& values) {
    return std::vector(values.begin(), values.end());
}

} // namespace

CProject captureProject(CMemoryMap& map, const CMemoryScene& scene) {
    CProject project;
    CProjectSettings& settings = project.settings;
    settings.waterLevel = map.waterLevel;
    settings.heightScale = map.heightScale;
    settings.tiling = map.getTextureTiling();
    settings.currentDefinition = map.getCurrentMultiTexture();
    settings.ambient = map.getAmbient();
    settings.diffuse = map.getDiffuse();
    settings.checker = map.hasFlag(qxMapFlagChecker);
    captureScene(scene, settings);
    for (std::size_t layer = 0; layer < BASE_LAYERS.size(); ++layer) {
        settings.baseTextures[layer] = indexOf(scene, map.getTexture(BASE_LAYERS[layer]));
    }
    captureRecords(map, scene, settings);
    project.edge = map.getGridDim() + 1;
    project.heights = toVector(map.getHeights());
    project.blends = toVector(map.getBlends());
    project.colours = toVector(map.getColours());
    project.water = toVector(map.getWaterFlags());
    return project;
}

std::unique_ptr<CMemoryScene> buildScene(const CProject& project) {
    auto scene = std::make_unique<CMemoryScene>();
    scene->setFogMode(project.settings.fog ? qxFogModeOn : qxFogModeOff);
    for (const CProjectTexture& known : project.settings.textures) {
        qxCTexture* texture = scene->createTexture();
        texture->name.setString(known.name.toUtf8().constData());
        texture->setFilename(known.file.toUtf8().constData());
        texture->setSize(known.size);
        texture->setPixelFormat(known.format);
        scene->addTexture(texture);
    }
    return scene;
}

std::unique_ptr<CMemoryMap> buildMap(const CProject& project, CMemoryScene& scene) {
    const CProjectSettings& settings = project.settings;
    auto map = std::make_unique<CMemoryMap>(project.edge - 1, &scene);
    map->waterLevel = settings.waterLevel;
    map->heightScale = settings.heightScale;
    map->setTextureTiling(settings.tiling);
    map->setAmbient(settings.ambient);
    map->setDiffuse(settings.diffuse);
    if (settings.checker) {
        map->setFlag(qxMapFlagChecker);
    }
    for (std::size_t layer = 0; layer < BASE_LAYERS.size(); ++layer) {
        map->setTexture(BASE_LAYERS[layer], textureAt(scene, settings.baseTextures[layer]));
    }
    buildRecords(settings, scene, *map);
    buildPoints(project, *map);
    return map;
}

CProjectFault copyTextures(const CProject& project, const QString& folder) {
    const QString target = QDir(folder).filePath(PROJECT_TEXTURE_FOLDER);
    for (const CProjectTexture& texture : project.settings.textures) {
        const auto source = CEngineDirectories::resolve(texture.file.toStdString());
        const QString copy = QDir(target).filePath(texture.file);
        if (!source || texture.file.isEmpty() || QFile::exists(copy)) {
            continue;
        }
        QFile image(QString::fromStdString(source->string()));
        if (!QDir().mkpath(target)) {
            return {target, "the folder cannot be made"};
        }
        if (!image.copy(copy)) {
            return {copy, reasonText(image.errorString())};
        }
    }
    return {};
}
