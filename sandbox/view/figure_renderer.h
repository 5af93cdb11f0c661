#pragma once

#include "sandbox/core/height_field.h"
#include "sandbox/film/film.h"

#include <QOpenGLBuffer>
#include <QOpenGLShaderProgram>
#include <QOpenGLVertexArrayObject>

#include <memory>

/// Draws the figures of a film where its time has them. Lives as long as the renderer's context; needs it
/// current.
class CFigureRenderer {
public:
    void create();
    void destroy();
    /// The program, bound, for the caller to set the scene's uniforms on before draw().
    QOpenGLShaderProgram& program() { return *m_pProgram; }
    void draw(CFilm& film, const HeightField& ground);

private:
    std::unique_ptr<QOpenGLShaderProgram> m_pProgram;
    QOpenGLVertexArrayObject m_arrays;
    QOpenGLBuffer m_buffer{QOpenGLBuffer::VertexBuffer};
};
