#pragma once

#include "engine/memory/memory_map.h"
#include "sandbox/core/height_field.h"

#include <QColor>
#include <QMatrix4x4>
#include <QOpenGLBuffer>
#include <QOpenGLShaderProgram>
#include <QOpenGLVertexArrayObject>
#include <QSize>
#include <memory>
#include <span>

/// Draws the edit cursors on the ground: bright lines with a dark border, so that they show on every ground,
/// over a light veil. Lives as long as the renderer's context; needs it current.
class CGroundOverlay {
public:
    void create();
    void destroy();
    /// Draw the marks over what is drawn already. `pixelRatio` is physical pixels per line-width unit.
    void draw(const HeightField& field, std::span<const EditCursor> cursors, const QMatrix4x4& worldToClip,
              QSize viewPixels, double pixelRatio);

private:
    struct Vertex {
        QVector3D place;
        QVector3D other;
        float side = 0.0F;
        std::array<std::uint8_t, 4> colour{}; // red, green, blue, alpha
    };
    /// Part of the buffer, in vertices.
    struct Range {
        int first = 0;
        int count = 0;
    };

    void addFan(const HeightField& field, const EditCursor& cursor);
    void addLines(const HeightField& field, const EditCursor& cursor, std::array<std::uint8_t, 4> colour);
    void addSegment(const QVector3D& from, const QVector3D& to, std::array<std::uint8_t, 4> colour);
    void sendVertices();
    void drawRange(const Range& range, float lineWidth);

    std::unique_ptr<QOpenGLShaderProgram> m_pProgram;
    QOpenGLVertexArrayObject m_arrays;
    QOpenGLBuffer m_buffer{QOpenGLBuffer::VertexBuffer};
    std::vector<Vertex> m_vertices;
};
