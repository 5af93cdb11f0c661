#pragma once

#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"
#include "sandbox/core/heightmap_png.h"

#include <QString>
#include <functional>
#include <memory>

/// The map that is being worked on, its scene and the file it belongs to. Owned by the main window.
class CMapDocument {
public:
    /// Level ground without a file.
    CMapDocument();

    /// What came of opening or saving a file; both texts are sentences for a person.
    struct Outcome {
        QString error; ///< empty when it went well
        QString note;  ///< worth telling even so, or empty
    };

    /// Replace the map by the heightmap in the file. On failure the old map stays. `beforeSwap` runs when the
    /// new map is ready and the old one is about to be freed.
    Outcome open(const QString& path, const std::function<void()>& beforeSwap);
    /// Write the heights to the file, which becomes the document's.
    Outcome save(const QString& path);

    CMemoryMap& map() { return *m_map; }
    const CMemoryMap& map() const { return *m_map; }
    /// File to save to; empty when saving would overwrite more than was opened, or nothing was opened.
    const QString& path() const { return m_strPath; }
    /// For a window title.
    QString name() const { return m_strName; }
    /// Heights were changed since they were opened or saved.
    bool isModified() const;
    /// Something was changed that a heightmap does not keep: colours, texture, water, details, material.
    bool hasUnkeptChanges() const;

    /// Folder that the scene's textures come from: "textures" beside the map's file where there is one.
    const QString& textureFolder() const { return m_strTextureFolder; }

    /// Level of standing water in height units.
    int waterLevel() const;
    void setWaterLevel(int heightUnits);

private:
    static std::unique_ptr<CMemoryMap> makeMap(const CHeightmap& heights, CMemoryScene& scene);
    void listTextures(const QString& mapFolder);
    QString adoptFile(const QString& path, const CHeightmapReading& reading);
    std::uint64_t unkeptChanges() const;
    void rememberState();

    std::unique_ptr<CMemoryScene> m_scene; // outlives the map
    std::unique_ptr<CMemoryMap> m_map;
    QString m_strPath;
    QString m_strName;
    QString m_strTextureFolder;
    std::uint64_t m_nSavedHeights = 0;
    std::uint64_t m_nOpenedUnkept = 0;
};
