#include "sandbox/film/film_marks.h"

#include "sandbox/film/film_camera.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::array<FilmColour, 4> CAMERA_COLOURS{
    {{255, 170, 40, 255}, {70, 200, 255, 255}, {255, 110, 190, 255}, {150, 230, 90, 255}}};
constexpr FilmColour CURRENT_COLOUR{255, 255, 255, 255};
constexpr FilmColour HEIGHT_COLOUR{215, 215, 225, 200};
constexpr FilmColour PLACE_COLOUR{255, 90, 70, 255};
constexpr int MOST_SAMPLES = 4000;     // of a path, besides its keyframes
constexpr double CAMERA_SIZE = 0.028;  // of the map's width
constexpr double CURRENT_SIZE = 0.036; // of the map's width
constexpr double PLACE_HEIGHT = 0.025; // of the map's width
constexpr double PICTURE_ASPECT = 16.0 / 9.0;

FilmColour colourOf(int camera) {
    return CAMERA_COLOURS[static_cast<std::size_t>(std::max(camera, 0)) % CAMERA_COLOURS.size()];
}

QVector3D toPoint(const qxCVector3d& v) {
    return {v.x, v.y, v.z};
}

QVector3D toPoint(const CViewCamera::Vector& v) {
    return {static_cast<float>(v[0]), static_cast<float>(v[1]), static_cast<float>(v[2])};
}

/// One film over one ground. Lives for one drawing.
class CFilmMarker {
public:
    CFilmMarker(CFilm& film, const HeightField& ground)
        : m_movie(film.movie()), m_ground(ground), m_width(std::max(ground.gridDim, 1)) {}

    void addPath();
    void addKeyframes();
    void addHeights();
    void addPlace(const CPlace& place);
    void addCurrent();
    FilmMarks take() { return std::move(m_marks); }

private:
    MoviePose poseOf(int frame) const { return m_movie.poseAt(m_movie.convertFrameToTime(frame)); }
    void addLine(const QVector3D& from, const QVector3D& to, const FilmColour& colour);
    /// A pyramid that opens towards what the camera sees, with a roof on its upper side.
    void addCamera(const MoviePose& pose, double size, const FilmColour& colour);
    void addHeight(int frame, bool isKey);
    QString nameOf(int camera) const;
    QVector3D below(const QVector3D& point) const;

    CMemoryMovie& m_movie;
    const HeightField& m_ground;
    double m_width;
    FilmMarks m_marks;
};

void CFilmMarker::addLine(const QVector3D& from, const QVector3D& to, const FilmColour& colour) {
    m_marks.lines.push_back({from, to, colour});
}

void CFilmMarker::addPath() {
    const int frames = m_movie.getNumFrames();
    const int stride = frames / MOST_SAMPLES + 1;
    MoviePose before = poseOf(0);
    qxMovieFrameMode mode = m_movie.getFrame(0)->frameMode;
    for (int frame = 1; frame < frames; ++frame) {
        const bool isKey = m_movie.getFrame(frame)->keyframe;
        if (!isKey && frame % stride != 0) {
            continue;
        }
        const MoviePose pose = poseOf(frame);
        const bool isCut = (isKey && mode == qxMovieFrameSwitch) || pose.camera != before.camera;
        if (!isCut && pose.position != before.position) {
            addLine(toPoint(before.position), toPoint(pose.position), colourOf(before.camera));
        }
        mode = isKey ? m_movie.getFrame(frame)->frameMode : mode;
        before = pose;
    }
}

void CFilmMarker::addKeyframes() {
    int lastCamera = -1;
    for (int frame = 0; frame < m_movie.getNumFrames(); ++frame) {
        if (!m_movie.getFrame(frame)->keyframe) {
            continue;
        }
        const MoviePose pose = poseOf(frame);
        addCamera(pose, CAMERA_SIZE * m_width, colourOf(pose.camera));
        const QString number = QString::number(frame);
        const bool isNamed = pose.camera != lastCamera;
        m_marks.labels.push_back({toPoint(pose.position),
                                  isNamed ? QString("%1  %2").arg(nameOf(pose.camera), number) : number,
                                  colourOf(pose.camera)});
        lastCamera = pose.camera;
    }
}

void CFilmMarker::addHeights() {
    const int second = std::max(1, static_cast<int>(std::lround(m_movie.getStepRate())));
    const int stride = std::max(second, m_movie.getNumFrames() / MOST_SAMPLES + 1);
    for (int frame = 0; frame < m_movie.getNumFrames(); ++frame) {
        const bool isKey = m_movie.getFrame(frame)->keyframe;
        if (isKey || frame % stride == 0) {
            addHeight(frame, isKey);
        }
    }
}

void CFilmMarker::addHeight(int frame, bool isKey) {
    const QVector3D point = toPoint(poseOf(frame).position);
    const QVector3D foot = below(point);
    addLine(point, foot, HEIGHT_COLOUR);
    if (isKey) {
        const double units = (point.y() - foot.y()) / m_ground.heightScale;
        m_marks.labels.push_back({foot, QString("%1 high").arg(units, 0, 'f', 0), HEIGHT_COLOUR});
    }
}

QVector3D CFilmMarker::below(const QVector3D& point) const {
    return {point.x(), static_cast<float>(groundHeight(m_ground, point.x(), point.z())), point.z()};
}

void CFilmMarker::addPlace(const CPlace& place) {
    const auto half = static_cast<float>(PLACE_HEIGHT * m_width / 4.0);
    const QVector3D foot = toPoint(place.position);
    const QVector3D top = foot + QVector3D(0.0F, 4.0F * half, 0.0F);
    const QVector3D flag = top - QVector3D(0.0F, half, 0.0F) + QVector3D(1.5F * half, 0.0F, 0.0F);
    addLine(foot, top, PLACE_COLOUR);
    addLine(top, flag, PLACE_COLOUR);
    addLine(flag, top - QVector3D(0.0F, 2.0F * half, 0.0F), PLACE_COLOUR);
    m_marks.labels.push_back({top, QString::fromUtf8(place.name.getString()), PLACE_COLOUR});
}

void CFilmMarker::addCurrent() {
    const MoviePose& pose = m_movie.getPose();
    addCamera(pose, CURRENT_SIZE * m_width, CURRENT_COLOUR);
    m_marks.labels.push_back({toPoint(pose.position), nameOf(pose.camera), CURRENT_COLOUR});
}

QString CFilmMarker::nameOf(int camera) const {
    const qxCNode* const node = m_movie.getChildNode(camera);
    return node != nullptr ? QString::fromUtf8(node->name.getString()) : QString();
}

void CFilmMarker::addCamera(const MoviePose& pose, double size, const FilmColour& colour) {
    CViewCamera eye;
    lookThrough(eye, pose.position, pose.rotation, pose.fieldOfView, m_width);
    const QVector3D apex = toPoint(pose.position);
    // Every picture has the same area, so that a narrow one is long and a wide one short.
    const double tangent = std::clamp(eye.tanHalfFov(), 0.05, 4.0);
    const auto halfHeight = static_cast<float>(size * std::sqrt(tangent) / 2.0);
    const QVector3D ahead = toPoint(eye.forward()) * halfHeight / static_cast<float>(tangent);
    const QVector3D side = toPoint(eye.right()) * halfHeight * static_cast<float>(PICTURE_ASPECT);
    const QVector3D up = toPoint(eye.up()) * halfHeight;
    const std::array<QVector3D, 4> corners{apex + ahead - side - up, apex + ahead + side - up,
                                           apex + ahead + side + up, apex + ahead - side + up};
    for (std::size_t i = 0; i < corners.size(); ++i) {
        addLine(apex, corners[i], colour);
        addLine(corners[i], corners[(i + 1) % corners.size()], colour);
    }
    const QVector3D roof = apex + ahead + up * 1.5F;
    addLine(apex + ahead + up - side * 0.4F, roof, colour);
    addLine(roof, apex + ahead + up + side * 0.4F, colour);
}

} // namespace

FilmMarks markFilm(CFilm& film, const HeightField& ground) {
    CFilmMarker marker(film, ground);
    if ((film.movie().flags & qxMovieShowHeights) != 0) {
        marker.addHeights();
    }
    if ((film.movie().flags & qxMovieShowPath) != 0) {
        marker.addPath();
        marker.addKeyframes();
    }
    for (const std::unique_ptr<CPlace>& place : film.places()) {
        marker.addPlace(*place);
    }
    return marker.take();
}

FilmMarks markCurrent(CFilm& film, const HeightField& ground) {
    CFilmMarker marker(film, ground);
    marker.addCurrent();
    return marker.take();
}
