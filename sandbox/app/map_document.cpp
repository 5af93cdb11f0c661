#include "sandbox/app/map_document.h"

#include "engine/memory/engine_directories.h"
#include "engine/qx_texture.h"
#include "sandbox/app/added_files.h"
#include "sandbox/app/file_places.h"
#include "sandbox/app/ground_dressing.h"
#include "sandbox/files/heightmap_file.h"
#include "sandbox/files/safe_file.h"
#include "sandbox/film/film_record.h"
#include "sandbox/project/layer_files.h"
#include "sandbox/project/project_map.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <algorithm>
#include <future>
#include <new>

namespace {

constexpr std::uint16_t NEW_HEIGHT = 100;
constexpr double RELIEF = 0.07;        // highest ground over lowest, as a part of the map's width
constexpr double STEEPEST_UNIT = 0.05; // world units that a height unit may have at most
constexpr const char* OPEN_ELSEWHERE =
    "%1 is open in another program. This is a copy of it, which is saved under another name.";
constexpr const char* NO_MEMORY = "there is not enough memory";
constexpr const char* TAKEN = "another program has it open";
constexpr double FIRST_WATER = 0.04; // of the way from the lowest ground to the highest

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

QString failedTo(const char* what, const QString& path, const QString& reason) {
    return QString("Failed to %1 %2: %3").arg(what, path, reason);
}

/// Runs what may need more memory than there is; then nothing was changed yet.
template <class Work> CMapDocument::Outcome withinMemory(const char* what, const QString& path, Work work) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return {failedTo(what, path, NO_MEMORY), {}};
    }
}

} // namespace

CMapDocument::CMapDocument() {
    startAnew(FIRST_DIM, [] {});
}

CMapDocument::Outcome CMapDocument::startAnew(int dim, const std::function<void()>& beforeSwap) {
    return withinMemory("make", "a new map", [&] {
        const auto edge = static_cast<std::size_t>(dim) + 1;
        adopt(makeContents({dim + 1, std::vector<std::uint16_t>(edge * edge, NEW_HEIGHT)}, {}, {}),
              beforeSwap);
        m_projectFile = {};
        dropAutosave();
        m_place.become(Kind::NOTHING, "level ground");
        useFilesOfPlace();
        noteAsSaved();
        return Outcome();
    });
}

/// The points' memory may be there already, with what a new map has in it; their heights are those given.
CMapDocument::Contents CMapDocument::makeContents(Heightmap heights, MapPoints points,
                                                  const QString& mapFolder) {
    Contents made{std::make_unique<CMemoryScene>(), nullptr, nullptr};
    const HeightRange range = rangeOf(heights.heights);
    const float scale = scaleFor(range.relief(), heights.edge - 1);
    points.heights = std::move(heights.heights);
    paintGround(points, heights.edge, range, scale);
    made.map = std::make_unique<CMemoryMap>(heights.edge - 1, made.scene.get(), std::move(points));
    CMemoryMap& map = *made.map;
    map.heightScale = scale;
    map.waterLevel = static_cast<float>(range.low + range.relief() * FIRST_WATER) * scale;
    listTextures(*made.scene, mapFolder);
    dressGround(map, *made.scene);
    made.film = makeFilm(map, *made.scene);
    return made;
}

CMapDocument::Outcome CMapDocument::open(const QString& path, const std::function<void()>& beforeSwap) {
    const Outcome outcome = withinMemory("open", path, [&] {
        return isProjectPath(path) ? openProject(path, beforeSwap) : openHeightmap(path, beforeSwap);
    });
    if (outcome.error.isEmpty()) {
        noteAsSaved();
    }
    return outcome;
}

CMapDocument::Outcome CMapDocument::openHeightmap(const QString& path,
                                                  const std::function<void()>& beforeSwap) {
    // While the picture is decoded, another thread asks the system for the memory of the rest.
    std::future<MapPoints> points = std::async(std::launch::async, blankPoints, edgeOfHeightmapFile(path));
    HeightmapReading reading = readHeightmapFile(path);
    if (!reading.error.empty()) {
        return {failedTo("open", path, QString::fromStdString(reading.error)), {}};
    }
    const QFileInfo info(path);
    const QString note = cropNote(reading);
    adopt(makeContents(std::move(reading.map), points.get(), info.absolutePath()), beforeSwap);
    m_projectFile = {};
    dropAutosave(); // of what was open: its changes are saved or given up
    const bool isOwn =
        m_place.become(Kind::HEIGHTMAP, path, static_cast<HeightmapBits>(reading.pictureBits), {});
    lookForFilesIn(info.absolutePath());
    if (!note.isEmpty()) { // saving a part of a picture over the whole would lose the rest of it
        m_place.become(Kind::HEIGHTMAP, QString("part of %1").arg(info.fileName()));
    }
    return {{}, isOwn ? note : QString(OPEN_ELSEWHERE).arg(path)};
}

CMapDocument::Contents CMapDocument::contentsOf(Project&& project) {
    Contents made{buildScene(project), nullptr, nullptr};
    made.map = buildMap(std::move(project), *made.scene);
    const std::optional<ProjectFilm>& film = project.settings.film;
    made.film = film ? buildFilm(*film, *made.scene) : makeFilm(*made.map, *made.scene);
    return made;
}

Project CMapDocument::capture(const KeptLayers& kept) {
    Project project = captureProject(*m_pMap, *m_pScene, kept);
    project.settings.film = captureFilm(*m_pFilm);
    project.original = m_projectFile;
    return project;
}

CMapDocument::Outcome CMapDocument::openProject(const QString& path,
                                                const std::function<void()>& beforeSwap) {
    Project project;
    const ProjectFault fault = readProject(path, project);
    if (!fault.reason.isEmpty()) {
        return {failedTo("open", fault.path, fault.reason), {}};
    }
    adopt(contentsOf(std::move(project)), beforeSwap);
    m_projectFile = project.original;
    const QFileInfo info(path);
    const QString folder = info.isDir() ? info.absoluteFilePath() : info.absolutePath();
    dropAutosave(); // of what was open
    const bool isOwn =
        m_place.become(Kind::PROJECT, folder, HeightmapBits::SIXTEEN, filesOf(project.settings.layers));
    lookForFilesIn(folder);
    return {{}, isOwn ? QString() : QString(OPEN_ELSEWHERE).arg(folder)};
}

void CMapDocument::adopt(Contents contents, const std::function<void()>& beforeSwap) {
    beforeSwap();
    m_pFilm = std::move(contents.film);
    m_pMap = std::move(contents.map);
    m_pScene = std::move(contents.scene);
}

void CMapDocument::lookForFilesIn(const QString& mapFolder) {
    const QStringList folders = textureFoldersOf(mapFolder);
    std::vector<std::filesystem::path> directories;
    for (const QString& folder : folders + soundFoldersOf(mapFolder)) {
        directories.emplace_back(folder.toStdString());
    }
    CEngineDirectories::setDirectories(directories);
    m_strTextureFolder = QFileInfo(folders.first()).isDir() ? folders.first() : folders.last();
}

void CMapDocument::useFilesOfPlace() {
    const bool isFolder = kind() == Kind::PROJECT || path().isEmpty();
    lookForFilesIn(isFolder ? path() : QFileInfo(path()).absolutePath());
}

QString CMapDocument::placeForTextures() const {
    if (path().isEmpty()) {
        return "the textures folder of a project of yours";
    }
    const QString folder = kind() == Kind::PROJECT ? path() : QFileInfo(path()).absolutePath();
    return folder + '/' + PROJECT_TEXTURE_FOLDER;
}

CMapDocument::Outcome CMapDocument::saveHeightmap(const QString& path) {
    const bool isOwn = kind() == Kind::HEIGHTMAP && QFileInfo(path).absoluteFilePath() == this->path();
    const HeightmapBits bits = isOwn ? m_place.bits() : HeightmapBits::SIXTEEN;
    if (isOwn && hasOutgrownItsFile()) {
        return {failedTo("save", path,
                         "it has 8 bits a point, which hold heights up to 255, and the map is higher now"),
                {}};
    }
    if (m_place.isOpenElsewhere(path)) {
        return {failedTo("save", path, TAKEN), {}};
    }
    const Outcome outcome = withinMemory("save", path, [&] {
        const QString reason = writeHeightmapFile(path, m_pMap->getGridDim() + 1, m_pMap->getHeights(), bits);
        return Outcome{reason.isEmpty() ? QString() : failedTo("save", path, reason), {}};
    });
    if (outcome.error.isEmpty() && kind() != Kind::PROJECT) {
        m_nSavedHeights = m_pMap->getChangeCount(MapChange::HEIGHTS);
        if (!isModified()) {
            dropAutosave();
        }
        m_place.become(Kind::HEIGHTMAP, path, bits, {});
    }
    return outcome;
}

bool CMapDocument::hasOutgrownItsFile() const {
    return kind() == Kind::HEIGHTMAP && !path().isEmpty() &&
           std::ranges::max(m_pMap->getHeights()) > highestHeight(m_place.bits());
}

CMapDocument::Outcome CMapDocument::saveProject(const QString& folder) {
    if (m_place.isOpenElsewhere(folder)) {
        return {failedTo("save", folder, TAKEN), {}};
    }
    const Outcome outcome = withinMemory("save", folder, [&] { return saveAll(folder); });
    if (outcome.error.isEmpty()) {
        dropAutosave();
        noteAsSaved();
    }
    return outcome;
}

CMapDocument::Outcome CMapDocument::saveAll(const QString& folder) {
    Project project = capture();
    CAddedFiles added(folder);
    ProjectFault fault = copyFiles(project, folder, added.files);
    if (fault.reason.isEmpty()) {
        fault = writeProject(folder, project);
    }
    if (!fault.reason.isEmpty()) {
        return {failedTo("save", fault.path, fault.reason), {}};
    }
    added.keep();
    m_place.become(Kind::PROJECT, folder, HeightmapBits::SIXTEEN, filesOf(project.settings.layers));
    lookForFilesIn(folder);
    return {};
}

CMapDocument::Outcome CMapDocument::autosave() {
    if (!isModified()) {
        dropAutosave(); // all that it holds was taken back
        return {};
    }
    return withinMemory("save", CAutomaticCopy::room(), [&] {
        const CSafetyCopy::State state{m_pMap->getChangeCount(MapChange::HEIGHTS),
                                       m_pMap->getChangeCount(MapChange::SURFACE), otherState()};
        const ProjectFault fault =
            m_copy.keep(state, m_place.origin(), [this](const KeptLayers& kept) { return capture(kept); });
        return Outcome{fault.reason.isEmpty() ? QString() : failedTo("save", fault.path, fault.reason), {}};
    });
}

CMapDocument::Outcome CMapDocument::openCopy(const AbandonedCopy& copy,
                                             const std::function<void()>& beforeSwap) {
    return withinMemory("open", copy.folder, [&] {
        Project project;
        const ProjectFault fault = readProject(copy.folder, project);
        if (!fault.reason.isEmpty()) {
            return Outcome{failedTo("open", fault.path, fault.reason), {}};
        }
        adopt(contentsOf(std::move(project)), beforeSwap);
        dropAutosave();
        m_copy.takeOver(copy.folder); // what it holds stays unsaved: it is kept until that is decided
        CAutomaticCopy::unmark(project);
        m_projectFile = project.original;
        const bool isOwn = m_place.become(copy.origin);
        useFilesOfPlace();
        noteAsSaved();
        constexpr std::uint64_t NEVER = ~std::uint64_t{0};
        m_nSavedHeights = NEVER;
        m_nSavedOther ^= NEVER;
        return Outcome{{}, isOwn ? QString() : QString(OPEN_ELSEWHERE).arg(copy.origin.place)};
    });
}

bool CMapDocument::hasHeightChanges() const {
    return m_pMap->getChangeCount(MapChange::HEIGHTS) != m_nSavedHeights;
}

bool CMapDocument::hasOtherChanges() const {
    return recordState() != m_nSavedOther || m_pFilm->contentState() != m_nSavedFilm ||
           m_pFilm->shown() != m_nSavedShown;
}

std::uint64_t CMapDocument::recordState() const {
    return qHashMulti(m_pMap->getChangeCount(MapChange::SURFACE), recordsHash(*m_pMap, *m_pScene));
}

std::uint64_t CMapDocument::otherState() const {
    return qHashMulti(recordState(), m_pFilm->state());
}

void CMapDocument::noteAsSaved() {
    m_nSavedShown = m_pFilm->shown();
    noteAllUndone();
}

void CMapDocument::noteAllUndone() {
    m_nSavedFilm = m_pFilm->contentState();
    m_nSavedHeights = m_pMap->getChangeCount(MapChange::HEIGHTS);
    m_nSavedOther = recordState();
}

int CMapDocument::waterLevel() const {
    return m_pMap->getWaterHeight();
}

void CMapDocument::setWaterLevel(int heightUnits) {
    // Half a unit above, so that dividing by the scale again gives the same whole number.
    m_pMap->waterLevel = (static_cast<float>(heightUnits) + 0.5F) * m_pMap->heightScale;
}
