#include "sandbox/core/cursor_shape.h"

#include <array>

namespace {

using Position = CursorShape::Position;

constexpr double RING = 0.3;    // radius of the ring around a corner
constexpr double BRACKET = 0.3; // length of a bracket's arms
constexpr int KINDS = 16;

std::vector<CursorShape::Line> closedOutline(const std::vector<Position>& ring) {
    std::vector<CursorShape::Line> lines;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        lines.push_back({ring[i], ring[(i + 1) % ring.size()]});
    }
    return lines;
}

CursorShape cell() {
    // The fan starts at a corner of the diagonal that the ground folds along.
    const std::vector<Position> corners{{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    return {closedOutline(corners), corners};
}

CursorShape line(Position from, Position to) {
    return {{{from, to}}, {}};
}

CursorShape corner(double u, double v) {
    constexpr double SLANT = RING * 0.70710678;
    const std::vector<Position> ring{{u + RING, v},          {u + SLANT, v + SLANT}, {u, v + RING},
                                     {u - SLANT, v + SLANT}, {u - RING, v},          {u - SLANT, v - SLANT},
                                     {u, v - RING},          {u + SLANT, v - SLANT}};
    CursorShape shape{closedOutline(ring), {{u, v}}};
    shape.fan.insert(shape.fan.end(), ring.begin(), ring.end());
    shape.fan.push_back(ring.front());
    return shape;
}

/// Quarter of the diamond around the corner (u, v).
CursorShape quarter(double u, double v) {
    const Position alongX{1.0 - u, v};
    const Position alongZ{u, 1.0 - v};
    return {{{alongX, alongZ}}, {{u, v}, alongX, {0.5, 0.5}, alongZ}};
}

CursorShape brackets() {
    CursorShape shape;
    for (const Position at : {Position{0, 0}, Position{1, 0}, Position{0, 1}, Position{1, 1}}) {
        const double inwardU = at.u == 0.0 ? BRACKET : -BRACKET;
        const double inwardV = at.v == 0.0 ? BRACKET : -BRACKET;
        shape.lines.push_back({at, {at.u + inwardU, at.v}});
        shape.lines.push_back({at, {at.u, at.v + inwardV}});
    }
    shape.fan = cell().fan;
    return shape;
}

std::array<CursorShape, KINDS> makeShapes() {
    const Position a{0, 0};
    const Position b{1, 0};
    const Position c{1, 1};
    const Position d{0, 1};
    return {cell(),        line(a, d),    line(a, b),    line(b, c), line(d, c), corner(0, 0),
            corner(1, 0),  corner(0, 1),  corner(1, 1),  line(a, c), line(b, d), quarter(0, 0),
            quarter(1, 0), quarter(1, 1), quarter(0, 1), brackets()};
}

} // namespace

const CursorShape& cursorShape(int kind) {
    static const std::array<CursorShape, KINDS> SHAPES = makeShapes();
    static const CursorShape NOTHING;
    return kind >= 0 && kind < KINDS ? SHAPES[static_cast<std::size_t>(kind)] : NOTHING;
}
