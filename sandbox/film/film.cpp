#include "sandbox/film/film.h"

#include "sandbox/project/project_limits.h"

#include <QHash>
#include <string>

CFilm::CFilm(CMemoryScene& scene, int frames, float stepRate)
    : m_scene(scene), m_viewCamera(&scene, VIEW_CAMERA), m_movie(&scene, frames, stepRate) {
    m_scene.addNode(&m_viewCamera); // first, so that a search for a camera finds it
    m_scene.addNode(&m_movie);
    selectViewCamera();
}

CFilm::CFilm(CMemoryScene& scene, int frames, const qxCMovieFrame& pose)
    : CFilm(scene, frames, CMemoryMovie::DEFAULT_STEP_RATE) {
    m_movie.addCamera(FIRST_CAMERA);
    for (int index = 0; index < m_movie.getNumFrames(); ++index) {
        qxCMovieFrame& frame = *m_movie.getFrame(index);
        const bool isKey = frame.keyframe;
        frame = pose;
        frame.setKeyframe(isKey);
    }
    m_movie.updateTweening();
    m_movie.flags |= qxMovieShowPath;
}

CFilm::~CFilm() {
    for (const std::unique_ptr<CPlace>& place : m_places) {
        m_scene.removeNode(place.get());
    }
    m_scene.removeNode(&m_movie);
    m_scene.removeNode(&m_viewCamera);
}

bool CFilm::isLookedThrough() const {
    const qxCCamera* const selected = m_scene.getSelectedCamera();
    return selected != nullptr && selected != &m_viewCamera;
}

CMemoryCamera* CFilm::drivenCamera() {
    // All cameras of a movie in memory are cameras in memory.
    return static_cast<CMemoryCamera*>(m_movie.getChildCamera(m_movie.getPose().camera));
}

void CFilm::addPlace(const QString& name, const qxCVector3d& position) {
    auto place = std::make_unique<CPlace>(m_scene);
    place->name.setString(name.toUtf8().constData());
    place->position = position;
    m_scene.addNode(place.get());
    m_places.push_back(std::move(place));
    ++m_nPlaceChanges;
}

void CFilm::renamePlace(std::size_t index, const QString& name) {
    const std::string former = m_places.at(index)->name.getString();
    m_places.at(index)->name.setString(name.toUtf8().constData());
    for (int frame = 0; frame < m_movie.getNumFrames(); ++frame) {
        if (former == m_movie.getFrame(frame)->targetName.getString()) {
            qxCMovieFrame renamed(
                *m_movie.getFrame(frame)); // assigned whole it is no change for an editor's undo
            renamed.targetName = m_places.at(index)->name;
            *m_movie.getFrame(frame) = renamed;
        }
    }
    m_movie.updateTweening();
    ++m_nPlaceChanges;
}

void CFilm::movePlace(std::size_t index, const qxCVector3d& position) {
    m_places.at(index)->position = position;
    ++m_nPlaceChanges;
}

void CFilm::removePlace(std::size_t index) {
    m_scene.removeNode(m_places.at(index).get());
    m_places.erase(m_places.begin() + static_cast<std::ptrdiff_t>(index));
    ++m_nPlaceChanges;
}

double CFilm::shownTime() const {
    return m_movie.isPlaying() ? m_movie.getPlayTime()
                               : static_cast<double>(m_movie.convertFrameToTime(m_movie.getRangeStart()));
}

QStringList CFilm::names() const {
    QStringList names{QString::fromUtf8(m_viewCamera.name.getString())};
    for (int index = 0; index < m_movie.getNumChildNodes(); ++index) {
        names.append(QString::fromUtf8(m_movie.getChildNode(index)->name.getString()));
    }
    for (const std::unique_ptr<CPlace>& place : m_places) {
        names.append(QString::fromUtf8(place->name.getString()));
    }
    return names;
}

QString CFilm::whyNoName(const QString& name) const {
    if (name.trimmed().isEmpty()) {
        return "A name needs a letter or a number.";
    }
    if (name.toUtf8().size() > LONGEST_NAME) {
        return "The name is too long.";
    }
    return names().contains(name) ? QString("\"%1\" is taken already.").arg(name) : QString();
}

QString CFilm::freeName(const QString& kind) const {
    const QStringList taken = names();
    for (int number = 1;; ++number) {
        const QString name = QString("%1 %2").arg(kind).arg(number);
        if (!taken.contains(name)) {
            return name;
        }
    }
}

std::uint32_t CFilm::shown() const {
    return m_movie.flags & (qxMovieShowPath | qxMovieShowHeights | qxMovieNoFades);
}

std::uint64_t CFilm::contentState() const {
    return qHashMulti(0, m_movie.getRevision(), m_nPlaceChanges, m_movie.getNumChildNodes());
}

std::uint64_t CFilm::state() const {
    return qHashMulti(contentState(), shown());
}
