#pragma once

#include "sandbox/film/film.h"
#include "sandbox/view/film_pilot.h"
#include "sandbox/view/terrain_renderer.h"

#include <QImage>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>

/// Draws the pictures of a film as the 3D view shows them when it looks through the film, but into memory: of
/// any size, and without a window. Poses the film; the frames that are current stay.
class CFilmPictures {
public:
    static constexpr int LARGEST_SIDE = 8192; // pixels

    /// The map and the film outlive this.
    CFilmPictures(CMemoryMap& map, CFilm& film, QSize size, const ViewOptions& options);
    ~CFilmPictures();
    CFilmPictures(const CFilmPictures&) = delete;
    CFilmPictures& operator=(const CFilmPictures&) = delete;

    /// Why nothing can be drawn, as a clause; empty when it can.
    const QString& failure() const { return m_strFailure; }
    /// The picture of a frame, 32 bits a pixel and opaque. Only without a failure().
    QImage draw(int frame);

private:
    void prepare(QSize size);
    CViewCamera cameraOf() const;

    CMemoryMap& m_map;
    CFilm& m_film;
    ViewOptions m_options;
    QString m_strFailure;
    QOffscreenSurface m_surface;
    QOpenGLContext m_context;
    std::unique_ptr<QOpenGLFramebufferObject> m_pTarget;
    CTerrainRenderer m_renderer;
    CFilmPilot m_pilot{toolkitFilmCalls()};
    CViewCamera m_first; // from which the view shows the map where the film has no camera
    int m_nRangeStart;
    int m_nRangeEnd;
};
