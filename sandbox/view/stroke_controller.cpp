#include "sandbox/view/stroke_controller.h"

bool CStrokeController::press(const std::optional<TerrainHit>& hit, int screenY) {
    release();
    if (!hit.has_value() || !m_calls.isEditorActive()) {
        return false;
    }
    m_bStroking = true;
    m_nStartY = screenY;
    m_nCellX = hit->x;
    m_nCellZ = hit->z;
    m_calls.startEditing(hit->x, hit->z, hit->edge, hit->corner);
    return true;
}

void CStrokeController::move(const std::optional<TerrainHit>& hit, int screenY) {
    if (isStroking()) {
        if (hit.has_value()) {
            m_nCellX = hit->x;
            m_nCellZ = hit->z;
        }
        m_calls.updateEditing(m_nCellX, m_nCellZ, 0, 0, 0, (screenY - m_nStartY) * m_nUnitsPerPixel * m_nWay);
    } else if (hit.has_value() && m_calls.isEditorActive()) {
        m_calls.updateCursor(hit->x, hit->z, hit->edge, hit->corner);
    }
}

void CStrokeController::release() {
    if (isStroking()) {
        m_calls.stopEditing();
    }
    m_bStroking = false;
}

bool CStrokeController::isStroking() {
    m_bStroking = m_bStroking && m_calls.isEditorActive();
    return m_bStroking;
}
