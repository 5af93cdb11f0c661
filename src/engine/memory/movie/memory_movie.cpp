#include "engine/memory/movie/memory_movie.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t place(int index) {
    return static_cast<std::size_t>(index);
}

bool isStepRate(float framesPerSecond) {
    return framesPerSecond > 0.0F && std::isfinite(framesPerSecond);
}

} // namespace

CMemoryMovie::CMemoryMovie(qxCScene* scene, int frames, float stepRate)
    : m_pScene(scene), m_fStepRate(isStepRate(stepRate) ? stepRate : DEFAULT_STEP_RATE) {
    m_frames.resize(place(std::max(frames, 1)));
    for (std::unique_ptr<qxCMovieFrame>& frame : m_frames) {
        frame = std::make_unique<qxCMovieFrame>();
    }
    m_frames.front()->keyframe = true;
    m_frames.back()->keyframe = true;
    updateTweening();
}

CMemoryMovie::~CMemoryMovie() = default;

CMemoryCamera& CMemoryMovie::addCamera(const char* cameraName) {
    m_cameras.push_back(std::make_unique<CMemoryCamera>(m_pScene, cameraName));
    return *m_cameras.back();
}

void CMemoryMovie::removeLastCamera() {
    if (!m_cameras.empty()) {
        m_cameras.pop_back();
    }
}

void CMemoryMovie::setStepRate(float framesPerSecond) {
    if (isStepRate(framesPerSecond) && framesPerSecond != m_fStepRate) {
        m_fStepRate = framesPerSecond;
        ++m_nRevision;
    }
}

qxCScene* CMemoryMovie::getScene() const {
    return m_pScene;
}

int CMemoryMovie::getNumChildNodes() const {
    return static_cast<int>(m_cameras.size());
}

qxCNode* CMemoryMovie::getChildNode(int index) const {
    return index >= 0 && index < getNumChildNodes() ? m_cameras[place(index)].get() : nullptr;
}

qxCCamera* CMemoryMovie::getChildCamera(int index) {
    return index >= 0 && index < getNumChildNodes() ? m_cameras[place(index)].get() : nullptr;
}

bool CMemoryMovie::hasFrame(int index) const {
    return index >= 0 && index < getNumFrames();
}

int CMemoryMovie::getNumFrames() const {
    return static_cast<int>(m_frames.size());
}

qxCMovieFrame* CMemoryMovie::getFrame(int index) {
    return hasFrame(index) ? m_frames[place(index)].get() : nullptr;
}

int CMemoryMovie::getRangeStart() const {
    return m_nRangeStart;
}

int CMemoryMovie::getRangeEnd() const {
    return m_nRangeEnd;
}

void CMemoryMovie::setRangeStart(int frame) {
    m_nRangeStart = std::clamp(frame, 0, lastFrame());
    m_nRangeEnd = std::max(m_nRangeEnd, m_nRangeStart);
}

void CMemoryMovie::setRangeEnd(int frame) {
    m_nRangeEnd = std::clamp(frame, 0, lastFrame());
    m_nRangeStart = std::min(m_nRangeStart, m_nRangeEnd);
}

void CMemoryMovie::setRangeSingleFrame(int frame) {
    m_nRangeStart = m_nRangeEnd = std::clamp(frame, 0, lastFrame());
}

bool CMemoryMovie::isRangeSingleFrame() const {
    return m_nRangeStart == m_nRangeEnd;
}

bool CMemoryMovie::isInRange(int frame) const {
    return m_nRangeStart <= frame && frame <= m_nRangeEnd;
}

void CMemoryMovie::insertFrame(int index, qxCMovieFrame* frame) {
    std::unique_ptr<qxCMovieFrame> adopted(frame);
    if (index < 0 || index > getNumFrames()) {
        return;
    }
    if (frame == nullptr) {
        adopted = std::make_unique<qxCMovieFrame>(*m_frames[place(std::max(index - 1, 0))]);
        adopted->keyframe = false;
        adopted->animTrigger[0] = 0;
    }
    adopted->watch(this, index);
    keyframes(); // as they are before the insertion
    const auto from = std::ranges::lower_bound(m_keyframes, index);
    std::for_each(from, m_keyframes.end(), [](int& key) { ++key; });
    if (adopted->keyframe) {
        m_keyframes.insert(from, index);
    }
    m_frames.insert(m_frames.begin() + index, std::move(adopted));
    if (frame == nullptr) {
        tweenFrames(m_frames, m_keyframes, index, index);
    }
    m_nRangeEnd += index <= m_nRangeEnd ? 1 : 0;
    m_nRangeStart += index <= m_nRangeStart ? 1 : 0;
    frameOrderChanged();
}

void CMemoryMovie::frameOrderChanged() {
    m_bPlacesStale = true;
    m_bAllStale = true;
    ++m_nRevision;
}

void CMemoryMovie::eraseFrames(int first, int last) {
    if (!m_fired.empty()) {
        for (int index = first; index <= last; ++index) {
            m_fired.erase(m_frames[place(index)].get());
        }
    }
    m_frames.erase(m_frames.begin() + first, m_frames.begin() + last + 1);
    m_bKeyframesKnown = false;
    frameOrderChanged();
}

void CMemoryMovie::deleteFrame(int index) {
    if (!hasFrame(index) || getNumFrames() == 1) {
        return;
    }
    eraseFrames(index, index);
    m_nRangeEnd -= index <= m_nRangeEnd && (index < m_nRangeStart || !isRangeSingleFrame()) ? 1 : 0;
    m_nRangeStart -= index < m_nRangeStart ? 1 : 0;
    m_nRangeEnd = std::min(m_nRangeEnd, lastFrame());
    m_nRangeStart = std::min(m_nRangeStart, m_nRangeEnd);
}

void CMemoryMovie::deleteRange() {
    const bool takesAll = m_nRangeStart == 0 && m_nRangeEnd == lastFrame();
    const int first = takesAll ? 1 : m_nRangeStart;
    if (first <= m_nRangeEnd) {
        eraseFrames(first, m_nRangeEnd);
    }
    setRangeSingleFrame(m_nRangeStart);
}

void CMemoryMovie::duplicateFrame(int from, int to) {
    if (hasFrame(from) && hasFrame(to)) {
        *m_frames[place(to)] = *m_frames[place(from)];
    }
}

void CMemoryMovie::swapFrames(int one, int other) {
    if (hasFrame(one) && hasFrame(other) && one != other) {
        std::swap(m_frames[place(one)], m_frames[place(other)]);
        m_bKeyframesKnown = false;
        frameOrderChanged();
    }
}

void CMemoryMovie::copy() {
    m_clipboard.clear();
    m_clipboard.shrink_to_fit();
    m_clipboard.reserve(place(m_nRangeEnd - m_nRangeStart + 1));
    for (int index = m_nRangeStart; index <= m_nRangeEnd; ++index) {
        m_clipboard.push_back(*m_frames[place(index)]);
    }
}

void CMemoryMovie::cut() {
    copy();
    deleteRange();
}

void CMemoryMovie::paste(int index) {
    if (index < 0 || index > getNumFrames() || m_clipboard.empty()) {
        return;
    }
    MovieFrames pasted;
    for (const qxCMovieFrame& frame : m_clipboard) {
        pasted.push_back(std::make_unique<qxCMovieFrame>(frame));
        pasted.back()->watch(this, index);
    }
    m_frames.insert(m_frames.begin() + index, std::move_iterator(pasted.begin()),
                    std::move_iterator(pasted.end()));
    m_bKeyframesKnown = false;
    m_nRangeStart = index;
    m_nRangeEnd = index + static_cast<int>(pasted.size()) - 1;
    frameOrderChanged();
}

void CMemoryMovie::frameChanged(int place, bool keyframe) {
    ++m_nRevision;
    if (keyframe) {
        m_bKeyframesKnown = false;
        m_bAllStale = true;
    }
    if (!m_bAllStale && (m_stalePlaces.empty() || m_stalePlaces.back() != place)) {
        m_stalePlaces.push_back(place);
    }
}

const std::vector<int>& CMemoryMovie::keyframes() const {
    if (!m_bKeyframesKnown) {
        m_keyframes = findKeyframes(m_frames);
        m_bKeyframesKnown = true;
    }
    return m_keyframes;
}

void CMemoryMovie::updateTweening() {
    // From some share on, all at once is less work than piece by piece.
    if (m_bAllStale || m_stalePlaces.size() > m_frames.size() / 8) {
        for (std::size_t i = 0; m_bPlacesStale && i < m_frames.size(); ++i) {
            m_frames[i]->watch(this, static_cast<int>(i));
        }
        m_bPlacesStale = false;
        tweenFrames(m_frames, keyframes(), 0, lastFrame());
    } else {
        tweenChanged();
    }
    m_bAllStale = false;
    m_stalePlaces.clear();
}

void CMemoryMovie::tweenChanged() {
    const std::vector<int>& keys = keyframes();
    const int keyCount = static_cast<int>(keys.size());
    std::ranges::sort(m_stalePlaces);
    int done = -1;
    for (const int stale : m_stalePlaces) {
        int first = stale;
        int last = stale;
        if (m_frames[place(stale)]->keyframe) {
            // The slope at a keyframe depends on the keyframes beside it, so a change reaches two ways far.
            const int key = static_cast<int>(std::ranges::lower_bound(keys, stale) - keys.begin());
            first = key >= 2 ? keys[place(key - 2)] : 0;
            last = key + 2 < keyCount ? keys[place(key + 2)] - 1 : lastFrame();
        }
        first = std::max(first, done + 1);
        if (first <= last) {
            tweenFrames(m_frames, keys, first, last);
            done = last;
        }
    }
}

float CMemoryMovie::getStepRate() const {
    return m_fStepRate;
}

float CMemoryMovie::convertFrameToTime(int frame) const {
    return static_cast<float>(frame) / m_fStepRate;
}

int CMemoryMovie::getSoundtrackSize() const {
    return static_cast<int>(m_sounds.size());
}

qxCMovieSound* CMemoryMovie::getSound(int index) {
    return index >= 0 && index < getSoundtrackSize() ? m_sounds[place(index)].get() : nullptr;
}

int CMemoryMovie::getSoundAtFrame(int frame) const {
    if (m_sounds.empty()) { // asked for each column of a timeline at each redraw
        return -1;
    }
    // A thousandth of a frame is less than anyone hears and more than the rounding of a start in seconds.
    const double start = (frame + 0.001) / m_fStepRate;
    const double end = (frame + 0.999) / m_fStepRate;
    for (std::size_t i = 0; i < m_sounds.size(); ++i) {
        const qxCMovieSound& sound = *m_sounds[i];
        if (sound.start < end && sound.start + sound.length > start && sound.length > 0.0F) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

void CMemoryMovie::clearSoundtrack() {
    m_sounds.clear();
    ++m_nRevision;
}

void CMemoryMovie::addSound(const char* fileName) {
    m_sounds.push_back(std::make_unique<qxCMovieSound>(fileName));
    ++m_nRevision;
}
