#pragma once

#include "engine/qx_movie_frame.h"

#include <array>
#include <memory>
#include <span>
#include <vector>

/// The frames of a movie in their order, none of them null.
using MovieFrames = std::vector<std::unique_ptr<qxCMovieFrame>>;

/// What runs from keyframe to keyframe: translation, rotation, field of view and shake, and the fade.
struct TweenSample {
    std::array<float, 8> values{};
    float fadeLevel = 1.0F;
};

/// A keyframe by its place; without a frame where there is none.
struct TweenKey {
    const qxCMovieFrame* frame = nullptr;
    int index = 0;
};

/// The way from a keyframe to the next. Every in-between value of a movie comes out of sample(): what is
/// written into the frames, what poses the cameras, and what is drawn of the path.
///
/// Linear runs straight. Spline is a cubic whose slope at a keyframe is the weighted harmonic mean of the
/// slopes of the straight lines on both sides, and level where they differ in sign, so that it never leaves
/// the range of its two keyframes (F. N. Fritsch and J. Butland, "A Method for Constructing Local Monotone
/// Piecewise Cubic Interpolants", SIAM J. Sci. Stat. Comput. 5, 1984). A neighbour beyond a switch does not
/// count. Angles go the short way round, on from the keyframe before, and so may pass 360. The first half of
/// the way runs along the ease curve out of the one keyframe, the second along the curve into the next; a
/// fade runs evenly.
class CTweenSpan {
public:
    /// `from` and `to` are keyframes, `from` before `to`; `before` and `after` their neighbours, which may be
    /// missing. The keyframes must outlive the span and keep their values.
    CTweenSpan(const TweenKey& before, const TweenKey& from, const TweenKey& to, const TweenKey& after);

    /// `position` in frames, at least from's and less than to's index.
    TweenSample sample(double position) const;
    const qxCMovieFrame& from() const { return *m_pFrom; }
    int firstFrame() const { return m_nFrom; }
    int endFrame() const { return m_nTo; }

private:
    using Values = std::array<float, 8>;

    const qxCMovieFrame* m_pFrom;
    int m_nFrom;
    int m_nTo;
    double m_dPerFrame; // share of the way that a frame takes
    float m_fEaseOut;   // out of the keyframe
    float m_fEaseIn;    // into the next
    bool m_bEased;
    Values m_start{}; // value = ((cubic * u + square) * u + slope) * u + start, held to low..high
    Values m_slope{};
    Values m_square{};
    Values m_cubic{};
    Values m_low{};
    Values m_high{};
};

/// Indices of the keyframes, ascending.
std::vector<int> findKeyframes(const MovieFrames& frames);

/// The way that begins at the keyframe number `key` of `keys`, which is not the last.
CTweenSpan makeSpan(const MovieFrames& frames, std::span<const int> keys, std::size_t key);

/// Write what the keyframes give into the frames from `first` to `last`, both included and inside the movie:
/// between two keyframes camera, camera mode, target, fade mode and fade colour of the keyframe before, and
/// the sample of the way. Of keyframes, and of frames that do not lie between two, only the fade level is
/// written: at the last keyframe and after it what its fade ends with, before the first one 1.
void tweenFrames(const MovieFrames& frames, std::span<const int> keys, int first, int last);

/// The fade level that a fade of this kind ends with: 0 out, else 1.
float fadeEnd(qxMovieFadeMode mode);
