#include "host/random_session_core.h"

#include "terrain/edit_cursor.h"
#include "terrain/map_editor_settings.h"
#include "terrain/map_recording.h"
#include "terrain/map_selection.h"
#include "terrain/map_undo_list.h"
#include "terrain/stroke_engine.h"

#include <utility>

class CCoreDriver::CPanel : public CMapEditorModel {
public:
    bool isDetails = false;
    qxCColour tint{255, 255, 255, 255};

    bool isDetailsTab() const override { return isDetails; }
    void showMembers() override {}
    qxCColour getToolTint() const override { return tint; }
};

CCoreDriver::CCoreDriver() = default;

CCoreDriver::~CCoreDriver() = default;

void CCoreDriver::open(CMemoryMap& map) {
    if (!m_pPanel) {
        m_pPanel = std::make_unique<CPanel>();
        m_pPanel->m_pMap = &map;
        restoreSettings(*m_pPanel);
    }
}

void CCoreDriver::clickClose() {
    if (m_pPanel) {
        saveSettings(*m_pPanel);
        m_pPanel.reset();
    }
}

void CCoreDriver::closeWindow() {
    clickClose();
}

void CCoreDriver::destroy() {
    m_pPanel.reset();
}

void CCoreDriver::destroySettings() {
    g_savedSettings.valid = false;
    g_mapUndoList.clear();
}

void CCoreDriver::start(int x, int z, int edge, int corner) {
    if (m_pPanel) {
        m_bEditing = true;
        strokeStart(*m_pPanel, x, z, edge, corner);
    }
}

void CCoreDriver::update(int x, int z, int amount) {
    if (m_pPanel) {
        strokeUpdate(*m_pPanel, x, z, amount);
    }
}

void CCoreDriver::stop() {
    if (m_pPanel) {
        m_bEditing = false;
        strokeEnd(*m_pPanel);
    }
}

void CCoreDriver::hover(int x, int z, int edge, int corner) {
    if (m_pPanel) {
        updateCursor(*m_pPanel, x, z, edge, corner, false);
    }
}

void CCoreDriver::clickTab() {
    m_pPanel->isDetails = !m_pPanel->isDetails;
    std::swap(m_pPanel->m_nTool, m_pPanel->m_nOtherTabTool);
}

void CCoreDriver::clickTool(int tool) {
    m_pPanel->m_nTool = tool;
    const auto bits = m_tints(); // a new colour comes with a new tool
    m_pPanel->tint = {static_cast<int>(bits), static_cast<int>(bits >> 8U), static_cast<int>(bits >> 16U),
                      255};
}

void CCoreDriver::clickBrush(int brush) {
    m_pPanel->m_nBrushSize = brush;
}

void CCoreDriver::clickSelectAll() {
    selectAll(*m_pPanel);
}

void CCoreDriver::clickDeselect() {
    deselect(*m_pPanel);
}

void CCoreDriver::clickUndo() {
    undo(*m_pPanel);
}

CMapEditorModel* CCoreDriver::model() const {
    return m_pPanel.get();
}
