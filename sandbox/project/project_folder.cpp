#include "sandbox/project/project_folder.h"

#include "sandbox/app/heightmap_file.h"
#include "sandbox/core/reason_text.h"
#include "sandbox/project/colour_layer.h"
#include "sandbox/project/project_json.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <algorithm>

namespace {

constexpr qint64 LARGEST_PROJECT_FILE = 64LL * 1024 * 1024;

ProjectFault readSettings(const QString& path, Project& project) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {path, reasonText(file.errorString())};
    }
    if (file.size() > LARGEST_PROJECT_FILE) {
        return {path, "it is larger than a project file can be"};
    }
    ProjectJsonReading reading = parseProjectJson(file.readAll());
    if (!reading.error.isEmpty()) {
        return {path, reading.error};
    }
    project.settings = std::move(reading.settings);
    project.original = std::move(reading.original);
    return {};
}

/// A grey layer of `edge` points a side; 0 takes the size of the picture.
ProjectFault readGreyLayer(const QString& path, int edge, Heightmap& layer) {
    HeightmapReading reading = readHeightmapFile(path);
    if (!reading.error.empty()) {
        return {path, QString::fromStdString(reading.error)};
    }
    if (reading.isCropped() || (edge != 0 && reading.map.edge != edge)) {
        return {path, QString("the picture is %1 x %2, which does not fit the map")
                          .arg(reading.pictureWidth)
                          .arg(reading.pictureHeight)};
    }
    layer = std::move(reading.map);
    return {};
}

ProjectFault readLayers(const QDir& folder, Project& project) {
    const ProjectLayers& names = project.settings.layers;
    Heightmap heights;
    Heightmap blends;
    Heightmap water;
    ProjectFault fault = readGreyLayer(folder.filePath(names.heights), 0, heights);
    if (fault.reason.isEmpty()) {
        fault = readGreyLayer(folder.filePath(names.blends), heights.edge, blends);
    }
    if (fault.reason.isEmpty()) {
        fault = readGreyLayer(folder.filePath(names.water), heights.edge, water);
    }
    if (fault.reason.isEmpty()) {
        const QString path = folder.filePath(names.colours);
        fault = {path, readColourLayer(path, heights.edge, project.colours)};
    }
    if (!fault.reason.isEmpty()) {
        return fault;
    }
    project.edge = heights.edge;
    project.heights = std::move(heights.heights);
    project.blends = std::move(blends.heights);
    project.water.resize(water.heights.size());
    std::ranges::transform(water.heights, project.water.begin(), [](std::uint16_t value) {
        return value != 0 ? std::uint8_t{1} : std::uint8_t{0};
    });
    return {};
}

/// Layer names that stand in the folder for nothing else yet: heights.1.png, heights.2.png and so on.
ProjectLayers unusedNames(const QDir& folder) {
    for (int number = 1;; ++number) {
        const auto name = [number](const char* layer) { return QString("%1.%2.png").arg(layer).arg(number); };
        const ProjectLayers names = {name("heights"), name("blends"), name("colours"), name("water")};
        const auto taken = [&](const QString& file) { return QFileInfo::exists(folder.filePath(file)); };
        if (!taken(names.heights) && !taken(names.blends) && !taken(names.colours) && !taken(names.water)) {
            return names;
        }
    }
}

ProjectFault writeLayers(const QDir& folder, const ProjectLayers& names, const Project& project) {
    Heightmap water{project.edge, {}};
    water.heights.resize(project.water.size());
    std::ranges::transform(project.water, water.heights.begin(), [](std::uint8_t value) {
        return value != 0 ? std::uint16_t{0xFFFF} : std::uint16_t{0};
    });
    const auto writeGrey = [&](const QString& name, const Heightmap& layer) {
        const QString path = folder.filePath(name);
        return ProjectFault{path, writeHeightmapFile(path, layer)};
    };
    ProjectFault fault = writeGrey(names.heights, {project.edge, project.heights});
    if (fault.reason.isEmpty()) {
        fault = writeGrey(names.blends, {project.edge, project.blends});
    }
    if (fault.reason.isEmpty()) {
        fault = writeGrey(names.water, water);
    }
    if (fault.reason.isEmpty()) {
        const QString path = folder.filePath(names.colours);
        fault = {path, writeColourLayer(path, project.edge, project.colours)};
    }
    return fault;
}

QStringList filesOf(const ProjectLayers& layers) {
    return {layers.heights, layers.blends, layers.colours, layers.water};
}

void removeLayers(const QDir& folder, const QStringList& names) {
    for (const QString& name : names) {
        QFile::remove(folder.filePath(name));
    }
}

/// The layers that the project file now in the folder refers to, as far as a save gave them their names. A
/// picture that a person put there under another name is theirs and stays.
QStringList layersToReplace(const QDir& folder) {
    static const QRegularExpression OURS("^(heights|blends|colours|water)\\.[0-9]+\\.png$");
    Project earlier;
    if (!readSettings(folder.filePath(PROJECT_FILE_NAME), earlier).reason.isEmpty()) {
        return {};
    }
    return filesOf(earlier.settings.layers).filter(OURS);
}

ProjectFault writeSettings(const QDir& folder, const ProjectSettings& settings, const QJsonObject& original) {
    const QString path = folder.filePath(PROJECT_FILE_NAME);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return {path, reasonText(file.errorString())};
    }
    file.write(writeProjectJson(settings, original));
    return {path, file.commit() ? QString() : reasonText(file.errorString())};
}

} // namespace

ProjectFault readProject(const QString& folder, Project& project) {
    const QFileInfo info(folder);
    const QDir directory = info.isDir() ? QDir(folder) : info.dir();
    const QString path = info.isDir() ? directory.filePath(PROJECT_FILE_NAME) : folder;
    Project read;
    ProjectFault fault = readSettings(path, read);
    if (fault.reason.isEmpty()) {
        fault = readLayers(directory, read);
    }
    if (fault.reason.isEmpty()) {
        project = std::move(read);
    }
    return fault;
}

ProjectFault writeProject(const QString& folder, Project& project) {
    if (!QDir().mkpath(folder)) {
        return {folder, "the folder cannot be made"};
    }
    const QDir directory(folder);
    const QStringList replaced = layersToReplace(directory);
    ProjectSettings settings = project.settings;
    settings.layers = unusedNames(directory);
    ProjectFault fault = writeLayers(directory, settings.layers, project);
    if (fault.reason.isEmpty()) {
        fault = writeSettings(directory, settings, project.original);
    }
    removeLayers(directory, fault.reason.isEmpty() ? replaced : filesOf(settings.layers));
    if (fault.reason.isEmpty()) {
        project.settings = std::move(settings);
    }
    return fault;
}
