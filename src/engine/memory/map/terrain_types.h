#pragma once

#include "engine/qx_map_records.h"

#include <vector>

/// The terrain types that a new map comes with. Each weighting is the sum of its filter.
std::vector<_qxMapTerrainDef> makeDefaultTerrainTypes();
