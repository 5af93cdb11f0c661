#pragma once

#include "engine/memory/memory_map.h"

#include <optional>

/// The smallest rectangle of points around all that bear a marker, which is how the panel shows its
/// selection. Nothing when none does.
std::optional<GridRect> markedPoints(const CMemoryMap& map);
