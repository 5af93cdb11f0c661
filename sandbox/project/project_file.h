#pragma once

#include "sandbox/project/project.h"
#include "sandbox/project/project_json.h"

#include <chrono>

/// What reading and writing a project's folder share.

inline constexpr std::chrono::seconds PROJECT_PATIENCE(10); ///< with a program that saves there

// What each layer is of the work of a whole project, 0 to 1.
inline constexpr double GREY_SHARE = 0.25;
inline constexpr double WATER_SHARE = 0.05;
inline constexpr double COLOUR_SHARE = 0.45;

/// Read a project file alone: settings, all its keys, and the checksums of the layers.
ProjectFault readProjectFile(const QString& path, Project& project, ProjectChecksums& checksums);
