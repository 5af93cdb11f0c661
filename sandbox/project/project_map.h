#pragma once

#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"
#include "sandbox/project/project_folder.h"

#include <QStringList>
#include <memory>

/// The map and scene as plain values, with the texture images found in the engine's directories left where
/// they are, and without the layers that are `kept`. `original` of the result is empty.
Project captureProject(CMemoryMap& map, const CMemoryScene& scene, const KeptLayers& kept = {});

/// A fingerprint of all that captureProject takes but the layers: it changes when any of it does. The current
/// definition is left out, because to leaf through the definitions is no change that is worth saving.
std::uint64_t recordsHash(CMemoryMap& map, const CMemoryScene& scene);

/// A scene with the project's textures, and nothing else yet.
std::unique_ptr<CMemoryScene> buildScene(const Project& project);

/// The project's map in `scene`, which buildScene made for the same project and which outlives the map. It
/// takes the layers over.
std::unique_ptr<CMemoryMap> buildMap(Project&& project, CMemoryScene& scene);

/// Copy the images of the project's textures and the sounds of its film from the engine's directories into
/// folders of `folder`, where they are not there yet; `copied` receives the new files, also after a fault. A
/// file that cannot be found is no fault: the project was without it before.
ProjectFault copyFiles(const Project& project, const QString& folder, QStringList& copied);
