#include "sandbox/project/project_folder.h"

#include "sandbox/core/heightmap_png.h"
#include "sandbox/core/long_work.h"
#include "sandbox/files/folder_lock.h"
#include "sandbox/files/safe_file.h"
#include "sandbox/project/colour_layer.h"
#include "sandbox/project/detail_layer.h"
#include "sandbox/project/layer_files.h"
#include "sandbox/project/project_file.h"
#include "sandbox/project/project_limits.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <span>

namespace {

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
    QString readGrey(const QString& name, const char* key, std::vector<std::uint16_t>& values, double share);
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

QString CLayerReader::readGrey(const QString& name, const char* key, std::vector<std::uint16_t>& values,
                               double share) {
    const CLongWork::CPart part(CLongWork::current(), share);
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
    const CLongWork::CPart part(CLongWork::current(), COLOUR_SHARE);
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
    QString reason = readGrey(name, "heights", project.heights, GREY_SHARE);
    if (reason.isEmpty()) {
        name = names.blends;
        reason = readGrey(name, "blends", project.blends, GREY_SHARE);
    }
    if (reason.isEmpty()) {
        name = names.water;
        reason = readGrey(name, "water", water, WATER_SHARE);
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

} // namespace

ProjectFault readProject(const QString& folder, Project& project) {
    const QFileInfo info(folder);
    const QDir directory = info.isDir() ? QDir(folder) : info.dir();
    const QString path = info.isDir() ? directory.filePath(PROJECT_FILE_NAME) : folder;
    CFolderLock lock;
    const QString busy = lock.acquire(directory.path(), CFolderLock::Kind::SHARED, PROJECT_PATIENCE);
    if (!busy.isEmpty() && directory.exists()) {
        return {directory.path(), busy};
    }
    Project read;
    ProjectChecksums checksums;
    ProjectFault fault = readProjectFile(path, read, checksums);
    if (fault.reason.isEmpty()) {
        fault = CLayerReader(directory, checksums).read(read);
    }
    if (fault.reason.isEmpty()) {
        project = std::move(read);
    }
    return fault;
}

void removeProject(const QString& folder) {
    const QDir directory(folder);
    Project former;
    ProjectChecksums checksums;
    static_cast<void>(readProjectFile(directory.filePath(PROJECT_FILE_NAME), former, checksums));
    static_cast<void>(removeFile(directory.filePath(PROJECT_FILE_NAME)));
    sweepParts(directory.filePath(PROJECT_FILE_NAME));
    sweepLayers(directory, {}, filesOf(former.settings.layers));
    QDir().rmdir(folder); // only when nothing else is in it
}
