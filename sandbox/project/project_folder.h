#pragma once

#include "sandbox/project/project.h"

#include <QString>
#include <cstdint>
#include <span>
#include <vector>

/// A map project: a folder with a project file, its layers and folders of textures and sounds.

inline constexpr const char* PROJECT_FILE_NAME = "project.json";
inline constexpr const char* PROJECT_TEXTURE_FOLDER = "textures";
inline constexpr const char* PROJECT_SOUND_FOLDER = "sounds";

/// Layers that a save leaves as the save before wrote them, because they have not changed since. The project
/// may hold nothing of them.
struct KeptLayers {
    bool heights = false;
    bool surface = false; ///< blends, colours and water
};

/// The layers of a project where somebody else holds them, as in a Project.
struct LayerViews {
    std::span<const std::uint16_t> heights;
    std::span<const std::uint16_t> blends;
    std::span<const qxCColour> colours;
    std::span<const std::uint8_t> water;
};

/// Read the project in `folder`, which may also be the path of its project file. `project` is changed only
/// when everything is good. Waits a moment for a program that is saving there. Throws std::bad_alloc.
ProjectFault readProject(const QString& folder, Project& project);

/// Write the project to `folder`, which is made if needed, while no other program may. Layers go into new
/// files and the project file is replaced last, so that at any moment the folder holds one whole project;
/// what earlier saves left is removed then. What could not be opened again is refused. The new layer names
/// are stored in `project`. What is to be kept must be there. Throws std::bad_alloc.
ProjectFault writeProject(const QString& folder, Project& project, const KeptLayers& kept = {});

/// The same with layers that the project does not hold itself; they must not change meanwhile.
ProjectFault writeProject(const QString& folder, Project& project, const LayerViews& layers);

/// Remove the project in `folder` as far as this program wrote it: the project file and the layers, and the
/// folder when nothing else is in it.
void removeProject(const QString& folder);
