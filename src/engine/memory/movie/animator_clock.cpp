#include "engine/memory/movie/animator_clock.h"

#include "engine/qx_animator.h"

#include <chrono>

namespace {

std::optional<float> g_heldTime;

} // namespace

void holdAnimatorClock(std::optional<float> seconds) {
    g_heldTime = seconds;
}

float qxCAnimator::getTime() {
    using Clock = std::chrono::steady_clock;
    // From the first question on: a float counts the seconds of a process finely, not those of a machine.
    static const Clock::time_point FIRST_ASKED = Clock::now();
    return g_heldTime ? *g_heldTime : std::chrono::duration<float>(Clock::now() - FIRST_ASKED).count();
}
