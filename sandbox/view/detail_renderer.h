#pragma once

#include "engine/memory/memory_map.h"
#include "sandbox/core/detail_mesh.h"

#include <QOpenGLBuffer>
#include <QOpenGLShaderProgram>
#include <QOpenGLTexture>
#include <QOpenGLVertexArrayObject>
#include <array>
#include <map>
#include <memory>
#include <string>

/// Draws a map's details from the current values of their records. Keeps the textures it met. Lives as long
/// as the renderer's context; needs it current.
class CDetailRenderer {
public:
    void create();
    void destroy();
    /// Load textures anew when next needed.
    void forgetTextures() { m_textures.clear(); }
    /// The program, bound, for the caller to set the scene's uniforms on before draw().
    QOpenGLShaderProgram& program() { return *m_pProgram; }
    /// `right` is the camera's, for details that turn to it.
    void draw(const CMemoryMap& map, const HeightField& field, const std::array<double, 3>& right);

private:
    QOpenGLTexture& textureOf(const qxCMapDetailRecord& detail);
    void drawBatch(QOpenGLTexture& texture, const std::vector<DetailVertex>& vertices);

    std::unique_ptr<QOpenGLShaderProgram> m_pProgram;
    QOpenGLVertexArrayObject m_arrays;
    QOpenGLBuffer m_buffer{QOpenGLBuffer::VertexBuffer};
    std::unique_ptr<QOpenGLTexture> m_pPlain; // for details without an image
    std::map<std::string, std::unique_ptr<QOpenGLTexture>>
        m_textures; // by file name; null for one that fails
};
