#include "sandbox/view/film_pilot.h"

#include "host/veskutil.h"
#include "sandbox/film/film_camera.h"

#include <QHash>
#include <algorithm>

namespace {

constexpr double FIRST_PIVOT = 20.0; // world units ahead of the camera

std::size_t hashOf(const qxCVector3d& vector, std::size_t seed) {
    return qHashMulti(seed, vector.x, vector.y, vector.z);
}

} // namespace

const FilmCalls& toolkitFilmCalls() {
    static constexpr FilmCalls CALLS{vuMovieCameraAltered};
    return CALLS;
}

CFilmPilot::CFilmPilot(const FilmCalls& calls) : m_calls(calls) {
    m_camera.setPivotDistance(FIRST_PIVOT);
}

void CFilmPilot::setFilm(CFilm* film) {
    m_pFilm = film;
    m_bMoving = false;
}

bool CFilmPilot::isLooking() const {
    return m_pFilm != nullptr && m_pFilm->isLookedThrough() && m_pFilm->drivenCamera() != nullptr;
}

bool CFilmPilot::mayMove() const {
    return m_pFilm != nullptr && !m_pFilm->movie().isPlaying();
}

CViewCamera& CFilmPilot::camera(double farDistance) {
    const CMemoryCamera& driven = *m_pFilm->drivenCamera();
    lookThrough(m_camera, driven.position, driven.rotation, driven.getFieldOfView(), farDistance);
    return m_camera;
}

CViewCamera CFilmPilot::pictureCamera(double farDistance) const {
    const CMemoryCamera& driven = *m_pFilm->drivenCamera();
    const CMemoryMovie& movie = m_pFilm->movie();
    const float shake = m_bMoving ? 0.0F : movie.getPose().shake;
    CViewCamera picture = m_camera;
    lookThrough(picture, driven.position, shaken(driven.rotation, shake, m_pFilm->shownTime()),
                driven.getFieldOfView(), farDistance);
    return picture;
}

QColor CFilmPilot::fade() const {
    const CMemoryMovie& movie = m_pFilm->movie();
    if ((movie.flags & qxMovieNoFades) != 0) {
        return Qt::transparent;
    }
    const qxCColour& colour = movie.getPose().fadeColour;
    const double strength = std::clamp(1.0 - static_cast<double>(movie.getPose().fadeLevel), 0.0, 1.0);
    QColor shown(colour.r, colour.g, colour.b);
    shown.setAlphaF(static_cast<float>(strength));
    return shown;
}

void CFilmPilot::moved() {
    CMemoryCamera& driven = *m_pFilm->drivenCamera();
    moveTo(driven, m_camera);
    m_bMoving = true;
    m_calls.cameraAltered(&driven, false);
}

void CFilmPilot::finish() {
    if (m_bMoving && m_pFilm != nullptr) {
        m_bMoving = false;
        m_calls.cameraAltered(m_pFilm->drivenCamera(), true);
    }
}

std::uint64_t CFilmPilot::state() const {
    if (m_pFilm == nullptr) {
        return 0;
    }
    const CMemoryMovie& movie = m_pFilm->movie();
    const MoviePose& pose = movie.getPose();
    std::size_t state = qHashMulti(m_pFilm->state(), movie.flags, isLooking(), m_pFilm->shownTime(),
                                   pose.camera, pose.fieldOfView, pose.shake, pose.fadeLevel, fade().rgba());
    state = hashOf(pose.rotation, hashOf(pose.position, state));
    if (const CMemoryCamera* const driven = m_pFilm->drivenCamera()) {
        state = hashOf(driven->rotation, hashOf(driven->position, state));
    }
    return state;
}
