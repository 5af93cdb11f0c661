#include "sandbox/view/detail_renderer.h"

#include "engine/qx_texture.h"
#include "sandbox/view/base_texture.h"
#include "sandbox/view/gl_functions.h"
#include "sandbox/view/shader_program.h"

#include <QImage>
#include <cstddef>

namespace {

constexpr QRgb PLAIN = qRgb(190, 180, 170);

}

void CDetailRenderer::create() {
    m_pProgram = makeProgram("detail");
    QImage image(1, 1, QImage::Format_ARGB32);
    image.fill(PLAIN);
    m_pPlain = std::make_unique<QOpenGLTexture>(image);
    m_arrays.create();
    const QOpenGLVertexArrayObject::Binder bound(&m_arrays);
    m_buffer.create();
    m_buffer.setUsagePattern(QOpenGLBuffer::StreamDraw);
    m_buffer.bind();
    for (int attribute = 0; attribute < 3; ++attribute) {
        m_pProgram->enableAttributeArray(attribute);
    }
    m_pProgram->setAttributeBuffer(0, GL_FLOAT, offsetof(DetailVertex, place), 3, sizeof(DetailVertex));
    m_pProgram->setAttributeBuffer(1, GL_FLOAT, offsetof(DetailVertex, texture), 2, sizeof(DetailVertex));
    m_pProgram->setAttributeBuffer(2, GL_FLOAT, offsetof(DetailVertex, highlight), 1, sizeof(DetailVertex));
}

void CDetailRenderer::destroy() {
    m_textures.clear();
    m_pPlain.reset();
    m_buffer.destroy();
    m_arrays.destroy();
    m_pProgram.reset();
}

QOpenGLTexture& CDetailRenderer::textureOf(const qxCMapDetailRecord& detail) {
    if (detail.texture == nullptr) {
        return *m_pPlain;
    }
    const std::string name = detail.texture->getFilename();
    const auto [found, isNew] = m_textures.try_emplace(name);
    if (isNew) {
        found->second = loadBaseTexture(detail.texture);
    }
    return found->second != nullptr ? *found->second : *m_pPlain;
}

void CDetailRenderer::draw(const CMemoryMap& map, const HeightField& field,
                           const std::array<double, 3>& right) {
    std::map<QOpenGLTexture*, std::vector<DetailVertex>> batches;
    const CDetailList& details = map.getDetails();
    for (int i = 0; i < details.size(); ++i) {
        const std::vector<DetailVertex> mesh = detailMesh(field, details[i], right);
        std::vector<DetailVertex>& batch = batches[&textureOf(details[i])];
        batch.insert(batch.end(), mesh.begin(), mesh.end());
    }
    for (const auto& [texture, vertices] : batches) {
        drawBatch(*texture, vertices);
    }
}

void CDetailRenderer::drawBatch(QOpenGLTexture& texture, const std::vector<DetailVertex>& vertices) {
    const QOpenGLVertexArrayObject::Binder bound(&m_arrays);
    m_buffer.bind();
    m_buffer.allocate(vertices.data(), static_cast<int>(vertices.size() * sizeof(DetailVertex)));
    texture.bind(0);
    glFunctions()->glDrawArrays(GL_TRIANGLES, 0, static_cast<int>(vertices.size()));
}
