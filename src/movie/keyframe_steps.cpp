#include "movie/keyframe_steps.h"

#include "engine/qx_movie.h"

#include <limits>

namespace {

constexpr float EASE_STEP = 0.1F;

} // namespace

std::optional<int> keyframeBefore(qxCMovie& movie, int from) {
    for (int index = from; index > 0; --index) {
        const qxCMovieFrame* const frame = movie.getFrame(index - 1);
        if (frame == nullptr) {
            break;
        }
        if (frame->keyframe) {
            return index - 1;
        }
    }
    return std::nullopt;
}

std::optional<int> keyframeAfter(qxCMovie& movie, int from) {
    if (from == std::numeric_limits<int>::max()) {
        return std::nullopt;
    }
    for (int index = from + 1; index < movie.getNumFrames(); ++index) {
        const qxCMovieFrame* const frame = movie.getFrame(index);
        if (frame == nullptr) {
            break;
        }
        if (frame->keyframe) {
            return index;
        }
    }
    return std::nullopt;
}

float easeStepDown(float value) {
    const float lower = value - EASE_STEP;
    return lower >= 0.0F ? lower : 0.0F;
}

float easeStepUp(float value) {
    const float higher = value + EASE_STEP;
    return higher >= 1.0F ? 1.0F : higher;
}
