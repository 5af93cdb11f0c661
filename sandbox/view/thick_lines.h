#pragma once

#include <QMatrix4x4>
#include <QOpenGLBuffer>
#include <QOpenGLShaderProgram>
#include <QOpenGLVertexArrayObject>
#include <QSize>
#include <array>
#include <cstdint>
#include <memory>
#include <vector>

/// Lines of a width in pixels, and areas, blended over what is drawn already. Filled and drawn anew for each
/// picture. Lives as long as the renderer's context; needs it current.
class CThickLines {
public:
    using Colour = std::array<std::uint8_t, 4>; // red, green, blue, alpha
    /// Part of what was added, in vertices.
    struct Range {
        int first = 0;
        int count = 0;
    };

    void create();
    void destroy();

    void clear() { m_vertices.clear(); }
    bool isEmpty() const { return m_vertices.empty(); }
    void addSegment(const QVector3D& from, const QVector3D& to, Colour colour);
    void addTriangle(const std::array<QVector3D, 3>& corners, Colour colour);
    /// What `add` adds.
    template <class Add> Range collect(Add add) {
        const int first = static_cast<int>(m_vertices.size());
        add();
        return {first, static_cast<int>(m_vertices.size()) - first};
    }

    /// Between begin() and end() the ranges are drawn, each as wide as is said, in physical pixels.
    void begin(const QMatrix4x4& worldToClip, QSize viewPixels);
    void draw(const Range& range, float lineWidth);
    void end();

private:
    struct Vertex {
        QVector3D place;
        QVector3D other;
        float side = 0.0F;
        Colour colour{};
    };

    std::unique_ptr<QOpenGLShaderProgram> m_pProgram;
    QOpenGLVertexArrayObject m_arrays;
    QOpenGLBuffer m_buffer{QOpenGLBuffer::VertexBuffer};
    std::vector<Vertex> m_vertices;
};
