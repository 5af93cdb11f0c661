#pragma once

#include "sandbox/film/film.h"

#include <QMainWindow>
#include <functional>
#include <optional>

/// The menu of what a film needs besides its editor: places for its cameras to look at, and cameras.
class CFilmMenu : public QObject {
    Q_OBJECT

public:
    /// `film` gives the film at hand.
    CFilmMenu(QMainWindow& window, std::function<CFilm&()> film);

    /// The point of the ground that the pointer was over last; none in a map just opened.
    void setPointed(std::optional<qxCVector3d> point) { m_pointed = point; }

signals:
    /// The film was changed.
    void changed();

private:
    void setPlace();
    void listPlaces();
    void addCamera();
    void setStepRate();
    /// Ask for a name that is free, until there is one. Empty when the person called it off.
    QString askName(const QString& title, const QString& kind);
    void tell(const QString& text);

    QMainWindow& m_window;
    std::function<CFilm&()> m_film;
    std::optional<qxCVector3d> m_pointed;
};
