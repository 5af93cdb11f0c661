#include "sandbox/app/film_player.h"

#include "host/veskutil.h"

namespace {

constexpr int PERIOD = 16;           // milliseconds, about that of a screen
constexpr double LONGEST_STEP = 0.5; // seconds; a host that was held up does not leap through the film

} // namespace

CFilmPlayer::CFilmPlayer(QObject* parent) : QObject(parent) {
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &CFilmPlayer::tick);
}

void CFilmPlayer::setFilm(CFilm* film) {
    if (m_pFilm != nullptr) {
        m_pFilm->movie().setTriggerHandler({});
    }
    m_pFilm = film;
    if (film == nullptr) {
        m_timer.stop();
        return;
    }
    film->movie().setTriggerHandler(
        [this](const char* name) { emit animationTriggered(QString::fromUtf8(name)); });
    m_sinceTick.start();
    m_timer.start(PERIOD);
}

void CFilmPlayer::tick() {
    const double seconds = static_cast<double>(m_sinceTick.nsecsElapsed()) * 1e-9;
    m_sinceTick.start();
    if (m_pFilm->movie().isPlaying()) {
        m_pFilm->movie().advance(std::min(seconds, LONGEST_STEP));
        emit advanced();
    }
    vuSoundUpdate();
}
