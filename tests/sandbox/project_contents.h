#pragma once

#include "sandbox/project/detail_layer.h"
#include "sandbox/project/project_json.h"
#include "sandbox/project/project_map.h"

#include <QByteArray>

/// Everything that a project keeps of a map and its scene, as text, layers included.
inline QByteArray contents(CMemoryMap& map, const CMemoryScene& scene) {
    const Project project = captureProject(map, scene);
    QByteArray bytes = writeProjectJson(project.settings, {}, {}) + encodeDetails(project.settings.details);
    const auto append = [&bytes](const auto& values) {
        bytes.append(reinterpret_cast<const char*>(values.data()),
                     static_cast<qsizetype>(values.size() * sizeof values[0]));
    };
    append(project.heights);
    append(project.blends);
    append(project.colours);
    append(project.water);
    return bytes;
}
