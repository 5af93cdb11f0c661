#pragma once

#include "engine/memory/memory_scene.h"
#include "engine/memory/movie/memory_movie.h"
#include "sandbox/film/figure.h"
#include "sandbox/film/place.h"

#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

/// What a scene holds for its film: the movie with its cameras, the places that cameras can be aimed at, and
/// the camera through which the person looks. Owned by the document; goes before the scene.
class CFilm {
public:
    static constexpr const char* VIEW_CAMERA = "Vesk Camera";
    static constexpr const char* FIRST_CAMERA = "Camera 1";
    static constexpr int FIRST_FRAMES = 250;

    /// A film with one camera and `frames` frames, all of them looking as `pose` does, in this scene, which
    /// outlives it.
    CFilm(CMemoryScene& scene, int frames, const qxCMovieFrame& pose);
    /// A film of these frames without cameras or places.
    CFilm(CMemoryScene& scene, int frames, float stepRate);
    ~CFilm();
    CFilm(const CFilm&) = delete;
    CFilm& operator=(const CFilm&) = delete;

    CMemoryMovie& movie() { return m_movie; }
    const CMemoryMovie& movie() const { return m_movie; }
    CMemoryScene& scene() { return m_scene; }

    /// Show the scene as the person looks at it, not through the film.
    void selectViewCamera() { m_scene.selectCamera(&m_viewCamera); }
    /// The scene is shown through the film.
    bool isLookedThrough() const;
    /// The camera that the film drives where it stands now; null without one.
    CMemoryCamera* drivenCamera();

    const std::vector<std::unique_ptr<CPlace>>& places() const { return m_places; }
    /// Append a place. Names are not compared: see whyNoName.
    void addPlace(const QString& name, const qxCVector3d& position);
    /// The frames that are aimed at it go along.
    void renamePlace(std::size_t index, const QString& name);
    void movePlace(std::size_t index, const qxCVector3d& position);
    void removePlace(std::size_t index);
    /// The things that its triggers set going. They are the scene's furniture; the person does not edit them.
    const std::vector<FilmFigure>& figures() const { return m_figures; }
    void setFigures(std::vector<FilmFigure> figures) { m_figures = std::move(figures); }
    /// Seconds of the film that the picture shows: those of the playing position or of the current frame.
    double shownTime() const;

    /// Why a place or a camera cannot be called so, as a sentence; empty when it can. A target is looked for
    /// by its name alone, so every name stands once.
    QString whyNoName(const QString& name) const;
    /// "Place 3": a name that is not taken, from the first number on.
    QString freeName(const QString& kind) const;

    /// Counts every change of what a project keeps but the movie's flags and frames.
    unsigned placeChanges() const { return m_nPlaceChanges; }
    /// Which of path, heights and fades the movie shows, as bits of qxMovieFlag.
    std::uint32_t shown() const;
    /// Changes when anything else changed that a project keeps of the film.
    std::uint64_t contentState() const;
    /// Changes with either.
    std::uint64_t state() const;

private:
    QStringList names() const;

    CMemoryScene& m_scene;
    CMemoryCamera m_viewCamera;
    CMemoryMovie m_movie;
    std::vector<std::unique_ptr<CPlace>> m_places;
    std::vector<FilmFigure> m_figures;
    unsigned m_nPlaceChanges = 0;
};
