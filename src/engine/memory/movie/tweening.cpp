#include "engine/memory/movie/tweening.h"

#include "engine/qx_ease_curve.h"

#include <algorithm>
#include <cmath>

namespace {

using Values = std::array<float, 8>;

constexpr std::size_t FIRST_ANGLE = 3;
constexpr std::size_t LAST_ANGLE = 5;

Values valuesOf(const qxCMovieFrame& frame) {
    return {frame.translation.x, frame.translation.y, frame.translation.z, frame.rotation.x,
            frame.rotation.y,    frame.rotation.z,    frame.fov,           frame.shake};
}

/// What is to be gone from one keyframe to the other, angles the short way round.
Values distance(const qxCMovieFrame& from, const qxCMovieFrame& to) {
    const Values start = valuesOf(from);
    Values way = valuesOf(to);
    for (std::size_t i = 0; i < way.size(); ++i) {
        way[i] -= start[i];
    }
    for (std::size_t i = FIRST_ANGLE; i <= LAST_ANGLE; ++i) {
        way[i] = std::remainder(way[i], 360.0F);
    }
    return way;
}

/// Slope at a keyframe between two straight lines, given the frames that each takes.
float slopeBetween(float slopeBefore, float framesBefore, float slopeAfter, float framesAfter) {
    // Not the product: it could underflow to 0.
    const bool sameWay =
        (slopeBefore > 0.0F && slopeAfter > 0.0F) || (slopeBefore < 0.0F && slopeAfter < 0.0F);
    if (!sameWay) {
        return 0.0F;
    }
    const float weightBefore = 2.0F * framesAfter + framesBefore;
    const float weightAfter = framesAfter + 2.0F * framesBefore;
    return (weightBefore + weightAfter) / (weightBefore / slopeBefore + weightAfter / slopeAfter);
}

/// Change a frame over a neighbouring way, one that starts at `from`; empty for none that counts.
struct Neighbour {
    Values slope{};
    float frames = 0.0F;
};

Neighbour neighbour(const TweenKey& from, const TweenKey& to) {
    Neighbour way;
    if (from.frame == nullptr || to.frame == nullptr || from.frame->frameMode == qxMovieFrameSwitch) {
        return way;
    }
    way.frames = static_cast<float>(to.index - from.index);
    way.slope = distance(*from.frame, *to.frame);
    for (float& slope : way.slope) {
        slope /= way.frames;
    }
    return way;
}

float easedHalf(float value, float t) {
    const float progress = qxEaseCurve(value, t);
    return progress == progress ? progress
                                : t; // at the step of an extreme value, which is an end of the curve
}

float eased(float easeOut, float easeIn, float u) {
    return u < 0.5F ? 0.5F * easedHalf(easeOut, 2.0F * u) : 0.5F + 0.5F * easedHalf(easeIn, 2.0F * u - 1.0F);
}

float fadeAt(qxMovieFadeMode mode, float u) {
    switch (mode) {
    case qxMovieFadeIn:
        return u;
    case qxMovieFadeOut:
        return 1.0F - u;
    default:
        return 1.0F;
    }
}

void writeSpan(const MovieFrames& frames, const CTweenSpan& span, int first, int last) {
    const qxCMovieFrame& from = span.from();
    for (int index = first; index <= last; ++index) {
        qxCMovieFrame& frame = *frames[static_cast<std::size_t>(index)];
        const TweenSample sample = span.sample(index);
        frame.fadeLevel = sample.fadeLevel;
        if (index == span.firstFrame()) {
            continue;
        }
        const Values& values = sample.values;
        frame.translation = {values[0], values[1], values[2]};
        frame.rotation = {values[3], values[4], values[5]};
        frame.fov = values[6];
        frame.shake = values[7];
        frame.camera = from.camera;
        frame.cameraMode = from.cameraMode;
        frame.fadeMode = from.fadeMode;
        frame.fadeColour = from.fadeColour;
        if (!(frame.targetName == from.targetName)) { // an assignment costs more
            frame.targetName = from.targetName;
        }
    }
}

void writeFadeLevels(const MovieFrames& frames, int first, int last, float level) {
    for (int index = first; index <= last; ++index) {
        frames[static_cast<std::size_t>(index)]->fadeLevel = level;
    }
}

} // namespace

CTweenSpan::CTweenSpan(const TweenKey& before, const TweenKey& from, const TweenKey& to,
                       const TweenKey& after)
    : m_pFrom(from.frame)
    , m_nFrom(from.index)
    , m_nTo(to.index)
    , m_dPerFrame(1.0 / (to.index - from.index))
    , m_fEaseOut(from.frame->easeOut)
    , m_fEaseIn(to.frame->easeIn)
    , m_bEased(m_fEaseOut != 0.5F || m_fEaseIn != 0.5F)
    , m_start(valuesOf(*from.frame))
    , m_low(m_start)
    , m_high(m_start) {
    if (from.frame->frameMode == qxMovieFrameSwitch) {
        return;
    }
    m_slope = distance(*from.frame, *to.frame);
    for (std::size_t i = 0; i < m_start.size(); ++i) {
        m_low[i] = std::min(m_start[i], m_start[i] + m_slope[i]);
        m_high[i] = std::max(m_start[i], m_start[i] + m_slope[i]);
    }
    if (from.frame->frameMode != qxMovieFrameSpline) {
        return;
    }
    const Neighbour left = neighbour(before, from);
    const Neighbour right = neighbour(to, after);
    const float frames = static_cast<float>(to.index - from.index);
    for (std::size_t i = 0; i < m_start.size(); ++i) {
        const float way = m_slope[i];
        const float slope = way / frames;
        const float leave =
            left.frames > 0.0F ? frames * slopeBetween(left.slope[i], left.frames, slope, frames) : way;
        const float arrive =
            right.frames > 0.0F ? frames * slopeBetween(slope, frames, right.slope[i], right.frames) : way;
        m_slope[i] = leave;
        m_square[i] = 3.0F * way - 2.0F * leave - arrive;
        m_cubic[i] = leave + arrive - 2.0F * way;
    }
}

/// Not inlined: the compiler then keeps the values in memory and computes four at a time.
[[gnu::noinline]] TweenSample CTweenSpan::sample(double position) const {
    const float even = static_cast<float>((position - m_nFrom) * m_dPerFrame);
    const float u = m_bEased ? eased(m_fEaseOut, m_fEaseIn, even) : even;
    TweenSample sample;
    for (std::size_t i = 0; i < m_start.size(); ++i) {
        const float value = ((m_cubic[i] * u + m_square[i]) * u + m_slope[i]) * u + m_start[i];
        const float above = value < m_low[i] ? m_low[i] : value; // rounding may lead a hair beyond
        sample.values[i] = above > m_high[i] ? m_high[i] : above;
    }
    sample.fadeLevel = fadeAt(m_pFrom->fadeMode, even);
    return sample;
}

std::vector<int> findKeyframes(const MovieFrames& frames) {
    std::vector<int> keys;
    for (std::size_t i = 0; i < frames.size(); ++i) {
        if (frames[i]->keyframe) {
            keys.push_back(static_cast<int>(i));
        }
    }
    return keys;
}

CTweenSpan makeSpan(const MovieFrames& frames, std::span<const int> keys, std::size_t key) {
    const auto keyAt = [&](std::size_t number) -> TweenKey {
        const int index = keys[number];
        return {frames[static_cast<std::size_t>(index)].get(), index};
    };
    return {key > 0 ? keyAt(key - 1) : TweenKey{}, keyAt(key), keyAt(key + 1),
            key + 2 < keys.size() ? keyAt(key + 2) : TweenKey{}};
}

void tweenFrames(const MovieFrames& frames, std::span<const int> keys, int first, int last) {
    if (keys.empty()) {
        writeFadeLevels(frames, first, last, 1.0F);
        return;
    }
    writeFadeLevels(frames, first, std::min(last, keys.front() - 1), 1.0F);
    const auto after = std::ranges::upper_bound(keys, first);
    std::size_t key = after == keys.begin() ? 0 : static_cast<std::size_t>(after - keys.begin()) - 1;
    for (; key + 1 < keys.size() && keys[key] <= last; ++key) {
        writeSpan(frames, makeSpan(frames, keys, key), std::max(first, keys[key]),
                  std::min(last, keys[key + 1] - 1));
    }
    const float end = fadeEnd(frames[static_cast<std::size_t>(keys.back())]->fadeMode);
    writeFadeLevels(frames, std::max(first, keys.back()), last, end);
}

float fadeEnd(qxMovieFadeMode mode) {
    return mode == qxMovieFadeOut ? 0.0F : 1.0F;
}
