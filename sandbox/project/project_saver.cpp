#include "sandbox/core/heightmap_png.h"
#include "sandbox/core/long_work.h"
#include "sandbox/files/folder_lock.h"
#include "sandbox/files/safe_file.h"
#include "sandbox/project/colour_layer.h"
#include "sandbox/project/detail_layer.h"
#include "sandbox/project/layer_files.h"
#include "sandbox/project/project_file.h"
#include "sandbox/project/project_folder.h"
#include "sandbox/project/project_limits.h"

#include <QDir>
#include <algorithm>
#include <future>
#include <span>

namespace {

/// A layer as the bytes of its file.
struct EncodedLayer {
    QByteArray bytes;
    QString checksum;
    QString reason; ///< why it could not be encoded; empty on success
};

EncodedLayer encoded(QByteArray bytes) {
    QString checksum = checksumOf(bytes);
    return {std::move(bytes), std::move(checksum), {}};
}

/// A grey layer; `share` is its part of the work.
EncodedLayer encodeGrey(int edge, std::span<const std::uint16_t> values, CLongWork* work, double share) {
    const CLongWork::CPart part(work, share);
    const auto file = encodeHeightmap(edge, values, HeightmapBits::SIXTEEN);
    if (!file) {
        return {{}, {}, "there is not enough memory"};
    }
    return encoded({reinterpret_cast<const char*>(file->data()), static_cast<qsizetype>(file->size())});
}

/// Writes one project into its folder. Lives for one save.
class CProjectSaver {
public:
    CProjectSaver(const QString& folder, Project& project, const LayerViews& views, const KeptLayers& kept)
        : m_folder(folder), m_project(project), m_views(views), m_settings(project.settings), m_kept(kept) {}

    ProjectFault save();

private:
    QString checkLimits() const;
    ProjectFault saveLocked();
    ProjectFault writeLayers(bool& taken);
    /// Compressed by a thread of its own beside the heights and blends.
    struct Colourings {
        EncodedLayer water;
        EncodedLayer colours;
    };
    Colourings encodeColourings() const;
    ProjectFault putSurface(std::future<Colourings> colourings, bool& taken);
    ProjectFault writeProjectFile();
    ProjectFault put(const QString& name, const char* key, const EncodedLayer& layer, bool& taken);
    void removeWritten();
    QString readFormer();
    void keep(QString ProjectLayers::*layer, const char* key);
    QString projectFile() const { return m_folder.filePath(PROJECT_FILE_NAME); }

    QDir m_folder;
    Project& m_project;
    LayerViews m_views;
    ProjectSettings m_settings; ///< as they will be saved
    KeptLayers m_kept;
    CLongWork* m_pWork = CLongWork::current();
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
        fault = {m_folder.path(),
                 lock.acquire(m_folder.path(), CFolderLock::Kind::EXCLUSIVE, PROJECT_PATIENCE)};
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

ProjectFault CProjectSaver::put(const QString& name, const char* key, const EncodedLayer& layer,
                                bool& taken) {
    const QString path = m_folder.filePath(name);
    const QString reason = !layer.reason.isEmpty() ? layer.reason : makeFile(path, layer.bytes, taken);
    if (reason.isEmpty()) {
        m_written.append(name);
        m_checksums[key] = layer.checksum;
    }
    return {path, reason};
}

void CProjectSaver::keep(QString ProjectLayers::*layer, const char* key) {
    m_settings.layers.*layer = m_former.*layer;
    if (m_formerChecksums.contains(key)) {
        m_checksums[key] = m_formerChecksums[key];
    }
}

CProjectSaver::Colourings CProjectSaver::encodeColourings() const {
    std::vector<std::uint16_t> water(m_views.water.size());
    std::ranges::transform(m_views.water, water.begin(), [](std::uint8_t value) {
        return value != 0 ? std::uint16_t{0xFFFF} : std::uint16_t{0};
    });
    Colourings made;
    made.water = encodeGrey(m_project.edge, water, m_pWork, WATER_SHARE);
    const CLongWork::CPart part(m_pWork, COLOUR_SHARE);
    made.colours = encoded(encodeColours(m_project.edge, m_views.colours));
    return made;
}

ProjectFault CProjectSaver::putSurface(std::future<Colourings> colourings, bool& taken) {
    const ProjectLayers& names = m_settings.layers;
    ProjectFault fault =
        put(names.blends, "blends", encodeGrey(m_project.edge, m_views.blends, m_pWork, GREY_SHARE), taken);
    const Colourings made = colourings.get();
    if (fault.reason.isEmpty()) {
        fault = put(names.water, "water", made.water, taken);
    }
    if (fault.reason.isEmpty()) {
        fault = put(names.colours, "colours", made.colours, taken);
    }
    return fault;
}

ProjectFault CProjectSaver::writeLayers(bool& taken) {
    const ProjectLayers& names = m_settings.layers;
    taken = false;
    ProjectFault fault;
    std::future<Colourings> colourings;
    if (!m_kept.surface) {
        colourings = std::async(std::launch::async, [this] { return encodeColourings(); });
    }
    if (m_kept.heights) {
        keep(&ProjectLayers::heights, "heights");
    } else {
        fault = put(names.heights, "heights",
                    encodeGrey(m_project.edge, m_views.heights, m_pWork, GREY_SHARE), taken);
    }
    if (m_kept.surface) {
        keep(&ProjectLayers::blends, "blends");
        keep(&ProjectLayers::colours, "colours");
        keep(&ProjectLayers::water, "water");
    } else if (fault.reason.isEmpty()) {
        fault = putSurface(std::move(colourings), taken);
    }
    if (fault.reason.isEmpty()) {
        fault = put(names.details, "details", encoded(encodeDetails(m_settings.details)), taken);
    }
    if (fault.reason.isEmpty()) {
        fault = {m_folder.path(), syncFolder(m_folder.path())};
    }
    if (fault.reason.isEmpty() && m_pWork != nullptr && m_pWork->isCalledOff()) {
        fault = {m_folder.path(), "it was called off"};
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
    const QString reason = readProjectFile(projectFile(), former, m_formerChecksums).reason;
    if (reason.isEmpty()) {
        m_former = former.settings.layers;
    }
    return m_kept.heights || m_kept.surface ? reason : QString();
}

} // namespace

ProjectFault writeProject(const QString& folder, Project& project, const KeptLayers& kept) {
    return CProjectSaver(folder, project, {project.heights, project.blends, project.colours, project.water},
                         kept)
        .save();
}

ProjectFault writeProject(const QString& folder, Project& project, const LayerViews& layers) {
    return CProjectSaver(folder, project, layers, {}).save();
}
