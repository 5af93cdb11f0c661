#pragma once

#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"
#include "sandbox/app/map_place.h"
#include "sandbox/film/film.h"
#include "sandbox/project/automatic_copy.h"

#include <QJsonObject>
#include <QString>
#include <memory>

/// A map that was read or made, with its film, and that nobody shows yet. Any thread may make it.
struct LoadedMap {
    std::unique_ptr<CMemoryScene> scene; ///< outlives the map and the film
    std::unique_ptr<CMemoryMap> map;
    std::unique_ptr<CFilm> film;
    CMapPlace::Kind kind = CMapPlace::Kind::NOTHING;
    QString path;   ///< the file or folder; empty for none
    QString folder; ///< where its textures and sounds are looked for first
    HeightmapBits bits = HeightmapBits::SIXTEEN;
    QStringList layers; ///< files of a project beside its project file
    QString stamp;      ///< of its files, no later than they were read
    QString note;       ///< of a picture of which only a part is the map: a sentence about it
    QJsonObject original; ///< the project file with all its keys
};

/// Level ground of so many cells a side.
LoadedMap makeLevelGround(int dim);

/// Read a project folder, its project file, or a heightmap. Returns what to tell a person on failure, then
/// nothing is loaded. Throws std::bad_alloc.
QString loadMap(const QString& path, LoadedMap& loaded);

/// Read an abandoned copy; its place, files and stamp are those of the copy's origin.
QString loadCopy(const AbandonedCopy& copy, LoadedMap& loaded);

/// "Failed to save <path>: <reason>", for a person.
QString failedTo(const char* what, const QString& path, const QString& reason);
