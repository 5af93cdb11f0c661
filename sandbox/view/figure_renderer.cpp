#include "sandbox/view/figure_renderer.h"

#include "sandbox/film/figure_mesh.h"
#include "sandbox/view/gl_functions.h"
#include "sandbox/view/shader_program.h"

#include <cstddef>

void CFigureRenderer::create() {
    m_pProgram = makeProgram("figure");
    m_arrays.create();
    const QOpenGLVertexArrayObject::Binder bound(&m_arrays);
    m_buffer.create();
    m_buffer.setUsagePattern(QOpenGLBuffer::StreamDraw);
    m_buffer.bind();
    for (int attribute = 0; attribute < 3; ++attribute) {
        m_pProgram->enableAttributeArray(attribute);
    }
    m_pProgram->setAttributeBuffer(0, GL_FLOAT, offsetof(FigureVertex, place), 3, sizeof(FigureVertex));
    m_pProgram->setAttributeBuffer(1, GL_FLOAT, offsetof(FigureVertex, normal), 3, sizeof(FigureVertex));
    m_pProgram->setAttributeBuffer(2, GL_FLOAT, offsetof(FigureVertex, colour), 3, sizeof(FigureVertex));
}

void CFigureRenderer::destroy() {
    m_buffer.destroy();
    m_arrays.destroy();
    m_pProgram.reset();
}

void CFigureRenderer::draw(CFilm& film, const HeightField& ground) {
    std::vector<FigureVertex> vertices;
    for (const FilmFigure& figure : film.figures()) {
        const auto x = static_cast<double>(figure.position.x);
        const auto z = static_cast<double>(figure.position.z);
        const std::vector<FigureVertex> mesh = figureMesh(
            figure, groundHeight(ground, x, z), animationTime(film.movie(), figure, film.shownTime()));
        vertices.insert(vertices.end(), mesh.begin(), mesh.end());
    }
    const QOpenGLVertexArrayObject::Binder bound(&m_arrays);
    m_buffer.bind();
    m_buffer.allocate(vertices.data(), static_cast<int>(vertices.size() * sizeof(FigureVertex)));
    glFunctions()->glDrawArrays(GL_TRIANGLES, 0, static_cast<int>(vertices.size()));
}
