#include "sandbox/view/stroke_controller.h"

#include <algorithm>
#include <cstdlib>

bool CStrokeController::press(const std::optional<TerrainHit>& hit, int screenY) {
    end();
    if (!hit.has_value() || !m_calls.isEditorActive()) {
        return false;
    }
    m_bStroking = true;
    m_bUpdated = false;
    m_nStartY = screenY;
    m_last = {hit->x, hit->z, 0};
    m_calls.startEditing(hit->x, hit->z, hit->edge, hit->corner);
    return true;
}

void CStrokeController::move(const std::optional<TerrainHit>& hit, int screenY) {
    if (isStroking()) {
        drawTo(stepAt(hit, screenY));
    } else if (hit.has_value() && m_calls.isEditorActive()) {
        m_calls.updateCursor(hit->x, hit->z, hit->edge, hit->corner);
    }
}

void CStrokeController::release(const std::optional<TerrainHit>& hit, int screenY) {
    if (isStroking()) {
        const Step last = stepAt(hit, screenY);
        if (last != m_last || !m_bUpdated) {
            drawTo(last);
        }
    }
    end();
}

void CStrokeController::end() {
    if (isStroking()) {
        m_calls.stopEditing();
    }
    m_bStroking = false;
}

CStrokeController::Step CStrokeController::stepAt(const std::optional<TerrainHit>& hit, int screenY) const {
    const int amount = (screenY - m_nStartY) * m_nUnitsPerPixel * m_nWay;
    return hit.has_value() ? Step{hit->x, hit->z, amount} : Step{m_last.x, m_last.z, amount};
}

/// Every cell of the line gets its update, the drag growing evenly on the way: a hand is faster than the
/// events of a mouse.
void CStrokeController::drawTo(const Step& end) {
    const Step begin = m_last;
    const int count = std::max({std::abs(end.x - begin.x), std::abs(end.z - begin.z), 1});
    const auto between = [count](int from, int to, int i) {
        const int twice = 2 * (to - from) * i;
        return from + (twice + (twice < 0 ? -count : count)) / (2 * count); // rounded to the nearest
    };
    for (int i = 1; i <= count && isStroking(); ++i) {
        m_last = {between(begin.x, end.x, i), between(begin.z, end.z, i),
                  between(begin.amount, end.amount, i)};
        m_bUpdated = true;
        m_calls.updateEditing(m_last.x, m_last.z, 0, 0, 0, m_last.amount);
    }
}

bool CStrokeController::isStroking() {
    m_bStroking = m_bStroking && m_calls.isEditorActive();
    return m_bStroking;
}
