#pragma once

#include "engine/memory/map/grid_region.h"
#include "sandbox/core/height_field.h"

#include <cstdint>
#include <vector>

/// The normals of a rectangle of points as the renderer wants them: the x and z of the unit normal, each as a
/// fraction of 32767, rows along x. The slope is taken from the neighbours on either side, on one side only
/// at the map's edge.
std::vector<std::int16_t> groundNormals(const HeightField& field, const GridRect& points);
