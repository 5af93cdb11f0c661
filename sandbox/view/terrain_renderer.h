#pragma once

#include "sandbox/core/chunk_grid.h"
#include "sandbox/view/chunk_mesh.h"
#include "sandbox/view/detail_renderer.h"
#include "sandbox/view/figure_renderer.h"
#include "sandbox/view/ground_overlay.h"
#include "sandbox/view/point_textures.h"
#include "sandbox/view/view_options.h"

/// Draws one map with sky, ground, details, water and edit cursors. Owns everything it made in the context
/// that was current at create(), which must be current at every later call.
class CTerrainRenderer {
public:
    void create();
    void destroy();
    /// Draw this map from now on, with the figures of the film; null for none. Both must outlive their stay
    /// here.
    void setMap(CMemoryMap* map, CFilm* film);
    /// Draw one picture. `pixelRatio` is physical pixels per logical one. Smaller images of what changed are
    /// left for later while `hurried`.
    void draw(const CViewCamera& camera, QSize viewPixels, double pixelRatio, const ViewOptions& options,
              bool hurried);
    /// True when a hurried picture left something to be done better.
    bool wantsAnotherPicture() const { return m_points.hasStaleMipmaps(); }
    int triangleCount() const { return m_mesh.triangleCount(); }

private:
    void takeChanges(bool hurried);
    void drawSky(const QMatrix4x4& worldToClip);
    void drawGround(const CViewCamera& camera, QSize viewPixels, const ViewOptions& options);
    void drawDetails(const CViewCamera& camera, const QMatrix4x4& worldToClip);
    void drawFigures(const QMatrix4x4& worldToClip);
    void drawWater(const QMatrix4x4& worldToClip);
    void setSceneUniforms(QOpenGLShaderProgram& program) const;
    void refreshBaseTextures();

    CMemoryMap* m_pMap = nullptr;
    CPointTextures m_points;
    CChunkGrid m_chunks;
    CChunkMesh m_mesh;
    CDetailRenderer m_details;
    CFilm* m_pFilm = nullptr;
    CFigureRenderer m_figures;
    CGroundOverlay m_overlay;
    QOpenGLVertexArrayObject m_noArrays; // core profile: even a draw without attributes needs one
    std::unique_ptr<QOpenGLShaderProgram> m_pSky;
    std::unique_ptr<QOpenGLShaderProgram> m_pGround;
    std::unique_ptr<QOpenGLShaderProgram> m_pWater;
    std::array<std::unique_ptr<QOpenGLTexture>, 3> m_baseTextures; // smooth, rough, water; null for none
    std::uint64_t m_nTextureChanges = 0;
    QVector3D m_eye;
};
