#include "sandbox/app/map_document.h"

#include "engine/memory/engine_directories.h"
#include "sandbox/app/added_files.h"
#include "sandbox/app/file_places.h"
#include "sandbox/core/long_work.h"
#include "sandbox/files/heightmap_file.h"
#include "sandbox/film/film_record.h"
#include "sandbox/project/layer_files.h"
#include "sandbox/project/project_map.h"

#include <QFileInfo>
#include <QHash>
#include <algorithm>
#include <new>

namespace {

constexpr const char* OPEN_ELSEWHERE =
    "%1 is open in another program. This is a copy of it, which is saved under another name.";
constexpr const char* NO_MEMORY = "there is not enough memory";
constexpr const char* TAKEN = "another program has it open";

/// Runs what may need more memory than there is; then nothing was changed yet.
template <class Work> CMapDocument::Outcome withinMemory(const char* what, const QString& path, Work work) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        return {failedTo(what, path, NO_MEMORY), {}};
    }
}

} // namespace

const QString CMapDocument::CALLED_OFF = QStringLiteral("Called off. Everything is as it was.");

CMapDocument::CMapDocument() {
    startAnew(FIRST_DIM, [] {});
}

CMapDocument::Outcome CMapDocument::startAnew(int dim, const std::function<void()>& beforeSwap) {
    return withinMemory("make", "a new map", [&] {
        LoadedMap made;
        if (!m_runner("Making level ground", [&] { made = makeLevelGround(dim); })) {
            return Outcome{CALLED_OFF, {}};
        }
        adopt(made, beforeSwap);
        m_place.become(Kind::NOTHING, "level ground");
        noteAsSaved();
        return Outcome();
    });
}

CMapDocument::Outcome CMapDocument::open(const QString& path, const std::function<void()>& beforeSwap) {
    return withinMemory("open", path, [&] {
        LoadedMap loaded;
        QString failure;
        if (!m_runner("Opening " + path, [&] { failure = loadMap(path, loaded); })) {
            return Outcome{CALLED_OFF, {}};
        }
        if (!failure.isEmpty()) {
            return Outcome{failure, {}};
        }
        adopt(loaded, beforeSwap);
        const bool isOwn = m_place.become(loaded.kind, loaded.path, loaded.bits, loaded.layers, loaded.stamp);
        if (!loaded.note.isEmpty()) { // saving a part of a picture over the whole would lose the rest of it
            m_place.become(Kind::HEIGHTMAP, "part of " + QFileInfo(path).fileName());
        }
        noteAsSaved();
        return Outcome{{}, isOwn ? loaded.note : QString(OPEN_ELSEWHERE).arg(path)};
    });
}

Project CMapDocument::capture(const KeptLayers& kept) {
    Project project = captureProject(*m_pMap, *m_pScene, kept);
    project.settings.film = captureFilm(*m_pFilm);
    project.original = m_projectFile;
    return project;
}

/// Take over what was loaded, but for the place.
void CMapDocument::adopt(LoadedMap& loaded, const std::function<void()>& beforeSwap) {
    beforeSwap();
    m_pFilm = std::move(loaded.film);
    m_pMap = std::move(loaded.map);
    m_pScene = std::move(loaded.scene);
    m_projectFile = std::move(loaded.original);
    dropAutosave(); // of what was open: its changes are saved or given up
    lookForFilesIn(loaded.folder);
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
        QString reason;
        const bool goesOn = m_runner("Saving " + path, [&] {
            const CLongWork::CPart part(CLongWork::current(), 1.0);
            reason = writeHeightmapFile(path, m_pMap->getGridDim() + 1, m_pMap->getHeights(), bits);
        });
        if (!goesOn && !reason.isEmpty()) {
            return Outcome{CALLED_OFF, {}};
        }
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
    Project project = capture({true, true});
    const LayerViews layers{m_pMap->getHeights(), m_pMap->getBlends(), m_pMap->getColours(),
                            m_pMap->getWaterFlags()}; // nobody edits them as long as the runner runs
    CAddedFiles added(folder);
    ProjectFault fault;
    const bool goesOn = m_runner("Saving " + folder, [&] {
        fault = copyFiles(project, folder, added.files);
        if (fault.reason.isEmpty()) {
            fault = writeProject(folder, project, layers);
        }
    });
    if (!fault.reason.isEmpty()) {
        return {goesOn ? failedTo("save", fault.path, fault.reason) : CALLED_OFF, {}};
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
        CAutomaticCopy taken;
        if (!taken.takeOver(copy.folder)) {
            return Outcome{failedTo("open", copy.folder, TAKEN), {}};
        }
        LoadedMap loaded;
        QString failure;
        if (!m_runner("Opening the copy of " + copy.origin.name, [&] { failure = loadCopy(copy, loaded); })) {
            return Outcome{CALLED_OFF, {}};
        }
        if (!failure.isEmpty()) {
            return Outcome{failure, {}};
        }
        adopt(loaded, beforeSwap);
        taken.leave();
        m_copy.takeOver(copy.folder); // what it holds stays unsaved: it is kept until that is decided
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
