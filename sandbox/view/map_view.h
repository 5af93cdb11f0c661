#pragma once

#include "sandbox/view/film_overlay.h"
#include "sandbox/view/film_pilot.h"
#include "sandbox/view/fly_keys.h"
#include "sandbox/view/stroke_controller.h"
#include "sandbox/view/terrain_renderer.h"

#include <QElapsedTimer>
#include <QOpenGLWidget>

/// The 3D view of the map: draws it, moves the camera, and hands strokes and the hovering pointer to the map
/// editor while it is open. While a film is edited it shows that in the landscape, or the landscape through
/// the film, whose camera the hand then moves; the person's own camera stays where it was. Draws only when
/// something changed.
class CMapView : public QOpenGLWidget {
    Q_OBJECT

public:
    enum class CameraMode { FLY, ORBIT };

    explicit CMapView(QWidget* parent = nullptr);
    ~CMapView() override;

    /// Show this map with the figures of its film, or none, from the first camera position. Both must outlive
    /// their stay here.
    void setMap(CMemoryMap* map, CFilm* film = nullptr);
    /// The film that is being edited, or none. It must outlive its stay here.
    void setFilm(CFilm* film);
    /// Draw again if the map changed since it was last drawn. To be called when the application is idle.
    void noticeChanges();
    void resetCamera();
    void setCameraMode(CameraMode mode) { m_cameraMode = mode; }
    CameraMode cameraMode() const { return m_cameraMode; }
    void setOptions(const ViewOptions& options);
    const ViewOptions& options() const { return m_options; }
    void setUnitsPerPixel(int units) { m_strokes.setUnitsPerPixel(units); }
    /// Whether a drag up counts as one down and the other way round.
    void turnDrag(bool turned) { m_strokes.turnDrag(turned); }
    /// The person's own camera, whether or not the picture is a film's.
    const CViewCamera& camera() const { return m_camera; }
    /// End the stroke that is being made where it is; the button that is held does nothing any more.
    void stopStroke() {
        m_strokes.end();
        m_drag = DragKind::NONE;
    }
    /// A stroke of the map editor is being made with the mouse.
    bool isStroking() { return m_strokes.isStroking(); }
    bool isFlyingFilm() const { return m_pilot.isMoving(); }
    /// Stand there and look so. World units.
    void lookFrom(const CViewCamera::Vector& eye, const CViewCamera::Vector& target);
    /// Look at a place from the side that it is seen from now, so near that a ball of `radius` around it is
    /// seen whole. World units. Nothing while a film's camera may not be moved.
    void frame(const CViewCamera::Vector& centre, double radius);
    /// What lies under a place of the view, in logical pixels.
    std::optional<TerrainHit> pick(QPointF position) const;
    /// Where a point of the world is drawn, in logical pixels; also off the view. Nothing for a point behind.
    std::optional<QPointF> project(const QVector3D& place) const;
    int triangleCount() const { return m_renderer.triangleCount(); }

signals:
    /// The pointer is over this place now, or over no ground.
    void pointerMoved(const std::optional<TerrainHit>& hit);
    /// Pictures a second while the view moves, measured from one picture to the next.
    void frameRateMeasured(double framesPerSecond);

protected:
    void initializeGL() override;
    void paintGL() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    enum class DragKind { NONE, STROKE, LOOK, ORBIT };

    DragKind dragFor(const QMouseEvent& event) const;
    /// What the hand moves: the person's camera or the film's.
    CViewCamera& handCamera();
    /// What the picture is seen with.
    CViewCamera pictureCamera() const;
    bool mayMoveCamera() const { return !m_pilot.isLooking() || m_pilot.mayMove(); }
    /// A move of the film's camera has ended if nothing goes on moving it.
    void settleFilm();
    void drawFilm(const CViewCamera& camera);
    void drawLabels();
    void turnCamera(QPointF way);
    /// Take the edit cursor off the ground when the pointer is on none and no stroke runs.
    void hideCursor();
    void flyOn();
    void measureFrameRate();
    void settleCamera(CViewCamera& camera);
    double aspect() const;
    std::uint64_t mapState() const;
    void releaseGl();

    CMemoryMap* m_pMap = nullptr;
    CTerrainRenderer m_renderer;
    CViewCamera m_camera;
    ViewOptions m_options;
    CStrokeController m_strokes{toolkitCalls()};
    CFlyKeys m_flyKeys;
    CFilmPilot m_pilot{toolkitFilmCalls()};
    CFilmOverlay m_filmOverlay;
    CameraMode m_cameraMode = CameraMode::FLY;
    DragKind m_drag = DragKind::NONE;
    QPointF m_lastPosition;
    double m_fSpeed = 1.0; // world units a second
    QElapsedTimer m_sinceFlown;
    QElapsedTimer m_sinceDrawn;
    std::uint64_t m_nDrawnState = 0;
};
