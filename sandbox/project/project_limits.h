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
inline constexpr int MOST_FRAMES = 100'000;
/// Frames that the file says something about, above all keyframes.
inline constexpr int MOST_STORED_FRAMES = 25'000;
inline constexpr int MOST_CAMERAS = 1'000;
inline constexpr int MOST_PLACES = 10'000;
inline constexpr int MOST_FIGURES = 1000;
inline constexpr int MOST_SOUNDS = 10'000;
/// Bytes of the name of a frame's target, and of a sound file.
inline constexpr int LONGEST_TARGET = 65'535;
inline constexpr int LONGEST_SOUND = 4'096;
/// Bytes of a name of a texture or a file.
inline constexpr int LONGEST_NAME = 255;
/// Bytes of a project file. The lists above come to about 60 MB at the most.
inline constexpr std::int64_t LARGEST_PROJECT_FILE = 64LL * 1024 * 1024;
/// Bytes of a layer: more than the largest one takes up uncompressed.
inline constexpr std::int64_t LARGEST_LAYER_FILE = 512LL * 1024 * 1024;
