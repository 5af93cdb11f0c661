#include "engine/memory/movie/memory_movie.h"

#include <algorithm>
#include <cmath>

namespace {

/// Times are sums of the host's frames; a frame counts as reached this small share of a frame early.
constexpr double EARLY = 1e-6;

} // namespace

bool CMemoryMovie::isPlaying() const {
    return animator.getMode() == qxAnimatorPlaying && (flags & qxMovieStopped) == 0;
}

void CMemoryMovie::setTriggerHandler(std::function<void(const char*)> handler) {
    m_triggerHandler = std::move(handler);
}

void CMemoryMovie::resetAnimTriggers() {
    m_fired.clear();
}

MovieSection CMemoryMovie::playedSection() const {
    const MovieSection asked = m_section.value_or(MovieSection{0, lastFrame()});
    const int one = std::clamp(asked.first, 0, lastFrame());
    const int other = std::clamp(asked.last, 0, lastFrame());
    return {std::min(one, other), std::max(one, other)};
}

void CMemoryMovie::play() {
    const MovieSection section = playedSection();
    const bool isInside = section.first <= m_nRangeStart && m_nRangeStart < section.last;
    const int start = isInside ? m_nRangeStart : section.first;
    const unsigned playing = m_playhead.playings + 1;
    const double begin = start / static_cast<double>(m_fStepRate);
    m_playhead = Playhead{begin + m_playhead.carried, 0.0, begin, true, -1, start, playing};
    animator.setMode(qxAnimatorPlaying);
}

void CMemoryMovie::advance(double seconds) {
    if (!isPlaying()) {
        return;
    }
    if (seconds > 0.0 && std::isfinite(seconds)) {
        m_playhead.time += seconds;
    }
    const std::weak_ptr<int> alive = m_alive;
    const unsigned playing = m_playhead.playings;
    runPlayhead(alive);
    // What was left when the movie ended belongs to the round that began then, so that rounds keep their
    // length.
    if (!alive.expired() && m_playhead.playings != playing && isPlaying()) {
        runPlayhead(alive);
    }
}

bool CMemoryMovie::stillPlaying(unsigned playing) const {
    return m_playhead.playings == playing && isPlaying();
}

void CMemoryMovie::runPlayhead(const std::weak_ptr<int>& alive) {
    const unsigned playing = m_playhead.playings;
    const MovieSection section = playedSection();
    const double end = (section.last + 1) / static_cast<double>(m_fStepRate);
    const double now = std::min(m_playhead.time, end);
    const double reached = std::floor(now * m_fStepRate + EARLY);
    const int frame = std::clamp(static_cast<int>(std::max(reached, 0.0)), section.first, section.last);
    applyPose(now);
    const double lastCue = end - 2.0 * EARLY / m_fStepRate; // a sound that starts with the end is not begun
    if (!raiseCues(std::min(now, lastCue), alive) || !fireTriggers(frame, alive)) {
        return;
    }
    if (frame != m_playhead.frameReported) {
        m_playhead.frameReported = frame;
        if (const Callback callback = getCallback()) {
            callback(qxMovieFrameReached, nullptr, frame);
        }
    }
    if (!alive.expired() && stillPlaying(playing) &&
        m_playhead.time * m_fStepRate + EARLY >= section.last + 1) {
        reachEnd(end, alive);
    }
}

const qxCMovieSound* CMemoryMovie::nextCue(double upTo, int& lastIndex, double& lastStart) const {
    const qxCMovieSound* due = nullptr;
    int dueIndex = -1;
    for (int index = 0; index < getSoundtrackSize(); ++index) {
        const qxCMovieSound& sound = *m_sounds[static_cast<std::size_t>(index)];
        const bool isRaised = sound.start < lastStart || (sound.start == lastStart && index <= lastIndex);
        if (!isRaised && sound.start <= upTo && (due == nullptr || sound.start < due->start)) {
            due = &sound;
            dueIndex = index;
        }
    }
    if (due != nullptr) {
        lastIndex = dueIndex;
        lastStart = due->start;
    }
    return due;
}

bool CMemoryMovie::raiseCues(double upTo, const std::weak_ptr<int>& alive) {
    const unsigned playing = m_playhead.playings;
    // A start is a float and may lie a hair to either side of its frame.
    const double early = EARLY / m_fStepRate;
    double lastStart = m_playhead.cuesRaised - (m_playhead.fresh ? 2.0 * early : 0.0);
    int lastIndex = m_playhead.fresh ? -1 : getSoundtrackSize();
    m_playhead.cuesRaised = upTo + early;
    m_playhead.fresh = false;
    while (const qxCMovieSound* const sound = nextCue(upTo + early, lastIndex, lastStart)) {
        if (const Callback callback = getCallback()) {
            callback(qxMovieSoundCue, sound->name, 0);
        }
        if (alive.expired() || !stillPlaying(playing)) {
            return false;
        }
    }
    return true;
}

bool CMemoryMovie::fireTriggers(int upTo, const std::weak_ptr<int>& alive) {
    const unsigned playing = m_playhead.playings;
    while (m_playhead.nextTrigger <= std::min(upTo, lastFrame())) {
        const qxCMovieFrame& frame = *m_frames[static_cast<std::size_t>(m_playhead.nextTrigger)];
        ++m_playhead.nextTrigger;
        if (frame.animTrigger[0] != 0 && m_fired.insert(&frame).second && m_triggerHandler) {
            const std::function<void(const char*)> handler = m_triggerHandler; // it may be replaced meanwhile
            handler(std::string(frame.animTrigger).c_str());
        }
        if (alive.expired() || !stillPlaying(playing)) {
            return false;
        }
    }
    return true;
}

void CMemoryMovie::reachEnd(double end, const std::weak_ptr<int>& alive) {
    const MovieSection section = playedSection();
    const double length = (section.last + 1 - section.first) / static_cast<double>(m_fStepRate);
    m_playhead.carried = std::max(0.0, std::fmod(m_playhead.time - end, length));
    animator.setMode(qxAnimatorStopped);
    if (const qxCAnimator::Callback callback = qxCAnimator::getCallback()) {
        callback(qxAnimatorEnded, callbackData);
    }
    if (!alive.expired()) {
        m_playhead.carried = 0.0;
    }
}
