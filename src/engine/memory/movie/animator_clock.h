#pragma once

#include "engine/qx_api.h"

#include <optional>

/// Hold the clock behind qxCAnimator::getTime() at a time of the caller's, in seconds; with no value it runs
/// by itself again. For whoever needs the same course of events twice.
QX_API void holdAnimatorClock(std::optional<float> seconds);
