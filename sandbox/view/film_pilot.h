#pragma once

#include "sandbox/core/view_camera.h"
#include "sandbox/film/film.h"

#include <QColor>

/// The toolkit's call that a film's camera needs; a table for the sake of tests, as EditorCalls.
struct FilmCalls {
    void (*cameraAltered)(qxCCamera* camera, bool finished);
};

/// The exports of the toolkit itself.
const FilmCalls& toolkitFilmCalls();

/// Looks through the camera of a film and flies it: what the person does with the view's camera is done to
/// the film's and reported to the movie editor, move by move and at the end. Knows no window.
class CFilmPilot {
public:
    explicit CFilmPilot(const FilmCalls& calls);

    /// The film that is edited, null for none; it must outlive its stay here. A move under way is dropped.
    void setFilm(CFilm* film);
    CFilm* film() const { return m_pFilm; }
    /// The scene is shown through the film, and there is a camera that it drives.
    bool isLooking() const;
    /// The film's camera can be moved: it does not while the film plays, which moves it itself.
    bool mayMove() const;

    /// The film's camera as it stands, to be moved. `farDistance` is the range of depths that are drawn. Only
    /// while isLooking().
    CViewCamera& camera(double farDistance);
    /// The camera as the picture shows it: it trembles where the film says so and no hand is on it.
    CViewCamera pictureCamera(double farDistance) const;
    /// What lies over the picture: the fade's colour, as opaque as it is strong, or fully transparent.
    QColor fade() const;

    /// camera() was moved.
    void moved();
    /// It was moved, and the hand has not let go.
    bool isMoving() const { return m_bMoving; }
    /// The hand has let go; without a move before nothing happens.
    void finish();

    /// Changes whenever the film would be drawn differently.
    std::uint64_t state() const;

private:
    const FilmCalls& m_calls;
    CFilm* m_pFilm = nullptr;
    CViewCamera m_camera;
    bool m_bMoving = false;
};
