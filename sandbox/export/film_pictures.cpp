#include "sandbox/export/film_pictures.h"

#include "sandbox/view/gl_functions.h"

#include <QOpenGLPaintDevice>
#include <QPainter>

namespace {

/// Water leaves traces in the picture's alpha that mean nothing, and no screen shows.
QImage opaque(QImage image) {
    image.convertTo(QImage::Format_ARGB32_Premultiplied);
    image.reinterpretAsFormat(QImage::Format_RGB32);
    return image.convertToFormat(QImage::Format_RGB888).convertToFormat(QImage::Format_RGB32);
}

} // namespace

CFilmPictures::CFilmPictures(CMemoryMap& map, CFilm& film, QSize size, const ViewOptions& options)
    : m_map(map)
    , m_film(film)
    , m_options(options)
    , m_nRangeStart(film.movie().getRangeStart())
    , m_nRangeEnd(film.movie().getRangeEnd()) {
    const double width = map.getGridDim();
    m_first.frameMap(width, groundHeight(heightFieldOf(map), width / 2.0, width / 2.0));
    m_film.movie().updateTweening();
    m_pilot.setFilm(&film);
    prepare(size);
}

CFilmPictures::~CFilmPictures() {
    if (m_pTarget != nullptr && m_context.makeCurrent(&m_surface)) {
        m_renderer.destroy();
        m_pTarget.reset();
        m_context.doneCurrent();
    }
    CMemoryMovie& movie = m_film.movie();
    movie.setRangeStart(m_nRangeStart);
    movie.setRangeEnd(m_nRangeEnd);
    movie.updateManual(movie.convertFrameToTime(m_nRangeStart));
}

void CFilmPictures::prepare(QSize size) {
    if (size.width() < 1 || size.height() < 1 || std::max(size.width(), size.height()) > LARGEST_SIDE) {
        m_strFailure = QString("a picture has 1 to %1 pixels a side").arg(LARGEST_SIDE);
        return;
    }
    m_surface.create();
    if (!m_context.create() || !m_context.makeCurrent(&m_surface) || glFunctions() == nullptr) {
        m_strFailure = "the pictures need OpenGL 3.3";
        return;
    }
    QOpenGLFramebufferObjectFormat format;
    format.setAttachment(QOpenGLFramebufferObject::CombinedDepthStencil);
    format.setSamples(QSurfaceFormat::defaultFormat().samples()); // as smooth as the view
    m_pTarget = std::make_unique<QOpenGLFramebufferObject>(size, format);
    if (!m_pTarget->isValid()) {
        m_pTarget.reset();
        m_strFailure = QString("the graphics card draws no pictures of %1 x %2 pixels")
                           .arg(size.width())
                           .arg(size.height());
        return;
    }
    m_renderer.create();
    m_renderer.setMap(&m_map, &m_film);
}

CViewCamera CFilmPictures::cameraOf() const {
    return m_film.drivenCamera() != nullptr ? m_pilot.pictureCamera(m_first.farDistance()) : m_first;
}

QImage CFilmPictures::draw(int frame) {
    CMemoryMovie& movie = m_film.movie();
    movie.setRangeSingleFrame(frame); // the shake goes by the current frame
    movie.updateManual(movie.convertFrameToTime(frame));
    m_context.makeCurrent(&m_surface);
    m_pTarget->bind();
    glFunctions()->glViewport(0, 0, m_pTarget->width(), m_pTarget->height());
    m_renderer.draw(cameraOf(), m_pTarget->size(), 1.0, m_options, false);
    if (m_film.drivenCamera() != nullptr) {
        QOpenGLPaintDevice device(m_pTarget->size());
        QPainter(&device).fillRect(QRect(QPoint(), m_pTarget->size()), m_pilot.fade());
    }
    return opaque(m_pTarget->toImage());
}
