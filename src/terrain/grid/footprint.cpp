#include "terrain/grid/footprint.h"

#include <array>
#include <cstddef>

namespace {

using Point = FootprintPoint;

constexpr std::array<Point, 4> CORNERS{{{0, 0}, {1, 0}, {1, 1}, {0, 1}}};

constexpr std::array<std::array<Point, 2>, 6> EDGES{{
    {{{0, 0}, {1, 0}}},
    {{{1, 0}, {1, 1}}},
    {{{0, 1}, {1, 1}}},
    {{{0, 0}, {0, 1}}},
    {{{0, 0}, {1, 1}}},
    {{{1, 0}, {0, 1}}},
}};

constexpr std::array<Point, 5> PLUS{{{1, 0}, {0, 1}, {1, 1}, {2, 1}, {1, 2}}};

constexpr std::array<Point, 21> DISC{{{1, 0}, {2, 0}, {3, 0},                 //
                                      {0, 1}, {1, 1}, {2, 1}, {3, 1}, {4, 1}, //
                                      {0, 2}, {1, 2}, {2, 2}, {3, 2}, {4, 2}, //
                                      {0, 3}, {1, 3}, {2, 3}, {3, 3}, {4, 3}, //
                                      {1, 4}, {2, 4}, {3, 4}}};

template <std::size_t Edge> constexpr auto square() {
    std::array<Point, Edge * Edge> points{};
    for (std::size_t i = 0; i < points.size(); ++i) {
        points[i] = {static_cast<int>(i % Edge), static_cast<int>(i / Edge)};
    }
    return points;
}

constexpr auto CELL = square<2>();
constexpr auto BLOCK = square<3>();

} // namespace

std::span<const FootprintPoint> brushFootprint(int brushSize, int edge, int corner) {
    switch (brushSize) {
    case BRUSH_POINT:
        if (corner < 0 || corner > 3) {
            return {};
        }
        return {&CORNERS[static_cast<std::size_t>(corner)], 1};
    case BRUSH_EDGE:
        if (edge < 0 || edge > 5) {
            return {};
        }
        return EDGES[static_cast<std::size_t>(edge)];
    case BRUSH_CELL:
        return CELL;
    case BRUSH_PLUS:
        return PLUS;
    case BRUSH_BLOCK:
        return BLOCK;
    case BRUSH_DISC:
        return DISC;
    default:
        return {};
    }
}

int brushBlockSize(int brushSize) {
    constexpr std::array<int, BRUSH_SIZE_COUNT> SIZES{2, 2, 2, 3, 3, MAX_BRUSH_EDGE};
    return brushSize < 0 || brushSize >= BRUSH_SIZE_COUNT ? 0 : SIZES[static_cast<std::size_t>(brushSize)];
}
