#include "movie/soundtrack.h"

#include "engine/qx_letter_case.h"
#include "engine/qx_movie.h"
#include "movie/soundtrack_file.h"
#include "sound/sound.h"
#include "sound/sound_manager.h"

#include <cmath>

namespace {

CSound* loadSound(const char* name) {
    return g_soundManager.loadSound(qxCName(name), 0);
}

/// Seconds of one step of the movie; 0 when its rate makes none.
double stepOf(const qxCMovie& movie) {
    const double rate = movie.getStepRate();
    return std::isfinite(rate) && rate > 0.0 ? 1.0 / rate : 0.0;
}

/// The first whole step after `end`: the middle of the next one, rounded to a step.
float nextStart(float end, double step) {
    if (step == 0.0) {
        return end;
    }
    constexpr double HALF = 0.5;
    const double steps = (double{end} + step * HALF) / step;
    const double whole = steps >= 0.0 ? std::trunc(steps + HALF) : -std::trunc(-steps + HALF);
    return static_cast<float>(whole * step);
}

float movieLength(const qxCMovie& movie) {
    return static_cast<float>(movie.getNumFrames() * stepOf(movie));
}

} // namespace

SoundtrackSound& CSoundtrack::findSoundtrackSound(const char* name) {
    std::unique_ptr<SoundtrackSound>& record = m_soundCache[foldCase(std::string_view(name))];
    if (record == nullptr) {
        record = std::make_unique<SoundtrackSound>(
            SoundtrackSound{name, loadSound(name), measureWaveLength(name)});
    }
    return *record;
}

void CSoundtrack::renewDevice() {
    const bool connected = g_soundManager.device() != nullptr && !g_soundManager.isDeviceLost();
    if (connected) {
        return;
    }
    const bool isRenewed = g_soundManager.create() == 0;
    for (const auto& [folded, record] : m_soundCache) { // the sounds of the old device went with it
        record->sound = isRenewed ? loadSound(record->name.c_str()) : nullptr;
    }
}

void CSoundtrack::layOutSoundtrack(qxCMovie& movie) {
    if (movie.getSoundtrackSize() > 0) { // asking the system for a device takes its time
        renewDevice();
    }
    const double step = stepOf(movie);
    float start = 0.0F;
    for (int i = 0; i < movie.getSoundtrackSize(); ++i) {
        qxCMovieSound* const entry = movie.getSound(i);
        if (entry == nullptr) {
            continue; // an engine that counts more than it has
        }
        entry->start = start;
        entry->length = findSoundtrackSound(entry->name).length;
        start = nextStart(start + entry->length, step);
    }
}

void CSoundtrack::playSoundCue(const char* name) const {
    constexpr float FULL_VOLUME = 1.0F;
    const auto found = m_soundCache.find(foldCase(std::string_view(name != nullptr ? name : "")));
    if (found != m_soundCache.end() && found->second->sound != nullptr) {
        found->second->sound->play(FULL_VOLUME);
    }
}

float soundtrackEnd(qxCMovie& movie) {
    for (int i = movie.getSoundtrackSize() - 1; i >= 0; --i) {
        if (const qxCMovieSound* const last = movie.getSound(i)) {
            return last->start + last->length;
        }
    }
    return 0.0F;
}

bool outlastsMovie(qxCMovie& movie) {
    return soundtrackEnd(movie) > movieLength(movie);
}

void extendToSoundtrack(qxCMovie& movie) {
    const bool hasSteps = stepOf(movie) > 0.0;
    for (int frames = movie.getNumFrames(); hasSteps && outlastsMovie(movie);) {
        movie.insertFrame(frames, nullptr);
        if (movie.getNumFrames() <= frames) {
            break;
        }
        frames = movie.getNumFrames();
    }
    qxCMovieFrame* const last = movie.getFrame(movie.getNumFrames() - 1);
    if (last != nullptr && !last->keyframe) {
        last->setKeyframe(true);
        last->hasChanged(); // not recorded here, and not to be taken for the next edit's doing
    }
    movie.updateTweening();
}
