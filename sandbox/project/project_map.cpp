#include "sandbox/project/project_map.h"

#include "engine/memory/engine_directories.h"
#include "sandbox/files/safe_file.h"
#include "sandbox/project/project_limits.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <algorithm>
#include <bit>
#include <utility>

namespace {

constexpr std::array<qxMapLayerType, 3> BASE_LAYERS = {qxMapLayerSmooth, qxMapLayerRough, qxMapLayerWater};

int indexOf(const CMemoryScene& scene, const qxCTexture* texture) {
    for (int i = 0; i < scene.getNumTextures(); ++i) {
        if (scene.getTexture(i) == texture) {
            return i;
        }
    }
    return ProjectSettings::NO_TEXTURE;
}

qxCTexture* textureAt(const CMemoryScene& scene, int index) {
    return index == ProjectSettings::NO_TEXTURE ? nullptr : scene.getTexture(index);
}

void captureScene(const CMemoryScene& scene, ProjectSettings& settings) {
    settings.fog = scene.getFogMode() == qxFogModeOn;
    for (int i = 0; i < scene.getNumTextures(); ++i) {
        const qxCTexture& texture = *scene.getTexture(i);
        settings.textures.push_back({QString::fromUtf8(texture.name.getString()),
                                     QString::fromUtf8(texture.getFilename()), texture.getSize(),
                                     texture.getPixelFormat()});
    }
}

void captureRecords(CMemoryMap& map, const CMemoryScene& scene, ProjectSettings& settings) {
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

void buildRecords(const ProjectSettings& settings, const CMemoryScene& scene, CMemoryMap& map) {
    for (const qxCMapMultiTexture& definition : settings.definitions) {
        *map.addMultiTexture() = definition;
    }
    map.setCurrentMultiTexture(settings.currentDefinition);
    const int types = std::min(map.getNumTerrainDefs(), static_cast<int>(settings.terrainTypes.size()));
    for (int i = 0; i < types; ++i) {
        *map.getTerrainDef(i) = settings.terrainTypes[static_cast<std::size_t>(i)];
    }
    for (const ProjectDetail& detail : settings.details) {
        map.addDetail(detail.type, textureAt(scene, detail.texture), detail.points[0], detail.points[1],
                      detail.points[2], detail.scalar);
    }
}

std::size_t bitsOf(const qxCColour& colour) {
    return std::bit_cast<std::uint32_t>(colour);
}

/// Both records are made of fields without gaps, so their bytes are their values.
template <class Record> std::size_t bytesHash(const Record& record, std::size_t seed) {
    static_assert(sizeof(qxCMapMultiTexture) == 16 && sizeof(_qxMapTerrainDef) == 144);
    return qHashBits(&record, sizeof record, seed);
}

std::size_t detailHash(const qxCMapDetailRecord& detail, std::size_t seed) {
    for (const qxCVector3d* point : {&detail.point0, &detail.point1, &detail.point2}) {
        seed = qHashMulti(seed, point->x, point->y, point->z);
    }
    return qHashMulti(seed, detail.texture, detail.scalar, static_cast<int>(detail.type));
}

std::size_t textureHash(const qxCTexture& texture, std::size_t seed) {
    const std::string_view name = texture.name.getString();
    const std::string_view file = texture.getFilename();
    seed = qHashBits(name.data(), name.size(), seed);
    seed = qHashBits(file.data(), file.size(), seed);
    return qHashMulti(seed, static_cast<int>(texture.getSize()), static_cast<int>(texture.getPixelFormat()));
}

/// Copy files that the engine finds into the folder `target`, which is made when there is one to copy.
ProjectFault copyInto(const QString& target, const QStringList& files, QStringList& copied) {
    for (const QString& file : files) {
        const auto source = CEngineDirectories::resolve(file.toStdString());
        const QString copy = QDir(target).filePath(file);
        if (!source || file.isEmpty() || file != QFileInfo(file).fileName() || QFile::exists(copy)) {
            continue;
        }
        bool made = false;
        if (const QString reason = makeFolder(target, made); !reason.isEmpty()) {
            return {target, reason};
        }
        QByteArray contents;
        const QString path = QString::fromStdString(source->string());
        if (const QString reason = readWholeFile(path, LARGEST_LAYER_FILE, contents); !reason.isEmpty()) {
            return {path, reason};
        }
        copied.append(copy); // it may be there although the disk reports a fault
        if (const QString reason = replaceFile(copy, contents); !reason.isEmpty()) {
            return {copy, reason};
        }
    }
    return {};
}

template <class Values> auto toVector(const Values& values) {
    return std::vector(values.begin(), values.end());
}

} // namespace

Project captureProject(CMemoryMap& map, const CMemoryScene& scene, const KeptLayers& kept) {
    Project project;
    ProjectSettings& settings = project.settings;
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
    if (!kept.heights) {
        project.heights = toVector(map.getHeights());
    }
    if (!kept.surface) {
        project.blends = toVector(map.getBlends());
        project.colours = toVector(map.getColours());
        project.water = toVector(map.getWaterFlags());
    }
    return project;
}

std::uint64_t recordsHash(CMemoryMap& map, const CMemoryScene& scene) {
    std::size_t hash = qHashMulti(0, map.waterLevel, map.heightScale, map.getTextureTiling(),
                                  bitsOf(map.getAmbient()), bitsOf(map.getDiffuse()),
                                  map.hasFlag(qxMapFlagChecker), static_cast<int>(scene.getFogMode()));
    for (const qxMapLayerType layer : BASE_LAYERS) {
        hash = qHashMulti(hash, map.getTexture(layer));
    }
    hash = qHashMulti(hash, scene.getNumTextures(), map.getNumMultiTextures(), map.getDetails().size());
    for (int i = 0; i < scene.getNumTextures(); ++i) {
        hash = textureHash(*scene.getTexture(i), hash);
    }
    for (int i = 0; i < map.getNumMultiTextures(); ++i) {
        hash = bytesHash(*map.getMultiTexture(i), hash);
    }
    for (int i = 0; i < map.getNumTerrainDefs(); ++i) {
        hash = bytesHash(*map.getTerrainDef(i), hash);
    }
    for (int i = 0; i < map.getDetails().size(); ++i) {
        hash = detailHash(map.getDetails()[i], hash);
    }
    return hash;
}

std::unique_ptr<CMemoryScene> buildScene(const Project& project) {
    auto scene = std::make_unique<CMemoryScene>();
    scene->setFogMode(project.settings.fog ? qxFogModeOn : qxFogModeOff);
    for (const ProjectTexture& known : project.settings.textures) {
        qxCTexture* texture = scene->createTexture();
        texture->name.setString(known.name.toUtf8().constData());
        texture->setFilename(known.file.toUtf8().constData());
        texture->setSize(known.size);
        texture->setPixelFormat(known.format);
        scene->addTexture(texture);
    }
    return scene;
}

std::unique_ptr<CMemoryMap> buildMap(Project&& project, CMemoryScene& scene) {
    const ProjectSettings& settings = project.settings;
    auto map = std::make_unique<CMemoryMap>(project.edge - 1, &scene,
                                            MapPoints{std::move(project.heights),
                                                      std::move(project.colours),
                                                      std::move(project.blends),
                                                      std::move(project.water),
                                                      {}});
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
    return map;
}

ProjectFault copyFiles(const Project& project, const QString& folder, QStringList& copied) {
    QStringList images;
    for (const ProjectTexture& texture : project.settings.textures) {
        images.append(texture.file);
    }
    ProjectFault fault = copyInto(QDir(folder).filePath(PROJECT_TEXTURE_FOLDER), images, copied);
    if (fault.reason.isEmpty() && project.settings.film) {
        const std::vector<QString>& sounds = project.settings.film->sounds;
        fault = copyInto(QDir(folder).filePath(PROJECT_SOUND_FOLDER), {sounds.begin(), sounds.end()}, copied);
    }
    return fault;
}
