#include "sandbox/view/map_view.h"

#include "engine/memory/memory_scene.h"
#include "sandbox/view/gl_functions.h"

#include <QMouseEvent>
#include <QOpenGLContext>
#include <QPainter>
#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <ranges>

namespace {

constexpr double TURN_PER_PIXEL = 0.0055; // radians
constexpr double ZOOM_PER_STEP = 0.85;
constexpr double SPEED_PER_STEP = 1.25;
constexpr double FIRST_SPEED = 0.15;     // of the map's width a second
constexpr double EYE_CLEARANCE = 1.0;    // world units above the ground
constexpr double LONGEST_PAUSE = 0.1;    // seconds of flight that one picture may cover
constexpr double LONGEST_INTERVAL = 0.5; // seconds between pictures of one movement
constexpr double WHEEL_STEP = 120.0;     // eighths of a degree

/// Detail records are edited in place without a count, so their values take part in the map's state.
std::uint64_t foldDetails(std::uint64_t state, const CDetailList& details) {
    constexpr std::uint64_t PRIME = 1099511628211ULL; // FNV-1a
    for (int i = 0; i < details.size(); ++i) {
        const qxCMapDetailRecord& detail = details[i];
        for (const qxCVector3d& point : {detail.point0, detail.point1, detail.point2}) {
            for (const float value : {point.x, point.y, point.z}) {
                state = (state ^ std::bit_cast<std::uint32_t>(value)) * PRIME;
            }
        }
        state = (state ^ detail.highlighted) * PRIME;
    }
    return state;
}

bool isRound(const QMouseEvent& event) {
    return event.button() == Qt::MiddleButton ||
           (event.button() == Qt::LeftButton && event.modifiers().testFlag(Qt::AltModifier));
}

} // namespace

CMapView::CMapView(QWidget* parent) : QOpenGLWidget(parent) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(320, 240);
    setObjectName("map-view");
    setAccessibleName(tr("3D view of the map"));
}

CMapView::~CMapView() {
    releaseGl();
}

void CMapView::releaseGl() {
    if (context() == nullptr) {
        return;
    }
    makeCurrent();
    m_renderer.destroy();
    m_filmOverlay.destroy();
    doneCurrent();
}

void CMapView::setMap(CMemoryMap* map, CFilm* film) {
    m_strokes.end();
    m_pMap = map;
    if (context() != nullptr) {
        makeCurrent();
        m_renderer.setMap(map, film);
        doneCurrent();
    } else {
        m_renderer.setMap(map, film);
    }
    resetCamera();
}

void CMapView::setFilm(CFilm* film) {
    m_pilot.setFilm(film);
    m_filmOverlay.setFilm(film);
    update();
}

CViewCamera& CMapView::handCamera() {
    return m_pilot.isLooking() ? m_pilot.camera(m_camera.farDistance()) : m_camera;
}

CViewCamera CMapView::pictureCamera() const {
    return m_pilot.isLooking() ? m_pilot.pictureCamera(m_camera.farDistance()) : m_camera;
}

void CMapView::resetCamera() {
    if (m_pMap == nullptr) {
        return;
    }
    const double width = m_pMap->getGridDim();
    m_camera.frameMap(width, groundHeight(heightFieldOf(*m_pMap), width / 2.0, width / 2.0));
    m_fSpeed = std::max(width * FIRST_SPEED, 1.0);
    update();
}

void CMapView::setOptions(const ViewOptions& options) {
    m_options = options;
    update();
}

void CMapView::lookFrom(const CViewCamera::Vector& eye, const CViewCamera::Vector& target) {
    m_camera.lookFrom(eye, target);
    settleCamera(m_camera);
}

void CMapView::frame(const CViewCamera::Vector& centre, double radius) {
    if (!mayMoveCamera()) {
        return;
    }
    CViewCamera& camera = handCamera();
    const CViewCamera::Vector ahead = camera.forward();
    const double distance = radius / std::sin(std::atan(camera.tanHalfFov()));
    camera.lookFrom(
        {centre[0] - ahead[0] * distance, centre[1] - ahead[1] * distance, centre[2] - ahead[2] * distance},
        centre);
    settleCamera(camera);
    settleFilm();
}

void CMapView::initializeGL() {
    if (glFunctions() == nullptr) {
        qFatal("the view needs OpenGL 3.3");
    }
    m_renderer.create();
    m_filmOverlay.create();
}

void CMapView::paintGL() {
    measureFrameRate();
    flyOn();
    m_nDrawnState = mapState();
    const CViewCamera camera = pictureCamera();
    m_renderer.draw(camera, size() * devicePixelRatio(), devicePixelRatio(), m_options,
                    m_strokes.isStroking());
    if (m_pilot.film() != nullptr && m_pMap != nullptr) {
        drawFilm(camera);
    }
    if (m_flyKeys.isMoving()) {
        update();
    }
}

void CMapView::drawFilm(const CViewCamera& camera) {
    if (m_pilot.isLooking()) {
        QPainter(this).fillRect(rect(), m_pilot.fade());
        return;
    }
    m_filmOverlay.draw(heightFieldOf(*m_pMap), m_pMap->getChangeCount(MapChange::HEIGHTS),
                       camera.viewProjection(aspect()), size() * devicePixelRatio(), devicePixelRatio());
    drawLabels();
}

/// The newest first, so that the camera where the film stands keeps its name; what would cover another label
/// is left out.
void CMapView::drawLabels() {
    constexpr QPoint OFFSET(8, -6); // from the thing itself
    QPainter painter(this);
    QRegion taken;
    for (const FilmLabel& label : m_filmOverlay.labels() | std::views::reverse) {
        const std::optional<QPointF> place = project(label.place);
        if (!place || !QRectF(rect()).contains(*place)) {
            continue;
        }
        QRect room = painter.fontMetrics().boundingRect(label.text);
        room.translate(place->toPoint() + OFFSET);
        room.adjust(-3, -1, 3, 1);
        if (label.text.isEmpty() || taken.intersects(room)) {
            continue;
        }
        taken += room;
        painter.fillRect(room, QColor(0, 0, 0, 130));
        painter.setPen(QColor(label.colour[0], label.colour[1], label.colour[2]));
        painter.drawText(room, Qt::AlignCenter, label.text);
    }
}

void CMapView::measureFrameRate() {
    const double seconds =
        m_sinceDrawn.isValid() ? static_cast<double>(m_sinceDrawn.nsecsElapsed()) * 1e-9 : 0.0;
    m_sinceDrawn.start();
    if (seconds > 0.0 && seconds < LONGEST_INTERVAL) { // a longer one was rest, not work
        emit frameRateMeasured(1.0 / seconds);
    }
}

void CMapView::flyOn() {
    if (!m_flyKeys.isMoving() || !mayMoveCamera()) {
        return;
    }
    const double seconds =
        m_sinceFlown.isValid() ? static_cast<double>(m_sinceFlown.nsecsElapsed()) * 1e-9 : 0.0;
    m_sinceFlown.start();
    CViewCamera& camera = handCamera();
    m_flyKeys.advance(camera, std::min(seconds, LONGEST_PAUSE), m_fSpeed);
    settleCamera(camera);
}

void CMapView::settleCamera(CViewCamera& camera) {
    if (m_pMap != nullptr) {
        const CViewCamera::Vector& eye = camera.eye();
        camera.keepAbove(groundHeight(heightFieldOf(*m_pMap), eye[0], eye[2]) + EYE_CLEARANCE);
    }
    if (&camera != &m_camera) {
        m_pilot.moved();
    }
    update();
}

void CMapView::settleFilm() {
    if (m_drag == DragKind::NONE && !m_flyKeys.isMoving()) {
        m_pilot.finish();
    }
}

std::uint64_t CMapView::mapState() const {
    if (m_pMap == nullptr) {
        return 0;
    }
    // Each count only ever grows, so the sum changes whenever one of them does.
    std::uint64_t state = 0;
    for (const MapChange kind :
         {MapChange::HEIGHTS, MapChange::SURFACE, MapChange::MARKERS, MapChange::DETAILS, MapChange::TEXTURES,
          MapChange::MATERIAL, MapChange::EDIT_CURSORS}) {
        state += m_pMap->getChangeCount(kind);
    }
    const qxCScene* scene = m_pMap->getScene();
    const bool foggy = scene != nullptr && scene->getFogMode() == qxFogModeOn;
    return foldDetails(state * 2 + (foggy ? 1 : 0), m_pMap->getDetails()) ^ m_pilot.state();
}

void CMapView::noticeChanges() {
    const bool better = m_renderer.wantsAnotherPicture() && !m_strokes.isStroking();
    if (better || mapState() != m_nDrawnState) {
        update();
    }
}

double CMapView::aspect() const {
    return static_cast<double>(width()) / std::max(height(), 1);
}

std::optional<TerrainHit> CMapView::pick(QPointF position) const {
    if (m_pMap == nullptr) {
        return std::nullopt;
    }
    const double viewX = position.x() / std::max(width(), 1) * 2.0 - 1.0;
    const double viewY = 1.0 - position.y() / std::max(height(), 1) * 2.0;
    return pickTerrain(heightFieldOf(*m_pMap), pictureCamera().ray(viewX, viewY, aspect()));
}

std::optional<QPointF> CMapView::project(const QVector3D& place) const {
    const QVector4D clip = pictureCamera().viewProjection(aspect()) * QVector4D(place, 1.0F);
    if (!(clip.w() > 0.0F)) {
        return std::nullopt;
    }
    return QPointF((clip.x() / clip.w() + 1.0F) * 0.5F * static_cast<float>(width()),
                   (1.0F - clip.y() / clip.w()) * 0.5F * static_cast<float>(height()));
}

CMapView::DragKind CMapView::dragFor(const QMouseEvent& event) const {
    if (isRound(event)) {
        return DragKind::ORBIT;
    }
    if (event.button() == Qt::RightButton) {
        return m_cameraMode == CameraMode::FLY ? DragKind::LOOK : DragKind::ORBIT;
    }
    return event.button() == Qt::LeftButton ? DragKind::STROKE : DragKind::NONE;
}

void CMapView::mousePressEvent(QMouseEvent* event) {
    if (m_drag != DragKind::NONE || m_pMap == nullptr) {
        return; // one drag at a time; other buttons wait
    }
    m_lastPosition = event->position();
    m_drag = dragFor(*event);
    if (m_drag == DragKind::STROKE && !toolkitCalls().isEditorActive()) {
        m_drag = DragKind::ORBIT;
    }
    if (m_drag == DragKind::STROKE) {
        const auto hit = pick(event->position());
        if (!m_strokes.press(hit, static_cast<int>(event->position().y()))) {
            m_drag = DragKind::NONE;
        }
    } else if (m_drag == DragKind::ORBIT) {
        CViewCamera& camera = handCamera();
        if (const auto centre = pickTerrain(heightFieldOf(*m_pMap), camera.ray(0.0, 0.0, aspect()))) {
            camera.setPivotDistance(centre->distance);
        }
    }
    noticeChanges();
}

void CMapView::mouseMoveEvent(QMouseEvent* event) {
    const auto hit = pick(event->position());
    if (m_drag == DragKind::NONE || m_drag == DragKind::STROKE) {
        m_strokes.move(hit, static_cast<int>(event->position().y()));
        if (!hit.has_value()) {
            hideCursor();
        }
    } else {
        turnCamera(event->position() - m_lastPosition);
    }
    m_lastPosition = event->position();
    emit pointerMoved(hit);
    noticeChanges();
}

void CMapView::turnCamera(QPointF way) {
    if (!mayMoveCamera()) {
        return;
    }
    CViewCamera& camera = handCamera();
    if (m_drag == DragKind::LOOK) {
        camera.look(way.x() * TURN_PER_PIXEL, -way.y() * TURN_PER_PIXEL);
    } else {
        camera.orbit(way.x() * TURN_PER_PIXEL, -way.y() * TURN_PER_PIXEL);
    }
    settleCamera(camera);
}

void CMapView::mouseReleaseEvent(QMouseEvent* event) {
    const bool endsStroke = m_drag == DragKind::STROKE && event->button() == Qt::LeftButton;
    if (m_drag == DragKind::STROKE && !endsStroke) {
        return;
    }
    if (endsStroke) {
        m_strokes.release(pick(event->position()), static_cast<int>(event->position().y()));
    }
    m_drag = DragKind::NONE;
    settleFilm();
    noticeChanges();
}

void CMapView::wheelEvent(QWheelEvent* event) {
    const double steps = event->angleDelta().y() / WHEEL_STEP;
    if (m_drag == DragKind::LOOK) {
        m_fSpeed = std::clamp(m_fSpeed * std::pow(SPEED_PER_STEP, steps), 1.0, m_camera.farDistance());
    } else if (m_drag != DragKind::STROKE && mayMoveCamera()) {
        const double factor = std::pow(ZOOM_PER_STEP, steps);
        CViewCamera& camera = handCamera();
        if (const auto hit = pick(event->position())) {
            camera.approachPoint(hit->point, factor);
        } else {
            camera.approach(factor);
        }
        settleCamera(camera);
        settleFilm();
    }
    event->accept();
}

void CMapView::keyPressEvent(QKeyEvent* event) {
    const bool others = event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    if (others || !m_flyKeys.press(event->key())) {
        QOpenGLWidget::keyPressEvent(event);
        return;
    }
    if (!event->isAutoRepeat()) {
        m_sinceFlown.start();
        update();
    }
}

void CMapView::keyReleaseEvent(QKeyEvent* event) {
    if (event->isAutoRepeat() || !m_flyKeys.release(event->key())) {
        QOpenGLWidget::keyReleaseEvent(event);
        return;
    }
    settleFilm();
}

void CMapView::focusOutEvent(QFocusEvent* event) {
    m_flyKeys.clear(); // their release will not be seen any more
    settleFilm();
    QOpenGLWidget::focusOutEvent(event);
}

void CMapView::hideCursor() {
    if (m_pMap != nullptr && !m_strokes.isStroking() && !m_pMap->getEditCursors().empty()) {
        m_pMap->clearEditCursors();
    }
}

void CMapView::leaveEvent(QEvent* event) {
    hideCursor();
    emit pointerMoved(std::nullopt);
    QOpenGLWidget::leaveEvent(event);
}
