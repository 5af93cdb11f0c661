#include "sandbox/app/map_document.h"

#include "engine/memory/engine_directories.h"
#include "engine/qx_texture.h"
#include "sandbox/app/ground_dressing.h"
#include "sandbox/app/heightmap_file.h"
#include "sandbox/project/project_map.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <algorithm>
#include <chrono>
#include <new>

namespace {

constexpr int NEW_EDGE = 129;
constexpr std::uint16_t NEW_HEIGHT = 100;
constexpr double RELIEF = 0.07;        // highest ground over lowest, as a part of the map's width
constexpr double STEEPEST_UNIT = 0.05; // world units that a height unit may have at most
constexpr double FIRST_WATER = 0.04;   // of the way from the lowest ground to the highest

const QString& samples() {
    static const QString FOLDER = QStringLiteral(SANDBOX_SAMPLES);
    return FOLDER;
}

/// The samples are kept as they are: what a person makes of one is saved in a place of their own.
bool isSample(const QString& path) {
    return QFileInfo(path).canonicalFilePath().startsWith(QFileInfo(samples()).canonicalFilePath() + '/');
}

bool isProjectPath(const QString& path) {
    const QFileInfo info(path);
    return info.isDir() || info.suffix().compare("json", Qt::CaseInsensitive) == 0;
}

/// World units per height unit, so that a map looks like a landscape whatever unit its heights are in: its
/// relief is a set part of its width, but nearly level ground is not blown up into mountains.
float scaleFor(const Heightmap& heights) {
    const auto [low, high] = std::ranges::minmax(heights.heights);
    const double relief = std::max(high - low, 1);
    return static_cast<float>(std::min(RELIEF * (heights.edge - 1) / relief, STEEPEST_UNIT));
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

/// Where the images of a map's textures are looked for, the map's own folder first.
QStringList textureFoldersOf(const QString& mapFolder) {
    QStringList folders = {samples() + '/' + PROJECT_TEXTURE_FOLDER};
    if (!mapFolder.isEmpty()) {
        folders.prepend(mapFolder);
        folders.prepend(mapFolder + '/' + PROJECT_TEXTURE_FOLDER);
    }
    return folders;
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

ProjectFault writeCopy(const QString& folder, Project project) {
    try {
        return writeProject(folder, project);
    } catch (const std::bad_alloc&) {
        return {folder, "there is not enough memory"};
    }
}

QString failedTo(const char* what, const QString& path, const QString& reason) {
    return QString("Failed to %1 %2: %3").arg(what, path, reason);
}

} // namespace

CMapDocument::CMapDocument() {
    const Heightmap level{NEW_EDGE, std::vector<std::uint16_t>(std::size_t{NEW_EDGE} * NEW_EDGE, NEW_HEIGHT)};
    adopt(makeContents(level, {}), [] {});
    lookForTexturesIn({});
    m_strName = "level ground";
    rememberState();
}

CMapDocument::Contents CMapDocument::makeContents(const Heightmap& heights, const QString& mapFolder) {
    Contents made{std::make_unique<CMemoryScene>(), nullptr};
    made.map = std::make_unique<CMemoryMap>(heights.edge - 1, made.scene.get());
    CMemoryMap& map = *made.map;
    const std::uint16_t* height = heights.heights.data();
    for (int z = 0; z < heights.edge; ++z) {
        for (int x = 0; x < heights.edge; ++x) {
            map.setPointHeight(x, z, *height++, false);
        }
    }
    map.heightScale = scaleFor(heights);
    const auto [low, high] = std::ranges::minmax(heights.heights);
    map.waterLevel = static_cast<float>(low + (high - low) * FIRST_WATER) * map.heightScale;
    listTextures(*made.scene, mapFolder);
    dressGround(map, *made.scene);
    return made;
}

CMapDocument::Outcome CMapDocument::open(const QString& path, const std::function<void()>& beforeSwap) {
    const Outcome outcome =
        isProjectPath(path) ? openProject(path, beforeSwap) : openHeightmap(path, beforeSwap);
    if (outcome.error.isEmpty()) {
        rememberState();
    }
    return outcome;
}

CMapDocument::Outcome CMapDocument::openHeightmap(const QString& path,
                                                  const std::function<void()>& beforeSwap) {
    const HeightmapReading reading = readHeightmapFile(path);
    if (!reading.error.empty()) {
        return {failedTo("open", path, QString::fromStdString(reading.error)), {}};
    }
    const QFileInfo info(path);
    adopt(makeContents(reading.map, info.absolutePath()), beforeSwap);
    m_projectFile = {};
    dropAutosave(); // of what was open: its changes are saved or given up
    belongTo(Kind::HEIGHTMAP, path);
    lookForTexturesIn(info.absolutePath());
    if (reading.isCropped()) { // saving a part of a picture over the whole would lose the rest of it
        m_strPath.clear();
        m_strName = QString("part of %1").arg(info.fileName());
    }
    return {{}, cropNote(reading)};
}

CMapDocument::Contents CMapDocument::contentsOf(const Project& project) {
    Contents made{buildScene(project), nullptr};
    made.map = buildMap(project, *made.scene);
    return made;
}

CMapDocument::Outcome CMapDocument::openProject(const QString& path,
                                                const std::function<void()>& beforeSwap) {
    Project project;
    const ProjectFault fault = readProject(path, project);
    if (!fault.reason.isEmpty()) {
        return {failedTo("open", fault.path, fault.reason), {}};
    }
    adopt(contentsOf(project), beforeSwap);
    m_projectFile = project.original;
    const QFileInfo info(path);
    const QString folder = info.isDir() ? info.absoluteFilePath() : info.absolutePath();
    dropAutosave(); // of what was open
    belongTo(Kind::PROJECT, folder);
    lookForTexturesIn(folder);
    return {};
}

void CMapDocument::adopt(Contents contents, const std::function<void()>& beforeSwap) {
    beforeSwap();
    endAutosave();
    m_pMap = std::move(contents.map);
    m_pScene = std::move(contents.scene);
}

void CMapDocument::belongTo(Kind kind, const QString& path) {
    const QFileInfo info(QDir::cleanPath(path));
    m_kind = kind;
    m_strPath = isSample(path) ? QString() : info.absoluteFilePath();
    m_strName = isSample(path) ? QString("%1 (sample)").arg(info.fileName()) : info.fileName();
}

void CMapDocument::lookForTexturesIn(const QString& mapFolder) {
    const QStringList folders = textureFoldersOf(mapFolder);
    std::vector<std::filesystem::path> directories;
    for (const QString& folder : folders) {
        directories.emplace_back(folder.toStdString());
    }
    CEngineDirectories::setDirectories(directories);
    m_strTextureFolder = QFileInfo(folders.first()).isDir() ? folders.first() : folders.last();
}

QString CMapDocument::placeForTextures() const {
    if (m_strPath.isEmpty()) {
        return "the textures folder of a project of yours";
    }
    const QString folder = m_kind == Kind::PROJECT ? m_strPath : QFileInfo(m_strPath).absolutePath();
    return folder + '/' + PROJECT_TEXTURE_FOLDER;
}

CMapDocument::Outcome CMapDocument::saveHeightmap(const QString& path) {
    const std::span<const std::uint16_t> heights = m_pMap->getHeights();
    const QString reason =
        writeHeightmapFile(path, {m_pMap->getGridDim() + 1, {heights.begin(), heights.end()}});
    if (!reason.isEmpty()) {
        return {failedTo("save", path, reason), {}};
    }
    if (m_kind != Kind::PROJECT) {
        m_nSavedHeights = m_pMap->getChangeCount(MapChange::HEIGHTS);
        if (!isModified()) {
            dropAutosave();
        }
        belongTo(Kind::HEIGHTMAP, path);
    }
    return {};
}

CMapDocument::Outcome CMapDocument::saveProject(const QString& folder) {
    Project project = captureProject(*m_pMap, *m_pScene);
    project.original = m_projectFile;
    ProjectFault fault = copyTextures(project, folder);
    if (fault.reason.isEmpty()) {
        fault = writeProject(folder, project);
    }
    if (!fault.reason.isEmpty()) {
        return {failedTo("save", fault.path, fault.reason), {}};
    }
    dropAutosave();
    belongTo(Kind::PROJECT, folder);
    dropAutosave();
    lookForTexturesIn(m_strPath.isEmpty() ? folder : m_strPath);
    rememberState();
    return {};
}

CMapDocument::Outcome CMapDocument::autosave() {
    if (m_autosaving.valid() && m_autosaving.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
        return {};
    }
    const ProjectFault fault = m_autosaving.valid() ? m_autosaving.get() : ProjectFault();
    if (!fault.reason.isEmpty()) {
        m_nAutosaved = 0;
        return {failedTo("save", fault.path, fault.reason), {}};
    }
    const std::uint64_t state = qHashMulti(m_pMap->getChangeCount(MapChange::HEIGHTS), otherState());
    if (m_strPath.isEmpty() || !isModified() || state == m_nAutosaved) {
        return {};
    }
    Project project = captureProject(*m_pMap, *m_pScene);
    project.original = m_projectFile;
    m_autosaving = std::async(std::launch::async, writeCopy, autosaveFolder(), std::move(project));
    m_nAutosaved = state;
    return {};
}

void CMapDocument::endAutosave() {
    if (m_autosaving.valid()) {
        m_autosaving.get();
    }
    m_nAutosaved = 0;
}

bool CMapDocument::hasAutosave() const {
    return !m_strPath.isEmpty() && QFileInfo(autosaveFolder() + '/' + PROJECT_FILE_NAME).isFile();
}

CMapDocument::Outcome CMapDocument::openAutosave(const std::function<void()>& beforeSwap) {
    Project project;
    const ProjectFault fault = readProject(autosaveFolder(), project);
    if (!fault.reason.isEmpty()) {
        return {failedTo("open", fault.path, fault.reason), {}};
    }
    adopt(contentsOf(project), beforeSwap);
    m_projectFile = project.original;
    rememberState();
    constexpr std::uint64_t NEVER = ~std::uint64_t{0};
    m_nSavedHeights = NEVER;
    m_nSavedOther ^= NEVER;
    return {};
}

void CMapDocument::dropAutosave() {
    endAutosave();
    if (hasAutosave()) {
        QDir(autosaveFolder()).removeRecursively();
    }
}

bool CMapDocument::hasHeightChanges() const {
    return m_pMap->getChangeCount(MapChange::HEIGHTS) != m_nSavedHeights;
}

bool CMapDocument::hasOtherChanges() const {
    return otherState() != m_nSavedOther;
}

std::uint64_t CMapDocument::otherState() const {
    return qHashMulti(m_pMap->getChangeCount(MapChange::SURFACE), recordsHash(*m_pMap, *m_pScene));
}

void CMapDocument::rememberState() {
    m_nSavedHeights = m_pMap->getChangeCount(MapChange::HEIGHTS);
    m_nSavedOther = otherState();
}

int CMapDocument::waterLevel() const {
    return m_pMap->getWaterHeight();
}

void CMapDocument::setWaterLevel(int heightUnits) {
    // Half a unit above, so that dividing by the scale again gives the same whole number.
    m_pMap->waterLevel = (static_cast<float>(heightUnits) + 0.5F) * m_pMap->heightScale;
}
