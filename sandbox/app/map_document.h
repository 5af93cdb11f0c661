#pragma once

#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"
#include "sandbox/app/loaded_map.h"
#include "sandbox/app/map_place.h"
#include "sandbox/film/film.h"
#include "sandbox/project/project_folder.h"
#include "sandbox/unsaved/safety_copy.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

/// The map and the film that are being worked on, their scene and the file or folder it belongs to. Owned by
/// the main window.
class CMapDocument {
public:
    using Kind = CMapPlace::Kind;

    static constexpr int FIRST_DIM = 128;

    /// Level ground without a file.
    CMapDocument();

    /// What came of opening or saving a file; both texts are sentences for a person.
    struct Outcome {
        QString error; ///< empty when it went well
        QString note;  ///< worth telling even so, or empty
    };

    /// The error of what a person called off; then everything is as it was.
    static const QString CALLED_OFF;

    /// Runs what takes long, in another thread or not, and returns when it is done: false when a person has
    /// called it off. The first is a title for a person. Without one the work is simply run.
    using Runner = std::function<bool(const QString& title, const std::function<void()>& work)>;
    void setRunner(Runner runner) { m_runner = std::move(runner); }

    /// Replace the map by level ground of so many cells a side, which belongs nowhere yet.
    Outcome startAnew(int dim, const std::function<void()>& beforeSwap);
    /// Replace the map by what the path holds: a project folder, its project file, or a heightmap. On failure
    /// the old map stays. `beforeSwap` runs when the new map is ready and the old one is about to be freed.
    /// What another program has open is opened as a copy without a place.
    Outcome open(const QString& path, const std::function<void()>& beforeSwap);
    /// Write the heights to a file, with 16 bits a point; over the document's own file with as many as it
    /// came with, which is refused when they do not hold the heights any more. It becomes the document's,
    /// unless that is a project, which stays one.
    Outcome saveHeightmap(const QString& path);
    /// The document's own file cannot hold the heights as they are now: it came with 8 bits a point.
    bool hasOutgrownItsFile() const;
    /// Write all of it to a folder, the textures' images included. The folder becomes the document's. After a
    /// failure the folder holds the project that it held before. Nothing is saved where another program has
    /// its map.
    Outcome saveProject(const QString& folder);

    /// Keep an automatic copy of unsaved changes, wherever the map belongs; without any, remove it.
    Outcome autosave();
    /// Replace the map by a copy that a program left, as unsaved changes of the place that it came from. On
    /// failure the map stays.
    Outcome openCopy(const AbandonedCopy& copy, const std::function<void()>& beforeSwap);
    /// Remove the document's own copy: what is in it is saved or given up.
    void dropAutosave() { m_copy.drop(); }

    CMemoryMap& map() { return *m_pMap; }
    const CMemoryMap& map() const { return *m_pMap; }
    CMemoryScene& scene() { return *m_pScene; }
    CFilm& film() { return *m_pFilm; }
    Kind kind() const { return m_place.kind(); }
    /// File or folder to save to; empty when saving would overwrite more than was opened, or nothing was
    /// opened, or what was opened is one of the samples that come with the program.
    const QString& path() const { return m_place.path(); }
    /// For a window title.
    QString name() const { return m_place.name(); }
    const CMapPlace& place() const { return m_place; }
    /// Map and film are again as they were saved, by steps taken back; what is shown of the film is no step.
    void noteAllUndone();
    /// Something was changed that a project keeps. Cheap enough to be asked whenever the program is idle.
    bool isModified() const { return hasHeightChanges() || hasOtherChanges(); }
    bool hasHeightChanges() const;
    /// Something was changed that a heightmap does not keep: colours, blends, water, details, definitions,
    /// textures, material, terrain types, the film.
    bool hasOtherChanges() const;

    /// Where the import of textures begins: the map's own folder of textures where there is one.
    const QString& textureFolder() const { return m_strTextureFolder; }
    /// Where images of the person's own belong, for a sentence: a folder, which may not be there yet.
    QString placeForTextures() const;

    /// Level of standing water in height units.
    int waterLevel() const;
    void setWaterLevel(int heightUnits);

private:
    Project capture(const KeptLayers& kept = {});
    Outcome saveAll(const QString& folder);
    void adopt(LoadedMap& loaded, const std::function<void()>& beforeSwap);
    void useFilesOfPlace();
    void lookForFilesIn(const QString& mapFolder);
    std::uint64_t recordState() const;
    std::uint64_t otherState() const;
    void noteAsSaved();

    std::unique_ptr<CMemoryScene> m_pScene; // outlives the map and the film
    std::unique_ptr<CMemoryMap> m_pMap;
    std::unique_ptr<CFilm> m_pFilm;
    Runner m_runner = [](const QString& /*title*/, const std::function<void()>& work) {
        work();
        return true;
    };
    CMapPlace m_place;
    QString m_strTextureFolder;
    QJsonObject m_projectFile; // as read or written last, for the keys that this program does not know
    std::uint64_t m_nSavedHeights = 0;
    std::uint64_t m_nSavedOther = 0;
    std::uint64_t m_nSavedFilm = 0;
    std::uint32_t m_nSavedShown = 0;
    CSafetyCopy m_copy;
};
