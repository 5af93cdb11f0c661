#pragma once

#include "sandbox/core/chunk_grid.h"

#include <QOpenGLBuffer>
#include <QOpenGLVertexArrayObject>
#include <array>

/// The one mesh that every chunk of every map is drawn with: a square of points with skirts around it, with a
/// list of triangles for each level of detail. Where the points lie the vertex shader reads from the heights.
/// Lives as long as the renderer's context; needs it current.
class CChunkMesh {
public:
    void create();
    void destroy();
    /// Draw the chunks with the program that is bound.
    void draw(const std::vector<CChunkGrid::Visible>& chunks);
    /// Triangles of the last draw.
    int triangleCount() const { return m_nTriangles; }

private:
    struct Level {
        int firstIndex = 0;
        int indexCount = 0;
    };

    QOpenGLVertexArrayObject m_arrays;
    QOpenGLBuffer m_vertices{QOpenGLBuffer::VertexBuffer};
    QOpenGLBuffer m_indices{QOpenGLBuffer::IndexBuffer};
    QOpenGLBuffer m_chunks{QOpenGLBuffer::VertexBuffer};
    std::array<Level, CChunkGrid::LEVELS> m_levels;
    int m_nTriangles = 0;
};
