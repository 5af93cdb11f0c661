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
    makeVertexArrays(*m_pProgram, m_arrays, m_buffer,
                     {{offsetof(DetailVertex, place), 3},
                      {offsetof(DetailVertex, texture), 2},
                      {offsetof(DetailVertex, highlight), 1}},
                     sizeof(DetailVertex));
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
