#include "sandbox/app/film_player.h"

#include "host/veskutil.h"

#include <algorithm>

namespace {

constexpr int PLAYING_PERIOD = 16;   // milliseconds, about those of a screen
constexpr int RESTING_PERIOD = 50;   // until it is noticed that the panel has started the film
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
    m_timer.start(RESTING_PERIOD);
}

void CFilmPlayer::tick() {
    const double seconds = static_cast<double>(m_sinceTick.nsecsElapsed()) * 1e-9;
    m_sinceTick.start();
    const bool isPlaying = m_pFilm->movie().isPlaying();
    if (isPlaying) {
        const bool hasBegun = m_timer.interval() == PLAYING_PERIOD;
        m_pFilm->movie().advance(hasBegun ? std::min(seconds, LONGEST_STEP) : 0.0);
        emit advanced();
    }
    vuSoundUpdate();
    const int period = isPlaying ? PLAYING_PERIOD : RESTING_PERIOD;
    if (m_timer.isActive() && m_timer.interval() != period) {
        m_timer.setInterval(period);
    }
}
