#include "sandbox/view/ground_overlay.h"

#include "sandbox/core/cursor_shape.h"
namespace {

using Colour = CThickLines::Colour;

constexpr Colour VEIL{255, 226, 120, 70};
constexpr Colour BORDER{20, 22, 30, 235};
constexpr Colour CORE{255, 214, 64, 255};
constexpr float CORE_WIDTH = 2.5F;   // pixels
constexpr float BORDER_WIDTH = 5.5F; // pixels
constexpr int PIECES = 4;            // of a line, so that it follows the folds of the ground

QVector3D onGround(const HeightField& field, double x, double z) {
    return {static_cast<float>(x), static_cast<float>(groundHeight(field, x, z)), static_cast<float>(z)};
}

QVector3D onGround(const HeightField& field, const EditCursor& cursor, const CursorShape::Position& at) {
    return onGround(field, cursor.x + at.u, cursor.z + at.v);
}

bool isOnMap(const HeightField& field, const EditCursor& cursor) {
    return cursor.x >= 0 && cursor.z >= 0 && cursor.x < field.gridDim && cursor.z < field.gridDim;
}

} // namespace

void CGroundOverlay::draw(const HeightField& field, std::span<const EditCursor> cursors,
                          const QMatrix4x4& worldToClip, QSize viewPixels, double pixelRatio) {
    m_lines.clear();
    const auto collect = [&](auto add) {
        return m_lines.collect([&] {
            for (const EditCursor& cursor : cursors) {
                if (isOnMap(field, cursor)) {
                    add(cursor);
                }
            }
        });
    };
    const auto veil = collect([&](const EditCursor& cursor) { addFan(field, cursor); });
    const auto borders = collect([&](const EditCursor& cursor) { addLines(field, cursor, BORDER); });
    const auto cores = collect([&](const EditCursor& cursor) { addLines(field, cursor, CORE); });
    if (m_lines.isEmpty()) {
        return;
    }
    m_lines.begin(worldToClip, viewPixels);
    m_lines.draw(veil, 0.0F);
    m_lines.draw(borders, BORDER_WIDTH * static_cast<float>(pixelRatio));
    m_lines.draw(cores, CORE_WIDTH * static_cast<float>(pixelRatio));
    m_lines.end();
}

void CGroundOverlay::addFan(const HeightField& field, const EditCursor& cursor) {
    const std::vector<CursorShape::Position>& fan = cursorShape(cursor.kind).fan;
    for (std::size_t i = 2; i < fan.size(); ++i) {
        m_lines.addTriangle({onGround(field, cursor, fan[0]), onGround(field, cursor, fan[i - 1]),
                             onGround(field, cursor, fan[i])},
                            VEIL);
    }
}

void CGroundOverlay::addLines(const HeightField& field, const EditCursor& cursor,
                              CThickLines::Colour colour) {
    for (const CursorShape::Line& line : cursorShape(cursor.kind).lines) {
        QVector3D from = onGround(field, cursor, line.from);
        for (int piece = 1; piece <= PIECES; ++piece) {
            const double part = static_cast<double>(piece) / PIECES;
            const QVector3D to = onGround(field, cursor,
                                          {line.from.u + (line.to.u - line.from.u) * part,
                                           line.from.v + (line.to.v - line.from.v) * part});
            m_lines.addSegment(from, to, colour);
            from = to;
        }
    }
}
