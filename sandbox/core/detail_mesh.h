#pragma once

#include "engine/qx_map_records.h"
#include "sandbox/core/height_field.h"

#include <array>
#include <vector>

/// One corner of a triangle of a detail: world place, place in its texture (0 to 1, v from the top), and 1
/// where the detail is highlighted.
struct DetailVertex {
    std::array<float, 3> place{};
    std::array<float, 2> texture{};
    float highlight = 0.0F;
};

/// The triangles of one detail as it lies or stands on the ground, three vertices each. A quad is draped over
/// the ground within its parallelogram, in pieces about a cell long; the y of its points lifts it. A point
/// detail stands upright over its middle, as wide as its side and `scalar` times as high, across the
/// horizontal direction `right`. Nothing for a detail with coordinates that are not finite.
std::vector<DetailVertex> detailMesh(const HeightField& field, const qxCMapDetailRecord& detail,
                                     const std::array<double, 3>& right);
