#include "engine/qx_animator.h"

namespace {

qxCAnimator::Callback g_animatorCallback = nullptr;

} // namespace

void qxCAnimator::setCallback(Callback callback) {
    g_animatorCallback = callback;
}

qxCAnimator::Callback qxCAnimator::getCallback() {
    return g_animatorCallback;
}

void qxCAnimator::setMode(qxAnimatorMode mode) {
    m_mode = mode;
}

qxAnimatorMode qxCAnimator::getMode() const {
    return m_mode;
}
