#include "sandbox/project/project_folder.h"

#include "sandbox/core/heightmap_png.h"
#include "sandbox/files/folder_lock.h"
#include "sandbox/files/safe_file.h"
#include "sandbox/project/colour_layer.h"
#include "sandbox/project/detail_layer.h"
#include "sandbox/project/layer_files.h"
#include "sandbox/project/project_json.h"
#include "sandbox/project/project_limits.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <chrono>
#include <future>
#include <span>

namespace {

constexpr std::chrono::seconds PATIENCE(10); // with a program that saves there

std::span<const std::uint8_t> bytesOf(const QByteArray& bytes) {
    return {reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size())};
}

/// Reads the layers of one project, each checked against the sum that the project file holds of it.
class CLayerReader {
public:
    CLayerReader(const QDir& folder, const ProjectChecksums& checksums)
        : m_folder(folder), m_checksums(checksums) {}

    ProjectFault read(Project& project);

private:
    QString readBytes(const QString& name, const char* key, QByteArray& bytes) const;
    QString readGrey(const QString& name, const char* key, std::vector<std::uint16_t>& values);
    QString readColours(const Project& project, std::vector<qxCColour>& colours) const;
    QString readDetails(ProjectSettings& settings) const;

    QDir m_folder;
    const ProjectChecksums& m_checksums;
    int m_nEdge = 0; ///< of the first layer
};

QString CLayerReader::readBytes(const QString& name, const char* key, QByteArray& bytes) const {
    const QString reason = readWholeFile(m_folder.filePath(name), LARGEST_LAYER_FILE, bytes);
    if (!reason.isEmpty() || !m_checksums.contains(key) || m_checksums[key] == checksumOf(bytes)) {
        return reason;
    }
    return "it was changed or damaged after it was saved; to open it as it is, remove \"checksums\" from the "
           "project file";
}

QString CLayerReader::readGrey(const QString& name, const char* key, std::vector<std::uint16_t>& values) {
    QByteArray bytes;
    if (const QString reason = readBytes(name, key, bytes); !reason.isEmpty()) {
        return reason;
    }
    HeightmapReading reading = decodeHeightmap(bytesOf(bytes));
    if (!reading.error.empty()) {
        return QString::fromStdString(reading.error);
    }
    if (reading.isCropped() || (m_nEdge != 0 && reading.map.edge != m_nEdge)) {
        return QString("the picture is %1 x %2, which does not fit the map")
            .arg(reading.pictureWidth)
            .arg(reading.pictureHeight);
    }
    m_nEdge = reading.map.edge;
    values = std::move(reading.map.heights);
    return {};
}

QString CLayerReader::readColours(const Project& project, std::vector<qxCColour>& colours) const {
    QByteArray bytes;
    const QString reason = readBytes(project.settings.layers.colours, "colours", bytes);
    return reason.isEmpty() ? decodeColours(bytesOf(bytes), m_nEdge, colours) : reason;
}

QString CLayerReader::readDetails(ProjectSettings& settings) const {
    if (settings.layers.details.isEmpty()) {
        return {}; // the first format lists them in the project file
    }
    QByteArray bytes;
    const QString reason = readBytes(settings.layers.details, "details", bytes);
    return reason.isEmpty()
               ? decodeDetails(bytes, static_cast<int>(settings.textures.size()), settings.details)
               : reason;
}

ProjectFault CLayerReader::read(Project& project) {
    const ProjectLayers& names = project.settings.layers;
    std::vector<std::uint16_t> water;
    QString name = names.heights;
    QString reason = readGrey(name, "heights", project.heights);
    if (reason.isEmpty()) {
        name = names.blends;
        reason = readGrey(name, "blends", project.blends);
    }
    if (reason.isEmpty()) {
        name = names.water;
        reason = readGrey(name, "water", water);
    }
    if (reason.isEmpty()) {
        name = names.colours;
        reason = readColours(project, project.colours);
    }
    if (reason.isEmpty()) {
        name = names.details;
        reason = readDetails(project.settings);
    }
    if (!reason.isEmpty()) {
        return {m_folder.filePath(name), reason};
    }
    project.edge = m_nEdge;
    project.water.resize(water.size());
    std::ranges::transform(water, project.water.begin(), [](std::uint16_t value) {
        return value != 0 ? std::uint8_t{1} : std::uint8_t{0};
    });
    return {};
}

ProjectFault readSettings(const QString& path, Project& project, ProjectChecksums& checksums) {
    QByteArray text;
    if (const QString reason = readWholeFile(path, LARGEST_PROJECT_FILE, text); !reason.isEmpty()) {
        return {path, reason};
    }
    ProjectJsonReading reading = parseProjectJson(text);
    if (!reading.error.isEmpty()) {
        return {path, reading.error};
    }
    project.settings = std::move(reading.settings);
    project.original = std::move(reading.original);
    checksums = std::move(reading.checksums);
    return {};
}

/// Writes one project into its folder. Lives for one save.
class CProjectSaver {
public:
    CProjectSaver(const QString& folder, Project& project, const KeptLayers& kept)
        : m_folder(folder), m_project(project), m_settings(project.settings), m_kept(kept) {}

    ProjectFault save();

private:
    QString checkLimits() const;
    ProjectFault saveLocked();
    ProjectFault writeLayers(bool& taken);
    ProjectFault putSurface(std::future<QByteArray> colours, bool& taken);
    ProjectFault writeProjectFile();
    ProjectFault put(const QString& name, const char* key, const QByteArray& bytes, bool& taken);
    ProjectFault putGrey(const QString& name, const char* key, const std::vector<std::uint16_t>& values,
                         bool& taken);
    void removeWritten();
    QString readFormer();
    void keep(QString ProjectLayers::*layer, const char* key);
    QString projectFile() const { return m_folder.filePath(PROJECT_FILE_NAME); }

    QDir m_folder;
    Project& m_project;
    ProjectSettings m_settings; ///< as they will be saved
    KeptLayers m_kept;
    ProjectLayers m_former; ///< of the save before
    ProjectChecksums m_formerChecksums;
    ProjectChecksums m_checksums;
    QStringList m_written;
};

QString CProjectSaver::checkLimits() const {
    const auto tooMany = [](std::size_t count, int most, const char* what) {
        return count > static_cast<std::size_t>(most)
                   ? QString("it has %1 %2; a project has at most %3").arg(count).arg(what).arg(most)
                   : QString();
    };
    const ProjectFilm film = m_settings.film.value_or(ProjectFilm());
    const QString reasons[] = {
        tooMany(m_settings.textures.size(), MOST_TEXTURES, "textures"),
        tooMany(m_settings.definitions.size(), MOST_DEFINITIONS, "texture definitions"),
        tooMany(m_settings.terrainTypes.size(), MOST_TERRAIN_TYPES, "terrain types"),
        tooMany(m_settings.details.size(), MOST_DETAILS, "details"),
        tooMany(static_cast<std::size_t>(film.frameCount), MOST_FRAMES, "frames of film"),
        tooMany(film.frames.size(), MOST_STORED_FRAMES, "keyframes and other frames of their own"),
        tooMany(film.cameras.size(), MOST_CAMERAS, "cameras"),
        tooMany(film.places.size(), MOST_PLACES, "places"),
        tooMany(film.figures.size(), MOST_FIGURES, "figures"),
        tooMany(film.sounds.size(), MOST_SOUNDS, "sounds")};
    const auto* const found =
        std::ranges::find_if(reasons, [](const QString& reason) { return !reason.isEmpty(); });
    return found != std::end(reasons) ? *found : QString();
}

ProjectFault CProjectSaver::save() {
    if (const QString reason = checkLimits(); !reason.isEmpty()) {
        return {m_folder.path(), reason};
    }
    bool made = false;
    if (const QString reason = makeFolder(m_folder.path(), made); !reason.isEmpty()) {
        return {m_folder.path(), reason};
    }
    ProjectFault fault;
    {
        CFolderLock lock;
        fault = {m_folder.path(), lock.acquire(m_folder.path(), CFolderLock::Kind::EXCLUSIVE, PATIENCE)};
        if (fault.reason.isEmpty()) {
            fault = saveLocked();
        }
    }
    if (!fault.reason.isEmpty() && made) {
        QDir().rmdir(m_folder.path()); // only when nothing is in it
    }
    return fault;
}

ProjectFault CProjectSaver::saveLocked() {
    ProjectFault fault{projectFile(), readFormer()};
    if (!fault.reason.isEmpty()) {
        return fault;
    }
    bool taken = true; // by a program that knows no locks
    for (int number = 1; taken; ++number) {
        m_settings.layers = unusedLayerNames(m_folder, number);
        m_checksums.clear();
        fault = writeLayers(taken);
    }
    if (fault.reason.isEmpty()) {
        fault = writeProjectFile();
    }
    if (fault.reason.isEmpty()) {
        sweepLayers(m_folder, filesOf(m_settings.layers), filesOf(m_former));
        m_project.settings.layers = m_settings.layers;
    }
    return fault;
}

ProjectFault CProjectSaver::put(const QString& name, const char* key, const QByteArray& bytes, bool& taken) {
    const QString path = m_folder.filePath(name);
    const QString reason = makeFile(path, bytes, taken);
    if (reason.isEmpty()) {
        m_written.append(name);
        m_checksums[key] = checksumOf(bytes);
    }
    return {path, reason};
}

ProjectFault CProjectSaver::putGrey(const QString& name, const char* key,
                                    const std::vector<std::uint16_t>& values, bool& taken) {
    const auto encoded = encodeHeightmap(m_project.edge, values, HeightmapBits::SIXTEEN);
    if (!encoded) {
        return {m_folder.filePath(name), "there is not enough memory"};
    }
    return put(name, key,
               QByteArray::fromRawData(reinterpret_cast<const char*>(encoded->data()),
                                       static_cast<qsizetype>(encoded->size())),
               taken);
}

void CProjectSaver::keep(QString ProjectLayers::*layer, const char* key) {
    m_settings.layers.*layer = m_former.*layer;
    if (m_formerChecksums.contains(key)) {
        m_checksums[key] = m_formerChecksums[key];
    }
}

ProjectFault CProjectSaver::putSurface(std::future<QByteArray> colours, bool& taken) {
    const ProjectLayers& names = m_settings.layers;
    ProjectFault fault = putGrey(names.blends, "blends", m_project.blends, taken);
    if (fault.reason.isEmpty()) {
        std::vector<std::uint16_t> water(m_project.water.size());
        std::ranges::transform(m_project.water, water.begin(), [](std::uint8_t value) {
            return value != 0 ? std::uint16_t{0xFFFF} : std::uint16_t{0};
        });
        fault = putGrey(names.water, "water", water, taken);
    }
    if (fault.reason.isEmpty()) {
        fault = put(names.colours, "colours", colours.get(), taken);
    }
    return fault;
}

ProjectFault CProjectSaver::writeLayers(bool& taken) {
    const ProjectLayers& names = m_settings.layers;
    taken = false;
    ProjectFault fault;
    // The largest layer is compressed by a thread of its own.
    std::future<QByteArray> colours;
    if (!m_kept.surface) {
        colours = std::async(std::launch::async,
                             [this] { return encodeColours(m_project.edge, m_project.colours); });
    }
    if (m_kept.heights) {
        keep(&ProjectLayers::heights, "heights");
    } else {
        fault = putGrey(names.heights, "heights", m_project.heights, taken);
    }
    if (m_kept.surface) {
        keep(&ProjectLayers::blends, "blends");
        keep(&ProjectLayers::colours, "colours");
        keep(&ProjectLayers::water, "water");
    } else if (fault.reason.isEmpty()) {
        fault = putSurface(std::move(colours), taken);
    }
    if (fault.reason.isEmpty()) {
        fault = put(names.details, "details", encodeDetails(m_settings.details), taken);
    }
    if (fault.reason.isEmpty()) {
        fault = {m_folder.path(), syncFolder(m_folder.path())};
    }
    if (!fault.reason.isEmpty()) {
        removeWritten();
    }
    return fault;
}

ProjectFault CProjectSaver::writeProjectFile() {
    const QByteArray text = writeProjectJson(m_settings, m_project.original, m_checksums);
    QString reason;
    if (text.size() > LARGEST_PROJECT_FILE) {
        reason = QString("it would be larger than %1 MB, and could not be opened again")
                     .arg(LARGEST_PROJECT_FILE / 1024 / 1024);
    } else {
        reason = replaceFile(projectFile(), text);
    }
    if (!reason.isEmpty()) {
        // When the new file stands although the disk reports a fault, its layers must stand too.
        QByteArray now;
        if (!readWholeFile(projectFile(), LARGEST_PROJECT_FILE, now).isEmpty() || now != text) {
            removeWritten();
        }
    }
    return {projectFile(), reason};
}

void CProjectSaver::removeWritten() {
    for (const QString& name : m_written) {
        static_cast<void>(removeFile(m_folder.filePath(name)));
    }
    m_written.clear();
}

/// What the save before wrote; a reason only when something of it is to be kept and cannot.
QString CProjectSaver::readFormer() {
    Project former;
    const QString reason = readSettings(projectFile(), former, m_formerChecksums).reason;
    if (reason.isEmpty()) {
        m_former = former.settings.layers;
    }
    return m_kept.heights || m_kept.surface ? reason : QString();
}

} // namespace

ProjectFault readProject(const QString& folder, Project& project) {
    const QFileInfo info(folder);
    const QDir directory = info.isDir() ? QDir(folder) : info.dir();
    const QString path = info.isDir() ? directory.filePath(PROJECT_FILE_NAME) : folder;
    CFolderLock lock;
    const QString busy = lock.acquire(directory.path(), CFolderLock::Kind::SHARED, PATIENCE);
    if (!busy.isEmpty() && directory.exists()) {
        return {directory.path(), busy};
    }
    Project read;
    ProjectChecksums checksums;
    ProjectFault fault = readSettings(path, read, checksums);
    if (fault.reason.isEmpty()) {
        fault = CLayerReader(directory, checksums).read(read);
    }
    if (fault.reason.isEmpty()) {
        project = std::move(read);
    }
    return fault;
}

ProjectFault writeProject(const QString& folder, Project& project, const KeptLayers& kept) {
    return CProjectSaver(folder, project, kept).save();
}

void removeProject(const QString& folder) {
    const QDir directory(folder);
    Project former;
    ProjectChecksums checksums;
    static_cast<void>(readSettings(directory.filePath(PROJECT_FILE_NAME), former, checksums));
    static_cast<void>(removeFile(directory.filePath(PROJECT_FILE_NAME)));
    sweepParts(directory.filePath(PROJECT_FILE_NAME));
    sweepLayers(directory, {}, filesOf(former.settings.layers));
    QDir().rmdir(folder); // only when nothing else is in it
}
