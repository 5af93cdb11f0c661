#pragma once

#include "sandbox/film/film.h"

#include <QElapsedTimer>
#include <QTimer>

/// Drives the film while its editor is open, as a host does once a frame: the movie goes on by the time that
/// has passed, and the sounds are served.
class CFilmPlayer : public QObject {
    Q_OBJECT

public:
    explicit CFilmPlayer(QObject* parent);

    /// Drive this film, or none any more; it must outlive its stay here.
    void setFilm(CFilm* film);

signals:
    /// The film may stand elsewhere now.
    void advanced();
    /// The film has reached a frame that starts this animation.
    void animationTriggered(const QString& name);

private:
    void tick();

    CFilm* m_pFilm = nullptr;
    QTimer m_timer;
    QElapsedTimer m_sinceTick;
};
