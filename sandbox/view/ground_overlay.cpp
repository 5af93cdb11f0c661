#include "sandbox/view/ground_overlay.h"

#include "sandbox/core/cursor_shape.h"
#include "sandbox/view/gl_functions.h"
#include "sandbox/view/shader_program.h"

#include <cstddef>

namespace {

using Colour = std::array<std::uint8_t, 4>;

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

void CGroundOverlay::create() {
    m_pProgram = makeProgram("overlay");
    m_arrays.create();
    const QOpenGLVertexArrayObject::Binder bound(&m_arrays);
    m_buffer.create();
    m_buffer.setUsagePattern(QOpenGLBuffer::StreamDraw);
    m_buffer.bind();
    for (int attribute = 0; attribute < 4; ++attribute) {
        m_pProgram->enableAttributeArray(attribute);
    }
    m_pProgram->setAttributeBuffer(0, GL_FLOAT, offsetof(Vertex, place), 3, sizeof(Vertex));
    m_pProgram->setAttributeBuffer(1, GL_FLOAT, offsetof(Vertex, other), 3, sizeof(Vertex));
    m_pProgram->setAttributeBuffer(2, GL_FLOAT, offsetof(Vertex, side), 1, sizeof(Vertex));
    m_pProgram->setAttributeBuffer(3, GL_UNSIGNED_BYTE, offsetof(Vertex, colour), 4, sizeof(Vertex));
}

void CGroundOverlay::destroy() {
    m_buffer.destroy();
    m_arrays.destroy();
    m_pProgram.reset();
}

void CGroundOverlay::draw(const HeightField& field, std::span<const EditCursor> cursors,
                          const QMatrix4x4& worldToClip, QSize viewPixels, double pixelRatio) {
    m_vertices.clear();
    std::array<Range, 3> ranges; // veil, borders, cores
    const auto fill = [&](std::size_t range, auto add) {
        ranges[range].first = static_cast<int>(m_vertices.size());
        for (const EditCursor& cursor : cursors) {
            if (isOnMap(field, cursor)) {
                add(cursor);
            }
        }
        ranges[range].count = static_cast<int>(m_vertices.size()) - ranges[range].first;
    };
    fill(0, [&](const EditCursor& cursor) { addFan(field, cursor); });
    fill(1, [&](const EditCursor& cursor) { addLines(field, cursor, BORDER); });
    fill(2, [&](const EditCursor& cursor) { addLines(field, cursor, CORE); });
    if (m_vertices.empty()) {
        return;
    }
    QOpenGLFunctions_3_3_Core* gl = glFunctions();
    gl->glEnable(GL_BLEND);
    gl->glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    gl->glDepthMask(GL_FALSE);
    m_pProgram->bind();
    m_pProgram->setUniformValue("uWorldToClip", worldToClip);
    m_pProgram->setUniformValue("uViewSize", QVector2D(static_cast<float>(viewPixels.width()),
                                                       static_cast<float>(viewPixels.height())));
    sendVertices();
    drawRange(ranges[0], 0.0F);
    drawRange(ranges[1], BORDER_WIDTH * static_cast<float>(pixelRatio));
    drawRange(ranges[2], CORE_WIDTH * static_cast<float>(pixelRatio));
    gl->glDepthMask(GL_TRUE);
    gl->glDisable(GL_BLEND);
}

void CGroundOverlay::addFan(const HeightField& field, const EditCursor& cursor) {
    const std::vector<CursorShape::Position>& fan = cursorShape(cursor.kind).fan;
    for (std::size_t i = 2; i < fan.size(); ++i) {
        for (const CursorShape::Position& at : {fan[0], fan[i - 1], fan[i]}) {
            const QVector3D place = onGround(field, cursor, at);
            m_vertices.push_back({place, place, 0.0F, VEIL});
        }
    }
}

void CGroundOverlay::addLines(const HeightField& field, const EditCursor& cursor, Colour colour) {
    for (const CursorShape::Line& line : cursorShape(cursor.kind).lines) {
        QVector3D from = onGround(field, cursor, line.from);
        for (int piece = 1; piece <= PIECES; ++piece) {
            const double part = static_cast<double>(piece) / PIECES;
            const QVector3D to = onGround(field, cursor,
                                          {line.from.u + (line.to.u - line.from.u) * part,
                                           line.from.v + (line.to.v - line.from.v) * part});
            addSegment(from, to, colour);
            from = to;
        }
    }
}

void CGroundOverlay::addSegment(const QVector3D& from, const QVector3D& to, Colour colour) {
    // Seen from its other end the line runs the other way, so its sides change places there.
    const Vertex a{from, to, 1.0F, colour};
    const Vertex b{from, to, -1.0F, colour};
    const Vertex c{to, from, -1.0F, colour};
    const Vertex d{to, from, 1.0F, colour};
    m_vertices.insert(m_vertices.end(), {a, b, c, b, d, c});
}

void CGroundOverlay::sendVertices() {
    m_buffer.bind();
    m_buffer.allocate(m_vertices.data(), static_cast<int>(m_vertices.size() * sizeof(Vertex)));
}

void CGroundOverlay::drawRange(const Range& range, float lineWidth) {
    if (range.count == 0) {
        return;
    }
    const QOpenGLVertexArrayObject::Binder bound(&m_arrays);
    m_pProgram->setUniformValue("uLineWidth", lineWidth);
    glFunctions()->glDrawArrays(GL_TRIANGLES, range.first, range.count);
}
