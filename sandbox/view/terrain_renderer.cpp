#include "sandbox/view/terrain_renderer.h"

#include "engine/memory/memory_scene.h"
#include "sandbox/view/base_texture.h"
#include "sandbox/view/gl_functions.h"
#include "sandbox/view/shader_program.h"

#include <algorithm>

namespace {

const QVector3D SUN = QVector3D(-0.62F, 0.60F, 0.02F).normalized();
constexpr double LEVEL_TOLERANCE = 0.75; // pixels that a coarser level may stray
constexpr float FOG_DISTANCE = 0.9F;     // of the map's width
constexpr float BASE_DEPTH = 0.03F;      // of the map's width, from the lowest ground to the underside
constexpr int FIRST_BASE_UNIT = static_cast<int>(CPointTextures::Unit::COUNT);

QVector3D toVector(const qxCColour& colour) {
    constexpr float FULL = 255.0F;
    return QVector3D(colour.r, colour.g, colour.b) / FULL;
}

int unitOf(CPointTextures::Unit unit) {
    return static_cast<int>(unit);
}

} // namespace

void CTerrainRenderer::create() {
    m_noArrays.create();
    m_pSky = makeProgram("sky");
    m_pGround = makeProgram("terrain");
    m_pWater = makeProgram("water");
    m_mesh.create();
    m_details.create();
    m_figures.create();
    m_overlay.create();
    using Unit = CPointTextures::Unit;
    m_pGround->bind();
    m_pGround->setUniformValue("uHeights", unitOf(Unit::HEIGHTS));
    m_pGround->setUniformValue("uNormals", unitOf(Unit::NORMALS));
    m_pGround->setUniformValue("uColours", unitOf(Unit::COLOURS));
    m_pGround->setUniformValue("uBlends", unitOf(Unit::BLENDS));
    m_pGround->setUniformValue("uMarkers", unitOf(Unit::MARKERS));
    m_pGround->setUniformValue("uSmooth", FIRST_BASE_UNIT);
    m_pGround->setUniformValue("uRough", FIRST_BASE_UNIT + 1);
    m_pWater->bind();
    m_pWater->setUniformValue("uHeights", unitOf(Unit::HEIGHTS));
    m_pWater->setUniformValue("uWater", unitOf(Unit::WATER));
    m_pWater->setUniformValue("uWaterTexture", FIRST_BASE_UNIT + 2);
    if (m_pMap != nullptr) {
        setMap(m_pMap, m_pFilm);
    }
}

void CTerrainRenderer::destroy() {
    m_points.destroy();
    m_mesh.destroy();
    m_details.destroy();
    m_figures.destroy();
    m_overlay.destroy();
    m_baseTextures = {};
    m_noArrays.destroy();
    m_pSky.reset();
    m_pGround.reset();
    m_pWater.reset();
}

void CTerrainRenderer::setMap(CMemoryMap* map, CFilm* film) {
    m_pMap = map;
    m_pFilm = film;
    m_points.destroy();
    m_baseTextures = {};
    if (map != nullptr && m_pGround != nullptr) {
        m_points.create(*map);
        m_chunks.rebuild(heightFieldOf(*map));
        refreshBaseTextures();
    }
}

void CTerrainRenderer::draw(const CViewCamera& camera, QSize viewPixels, double pixelRatio,
                            const ViewOptions& options, bool hurried) {
    const double aspect = static_cast<double>(viewPixels.width()) / std::max(viewPixels.height(), 1);
    const QMatrix4x4 worldToClip = camera.viewProjection(aspect);
    m_eye = QVector3D(static_cast<float>(camera.eye()[0]), static_cast<float>(camera.eye()[1]),
                      static_cast<float>(camera.eye()[2]));
    QOpenGLFunctions_3_3_Core* gl = glFunctions();
    gl->glDisable(GL_BLEND);
    gl->glDisable(GL_CULL_FACE);
    gl->glEnable(GL_DEPTH_TEST);
    gl->glDepthMask(GL_TRUE);
    gl->glDepthFunc(GL_LEQUAL);
    gl->glClear(GL_DEPTH_BUFFER_BIT | GL_COLOR_BUFFER_BIT);
    drawSky(worldToClip);
    if (m_pMap == nullptr) {
        return;
    }
    takeChanges(hurried);
    m_points.bind();
    for (std::size_t i = 0; i < m_baseTextures.size(); ++i) {
        if (m_baseTextures[i] != nullptr) {
            m_baseTextures[i]->bind(static_cast<unsigned>(FIRST_BASE_UNIT) + static_cast<unsigned>(i));
        }
    }
    drawGround(camera, viewPixels, options);
    drawDetails(camera, worldToClip);
    drawFigures(worldToClip);
    m_points.bind(); // the details used one of its units
    drawWater(worldToClip);
    m_overlay.draw(heightFieldOf(*m_pMap), m_pMap->getEditCursors(), worldToClip, viewPixels, pixelRatio);
}

void CTerrainRenderer::takeChanges(bool hurried) {
    m_chunks.update(heightFieldOf(*m_pMap), m_points.update(*m_pMap));
    constexpr int SMALL_MAP = 513; // its smaller images are made in no time
    if (!hurried || m_pMap->getGridDim() < SMALL_MAP) {
        m_points.refreshMipmaps();
    }
    if (m_nTextureChanges != m_pMap->getChangeCount(MapChange::TEXTURES)) {
        refreshBaseTextures();
    }
}

void CTerrainRenderer::refreshBaseTextures() {
    m_details.forgetTextures();
    m_nTextureChanges = m_pMap->getChangeCount(MapChange::TEXTURES);
    for (const qxMapLayerType layer : {qxMapLayerSmooth, qxMapLayerRough, qxMapLayerWater}) {
        m_baseTextures[static_cast<std::size_t>(layer)] = loadBaseTexture(m_pMap->getTexture(layer));
    }
}

void CTerrainRenderer::setSceneUniforms(QOpenGLShaderProgram& program) const {
    program.setUniformValue("uEye", m_eye);
    program.setUniformValue("uSunDirection", SUN);
    const qxCScene* scene = m_pMap != nullptr ? m_pMap->getScene() : nullptr;
    const bool foggy = scene != nullptr && scene->getFogMode() == qxFogModeOn;
    program.setUniformValue("uFogDistance",
                            foggy ? static_cast<float>(m_pMap->getGridDim()) * FOG_DISTANCE : 0.0F);
}

void CTerrainRenderer::drawSky(const QMatrix4x4& worldToClip) {
    QOpenGLFunctions_3_3_Core* gl = glFunctions();
    gl->glDepthMask(GL_FALSE);
    m_pSky->bind();
    setSceneUniforms(*m_pSky);
    m_pSky->setUniformValue("uClipToWorld", worldToClip.inverted());
    const QOpenGLVertexArrayObject::Binder bound(&m_noArrays);
    gl->glDrawArrays(GL_TRIANGLES, 0, 3);
    gl->glDepthMask(GL_TRUE);
}

void CTerrainRenderer::drawGround(const CViewCamera& camera, QSize viewPixels, const ViewOptions& options) {
    const double aspect = static_cast<double>(viewPixels.width()) / std::max(viewPixels.height(), 1);
    const std::array<int, 2> heights = m_chunks.heightRange();
    const float low = static_cast<float>(heights[0]) * m_pMap->heightScale;
    const float high = static_cast<float>(heights[1]) * m_pMap->heightScale;
    const auto width = static_cast<float>(m_pMap->getGridDim());
    m_pGround->bind();
    setSceneUniforms(*m_pGround);
    m_pGround->setUniformValue("uWorldToClip", camera.viewProjection(aspect));
    m_pGround->setUniformValue("uGridDim", m_pMap->getGridDim());
    m_pGround->setUniformValue("uHeightScale", m_pMap->heightScale);
    m_pGround->setUniformValue("uBase", low - std::max(width * BASE_DEPTH, 1.0F));
    m_pGround->setUniformValue("uHeightRange", QVector2D(low, high));
    m_pGround->setUniformValue("uTiling", static_cast<float>(m_pMap->getTextureTiling()));
    m_pGround->setUniformValue("uAmbient", toVector(m_pMap->getAmbient()));
    m_pGround->setUniformValue("uDiffuse", toVector(m_pMap->getDiffuse()));
    m_pGround->setUniformValue("uChecker", m_pMap->hasFlag(qxMapFlagChecker));
    m_pGround->setUniformValue("uGrid", options.grid);
    glFunctions()->glUniform2i(m_pGround->uniformLocation("uHasTexture"), m_baseTextures[0] != nullptr,
                               m_baseTextures[1] != nullptr);
    if (options.wireframe) {
        glFunctions()->glPolygonMode(GL_FRONT_AND_BACK, GL_LINE);
    }
    m_mesh.draw(m_chunks.select(camera, aspect, viewPixels.height(), LEVEL_TOLERANCE));
    glFunctions()->glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
}

void CTerrainRenderer::drawDetails(const CViewCamera& camera, const QMatrix4x4& worldToClip) {
    if (m_pMap->getDetails().size() == 0) {
        return;
    }
    QOpenGLShaderProgram& program = m_details.program();
    program.bind();
    setSceneUniforms(program);
    program.setUniformValue("uWorldToClip", worldToClip);
    program.setUniformValue("uTexture", 0);
    program.setUniformValue("uAmbient", toVector(m_pMap->getAmbient()));
    program.setUniformValue("uDiffuse", toVector(m_pMap->getDiffuse()));
    m_details.draw(*m_pMap, heightFieldOf(*m_pMap), camera.right());
}

void CTerrainRenderer::drawFigures(const QMatrix4x4& worldToClip) {
    if (m_pFilm == nullptr || m_pFilm->figures().empty()) {
        return;
    }
    QOpenGLShaderProgram& program = m_figures.program();
    program.bind();
    setSceneUniforms(program);
    program.setUniformValue("uWorldToClip", worldToClip);
    program.setUniformValue("uAmbient", toVector(m_pMap->getAmbient()));
    program.setUniformValue("uDiffuse", toVector(m_pMap->getDiffuse()));
    m_figures.draw(*m_pFilm, heightFieldOf(*m_pMap));
}

void CTerrainRenderer::drawWater(const QMatrix4x4& worldToClip) {
    QOpenGLFunctions_3_3_Core* gl = glFunctions();
    gl->glEnable(GL_BLEND);
    gl->glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    m_pWater->bind();
    setSceneUniforms(*m_pWater);
    m_pWater->setUniformValue("uWorldToClip", worldToClip);
    m_pWater->setUniformValue("uGridDim", m_pMap->getGridDim());
    m_pWater->setUniformValue("uHeightScale", m_pMap->heightScale);
    m_pWater->setUniformValue("uWaterLevel", m_pMap->waterLevel);
    m_pWater->setUniformValue("uTiling", static_cast<float>(m_pMap->getTextureTiling()));
    m_pWater->setUniformValue("uHasWaterTexture", m_baseTextures[2] != nullptr);
    const QOpenGLVertexArrayObject::Binder bound(&m_noArrays);
    gl->glDrawArrays(GL_TRIANGLE_STRIP, 0, 4);
    gl->glDisable(GL_BLEND);
}
