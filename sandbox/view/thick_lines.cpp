#include "sandbox/view/thick_lines.h"

#include "sandbox/view/gl_functions.h"
#include "sandbox/view/shader_program.h"

#include <cstddef>

void CThickLines::create() {
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

void CThickLines::destroy() {
    m_buffer.destroy();
    m_arrays.destroy();
    m_pProgram.reset();
}

void CThickLines::addSegment(const QVector3D& from, const QVector3D& to, Colour colour) {
    // Seen from its other end the line runs the other way, so its sides change places there.
    const Vertex a{from, to, 1.0F, colour};
    const Vertex b{from, to, -1.0F, colour};
    const Vertex c{to, from, -1.0F, colour};
    const Vertex d{to, from, 1.0F, colour};
    m_vertices.insert(m_vertices.end(), {a, b, c, b, d, c});
}

void CThickLines::addTriangle(const std::array<QVector3D, 3>& corners, Colour colour) {
    for (const QVector3D& place : corners) {
        m_vertices.push_back({place, place, 0.0F, colour});
    }
}

void CThickLines::begin(const QMatrix4x4& worldToClip, QSize viewPixels) {
    QOpenGLFunctions_3_3_Core* gl = glFunctions();
    gl->glEnable(GL_BLEND);
    gl->glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    gl->glDepthMask(GL_FALSE);
    m_pProgram->bind();
    m_pProgram->setUniformValue("uWorldToClip", worldToClip);
    m_pProgram->setUniformValue("uViewSize", QVector2D(static_cast<float>(viewPixels.width()),
                                                       static_cast<float>(viewPixels.height())));
    m_buffer.bind();
    m_buffer.allocate(m_vertices.data(), static_cast<int>(m_vertices.size() * sizeof(Vertex)));
}

void CThickLines::draw(const Range& range, float lineWidth) {
    if (range.count == 0) {
        return;
    }
    const QOpenGLVertexArrayObject::Binder bound(&m_arrays);
    m_pProgram->setUniformValue("uLineWidth", lineWidth);
    glFunctions()->glDrawArrays(GL_TRIANGLES, range.first, range.count);
}

void CThickLines::end() {
    QOpenGLFunctions_3_3_Core* gl = glFunctions();
    gl->glDepthMask(GL_TRUE);
    gl->glDisable(GL_BLEND);
}
