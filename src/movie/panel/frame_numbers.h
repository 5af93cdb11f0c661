#pragma once

#include "engine/qx_movie_frame.h"

#include <array>

/// One number of a frame that the panel shows in an edit with a spin beside it.
struct FrameNumber {
    int editId;
    int spinId;
    float step; ///< of the spin
    float (*get)(const qxCMovieFrame& frame);
    void (*set)(qxCMovieFrame& frame, float value);
};

inline constexpr std::size_t FRAME_NUMBER_COUNT = 8;
/// In the order of the panel's edits.
extern const std::array<FrameNumber, FRAME_NUMBER_COUNT> FRAME_NUMBERS;
