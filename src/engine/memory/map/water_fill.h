#pragma once

#include "engine/memory/map/grid_region.h"
#include "engine/memory/map/point_layer.h"

#include <cstdint>

/// Flags as water (1) the point and every point joined to it side by side over ground no higher than `level`;
/// nothing when the point lies higher or outside the grid. Time grows with the area, not with the map;
/// `changes` is told of each point that was not water before.
void floodWater(const CPointLayer<std::uint16_t>& heights, CPointLayer<std::uint8_t>& water, int x, int z,
                int level, CGridRegion& changes);

/// Clears the flag of the point and of every flagged point joined to it side by side.
void drainWater(CPointLayer<std::uint8_t>& water, int x, int z, CGridRegion& changes);
