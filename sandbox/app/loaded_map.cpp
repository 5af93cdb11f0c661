#include "sandbox/app/loaded_map.h"

#include "engine/qx_texture.h"
#include "sandbox/app/file_places.h"
#include "sandbox/app/ground_dressing.h"
#include "sandbox/core/long_work.h"
#include "sandbox/files/file_stamp.h"
#include "sandbox/files/heightmap_file.h"
#include "sandbox/film/film_record.h"
#include "sandbox/project/layer_files.h"
#include "sandbox/project/project_map.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>
#include <algorithm>
#include <future>

namespace {

constexpr std::uint16_t NEW_HEIGHT = 100;
constexpr double RELIEF = 0.07;        // highest ground over lowest, as a part of the map's width
constexpr double STEEPEST_UNIT = 0.05; // world units that a height unit may have at most
constexpr double FIRST_WATER = 0.04;   // of the way from the lowest ground to the highest

bool isProjectPath(const QString& path) {
    const QFileInfo info(path);
    return info.isDir() || info.suffix().compare("json", Qt::CaseInsensitive) == 0;
}

/// World units per height unit, so that a map looks like a landscape whatever unit its heights are in: its
/// relief is a set part of its width, but nearly level ground is not blown up into mountains.
float scaleFor(int relief, int cells) {
    return static_cast<float>(std::min(RELIEF * cells / std::max(relief, 1), STEEPEST_UNIT));
}

/// What a map holds beside its heights, as memory that the system has given already.
MapPoints blankPoints(int edge) {
    const std::size_t count = static_cast<std::size_t>(edge) * static_cast<std::size_t>(edge);
    return {{},
            std::vector<qxCColour>(count),
            std::vector<std::uint16_t>(count),
            std::vector<std::uint8_t>(count),
            std::vector<qxCColour>(count)};
}

QString cropNote(const HeightmapReading& reading) {
    if (!reading.isCropped()) {
        return {};
    }
    return QString("The picture is %1 x %2; the %3 x %3 points in its middle were taken. "
                   "Save them under a name of their own.")
        .arg(reading.pictureWidth)
        .arg(reading.pictureHeight)
        .arg(reading.map.edge);
}

/// A texture for each image in the textures folder beside the map and in that of the samples.
void listTextures(CMemoryScene& scene, const QString& mapFolder) {
    QSet<QString> known;
    for (const QString& folder : textureFoldersOf(mapFolder)) {
        if (folder == mapFolder) {
            continue; // the heightmaps there are no textures
        }
        for (const QFileInfo& file :
             QDir(folder).entryInfoList({"*.tga", "*.png"}, QDir::Files, QDir::Name)) {
            if (known.contains(file.fileName().toLower())) {
                continue;
            }
            known.insert(file.fileName().toLower());
            qxCTexture* texture = scene.createTexture();
            texture->name.setString(file.completeBaseName().toUtf8().constData());
            texture->setFilename(file.fileName().toUtf8().constData());
            scene.addTexture(texture);
        }
    }
}

/// A film that has yet to be made: it looks over the map from the south.
std::unique_ptr<CFilm> makeFilm(const CMemoryMap& map, CMemoryScene& scene) {
    constexpr float HEIGHT = 0.35F; // of the map's width, above the ground in its middle
    constexpr float PITCH = -24.0F;
    constexpr float NORTHWARDS = 180.0F;
    const int middle = map.getGridDim() / 2;
    const auto width = static_cast<float>(map.getGridDim());
    const float ground = static_cast<float>(map.getPointHeight(middle, middle)) * map.heightScale;
    qxCMovieFrame pose;
    pose.translation = {width / 2.0F, ground + width * HEIGHT, width * 1.1F};
    pose.rotation = {PITCH, NORTHWARDS, 0.0F};
    return std::make_unique<CFilm>(scene, CFilm::FIRST_FRAMES, pose);
}

/// The points' memory may be there already, with what a new map has in it; their heights are those given.
void dress(LoadedMap& made, Heightmap heights, MapPoints points) {
    made.scene = std::make_unique<CMemoryScene>();
    const HeightRange range = rangeOf(heights.heights);
    const float scale = scaleFor(range.relief(), heights.edge - 1);
    points.heights = std::move(heights.heights);
    paintGround(points, heights.edge, range, scale);
    made.map = std::make_unique<CMemoryMap>(heights.edge - 1, made.scene.get(), std::move(points));
    CMemoryMap& map = *made.map;
    map.heightScale = scale;
    map.waterLevel = static_cast<float>(range.low + range.relief() * FIRST_WATER) * scale;
    listTextures(*made.scene, made.folder);
    dressGround(map, *made.scene);
    made.film = makeFilm(map, *made.scene);
}

void build(LoadedMap& made, Project&& project) {
    made.scene = buildScene(project);
    made.map = buildMap(std::move(project), *made.scene);
    const std::optional<ProjectFilm>& film = project.settings.film;
    made.film = film ? buildFilm(*film, *made.scene) : makeFilm(*made.map, *made.scene);
    made.original = project.original;
}

QString loadHeightmap(const QString& path, LoadedMap& loaded) {
    const CLongWork::CPart part(CLongWork::current(), 1.0);
    // While the picture is decoded, another thread asks the system for the memory of the rest.
    std::future<MapPoints> points = std::async(std::launch::async, blankPoints, edgeOfHeightmapFile(path));
    LoadedMap made;
    made.kind = CMapPlace::Kind::HEIGHTMAP;
    made.path = path;
    made.folder = QFileInfo(path).absolutePath();
    made.stamp = stampOf({QFileInfo(path).absoluteFilePath()});
    HeightmapReading reading = readHeightmapFile(path);
    if (!reading.error.empty()) {
        return failedTo("open", path, QString::fromStdString(reading.error));
    }
    made.bits = static_cast<HeightmapBits>(reading.pictureBits);
    made.note = cropNote(reading);
    dress(made, std::move(reading.map), points.get());
    loaded = std::move(made);
    return {};
}

QString loadProject(const QString& path, LoadedMap& loaded) {
    Project project;
    const ProjectFault fault = readProject(path, project);
    if (!fault.reason.isEmpty()) {
        return failedTo("open", fault.path, fault.reason);
    }
    const QFileInfo info(path);
    LoadedMap made;
    made.kind = CMapPlace::Kind::PROJECT;
    made.folder = info.isDir() ? info.absoluteFilePath() : info.absolutePath();
    made.path = made.folder;
    made.layers = filesOf(project.settings.layers);
    made.stamp = stampOf(CMapPlace::filesOf(made.kind, made.path, made.layers));
    build(made, std::move(project));
    loaded = std::move(made);
    return {};
}

} // namespace

LoadedMap makeLevelGround(int dim) {
    const auto edge = static_cast<std::size_t>(dim) + 1;
    LoadedMap made;
    dress(made, {dim + 1, std::vector<std::uint16_t>(edge * edge, NEW_HEIGHT)}, {});
    return made;
}

QString loadMap(const QString& path, LoadedMap& loaded) {
    return isProjectPath(path) ? loadProject(path, loaded) : loadHeightmap(path, loaded);
}

QString loadCopy(const AbandonedCopy& copy, LoadedMap& loaded) {
    Project project;
    const ProjectFault fault = readProject(copy.folder, project);
    if (!fault.reason.isEmpty()) {
        return failedTo("open", fault.path, fault.reason);
    }
    CAutomaticCopy::unmark(project);
    LoadedMap made;
    build(made, std::move(project));
    loaded = std::move(made);
    return {};
}

QString failedTo(const char* what, const QString& path, const QString& reason) {
    return QString("Failed to %1 %2: %3").arg(what, path, reason);
}
