#include "sandbox/view/fly_keys.h"

#include <array>

namespace {

constexpr std::array FLY_KEYS{Qt::Key_W, Qt::Key_A, Qt::Key_S,     Qt::Key_D,
                              Qt::Key_E, Qt::Key_Q, Qt::Key_Space, Qt::Key_C};
constexpr double HASTE = 4.0;

} // namespace

bool CFlyKeys::isFlyKey(int key) {
    return key == Qt::Key_Shift || std::ranges::find(FLY_KEYS, key) != FLY_KEYS.end();
}

bool CFlyKeys::press(int key) {
    if (!isFlyKey(key)) {
        return false;
    }
    m_held.insert(key);
    return true;
}

bool CFlyKeys::release(int key) {
    m_held.remove(key);
    return isFlyKey(key);
}

bool CFlyKeys::isMoving() const {
    return std::ranges::any_of(FLY_KEYS, [this](int key) { return isHeld(key); });
}

double CFlyKeys::axis(int forwardKey, int backKey) const {
    return (isHeld(forwardKey) ? 1.0 : 0.0) - (isHeld(backKey) ? 1.0 : 0.0);
}

void CFlyKeys::advance(CViewCamera& camera, double seconds, double speed) const {
    const double way = seconds * speed * (isHeld(Qt::Key_Shift) ? HASTE : 1.0);
    const double rise = axis(Qt::Key_E, Qt::Key_Q) + axis(Qt::Key_Space, Qt::Key_C);
    camera.move(axis(Qt::Key_W, Qt::Key_S) * way, axis(Qt::Key_D, Qt::Key_A) * way, rise * way);
}
