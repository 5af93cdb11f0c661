#include "sandbox/view/figure_renderer.h"

#include "sandbox/film/figure_mesh.h"
#include "sandbox/view/gl_functions.h"
#include "sandbox/view/shader_program.h"

#include <cstddef>

void CFigureRenderer::create() {
    m_pProgram = makeProgram("figure");
    makeVertexArrays(*m_pProgram, m_arrays, m_buffer,
                     {{offsetof(FigureVertex, place), 3},
                      {offsetof(FigureVertex, normal), 3},
                      {offsetof(FigureVertex, colour), 3}},
                     sizeof(FigureVertex));
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
