#pragma once

#include "sandbox/core/heightmap_png.h"

#include <cstdint>

/// What a project can hold. Opening and saving check the same limits, so that whatever was saved can be
/// opened again; docs/project-format.md states them.

inline constexpr int MOST_EDGE = HEIGHTMAP_MAX_EDGE; ///< points a side
inline constexpr int MOST_TEXTURES = 100'000;
inline constexpr int MOST_DEFINITIONS = 100'000;
inline constexpr int MOST_TERRAIN_TYPES = 1'000;
inline constexpr int MOST_DETAILS = 4'000'000;
/// Bytes of a name of a texture or a file.
inline constexpr int LONGEST_NAME = 255;
/// Bytes of a project file. The lists above come to about 40 MB at the most.
inline constexpr std::int64_t LARGEST_PROJECT_FILE = 64LL * 1024 * 1024;
/// Bytes of a layer: more than the largest one takes up uncompressed.
inline constexpr std::int64_t LARGEST_LAYER_FILE = 512LL * 1024 * 1024;
