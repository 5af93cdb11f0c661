#pragma once

#include "sandbox/core/view_camera.h"

#include <QSet>

/// The keys held down to fly: W A S D to move and to the sides, E or Space up, Q or C down, Shift for haste.
class CFlyKeys {
public:
    static bool isFlyKey(int key);
    /// True when the key is one of them.
    bool press(int key);
    bool release(int key);
    void clear() { m_held.clear(); }
    bool isMoving() const;
    /// Move the camera for `seconds` at `speed` world units a second.
    void advance(CViewCamera& camera, double seconds, double speed) const;

private:
    bool isHeld(int key) const { return m_held.contains(key); }
    double axis(int forwardKey, int backKey) const;

    QSet<int> m_held;
};
