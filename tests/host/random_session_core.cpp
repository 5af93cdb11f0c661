#include "host/random_session_driver.h"

#include "resources/resource_ids.h"
#include "terrain/edit_cursor.h"
#include "terrain/model/map_editor_settings.h"
#include "terrain/model/map_recording.h"
#include "terrain/model/map_selection.h"
#include "terrain/model/map_undo_list.h"
#include "terrain/panel/map_editor_buttons.h"
#include "terrain/stroke_engine.h"

#include <algorithm>
#include <utility>

namespace {

class CPanel : public CMapEditorModel {
public:
    bool isDetails = false;
    qxCColour tint{255, 255, 255, 255};

    bool isDetailsTab() const override { return isDetails; }
    void showMembers() override {}
    qxCColour getToolTint() const override { return tint; }
};

class CCoreDriver : public CSessionDriver {
public:
    void open(CMemoryMap& map) override {
        if (!m_pPanel) {
            m_pPanel = std::make_unique<CPanel>();
            m_pPanel->m_pMap = &map;
            restoreSettings(*m_pPanel);
        }
    }

    void destroy() override { m_pPanel.reset(); }

    void destroySettings() override {
        g_savedSettings.valid = false;
        g_mapUndoList.clear();
    }

    void start(int x, int z, int edge, int corner) override {
        if (m_pPanel) {
            m_bEditing = true;
            strokeStart(*m_pPanel, x, z, edge, corner);
        }
    }

    void update(int x, int z, int /*ignored*/, int amount) override {
        if (m_pPanel) {
            strokeUpdate(*m_pPanel, x, z, amount);
        }
    }

    void stop() override {
        if (m_pPanel) {
            m_bEditing = false;
            strokeEnd(*m_pPanel);
        }
    }

    void hover(int x, int z, int edge, int corner) override {
        if (m_pPanel) {
            updateCursor(*m_pPanel, x, z, edge, corner, CursorUse::HOVER);
        }
    }

    bool isOpen() const override { return m_pPanel != nullptr; }
    bool isEditing() const override { return m_bEditing; }
    CMapEditorModel* model() const override { return m_pPanel.get(); }

    void closeWindow() override { click(IDC_CLOSE); }

    void click(int id) override {
        const auto tool = std::ranges::find(TOOL_BUTTONS, id, &ToolButton::controlId);
        const auto brush = std::ranges::find(BRUSH_BUTTONS, id, &IconButton::controlId);
        if (tool != TOOL_BUTTONS.end()) {
            m_pPanel->m_nTool = static_cast<int>(tool - TOOL_BUTTONS.begin());
        } else if (brush != BRUSH_BUTTONS.end()) {
            m_pPanel->m_nBrushSize = static_cast<int>(brush - BRUSH_BUTTONS.begin());
        } else if (id == IDC_SELECT_ALL) {
            selectAll(*m_pPanel);
        } else if (id == IDC_DESELECT) {
            deselect(*m_pPanel);
        } else if (id == IDC_UNDO) {
            undo(*m_pPanel);
        } else if (id == IDC_HIDE_CURSOR) {
            m_pPanel->m_bHideCursor = 1 - m_pPanel->m_bHideCursor;
        } else if (id == IDC_CLOSE) {
            saveSettings(*m_pPanel);
            m_pPanel.reset();
        }
    }

    void clickTab() override {
        m_pPanel->isDetails = !m_pPanel->isDetails;
        std::swap(m_pPanel->m_nTool, m_pPanel->m_nOtherTabTool);
    }

    void setToolTint(const qxCColour& colour) override { m_pPanel->tint = colour; }

private:
    std::unique_ptr<CPanel> m_pPanel;
    bool m_bEditing = false;
};

} // namespace

std::unique_ptr<CSessionDriver> makeCoreDriver() {
    return std::make_unique<CCoreDriver>();
}
