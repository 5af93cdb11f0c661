#pragma once

#include "terrain/edit_cursor.h"
#include "terrain/model/map_editor_settings.h"
#include "terrain/model/map_selection.h"
#include "terrain/support/test_panel.h"

#include <memory>
#include <utility>

/// The map editor under test, without its panel: the calls of the host, and what the panel's buttons do.
class CSessionDriver {
public:
    /// Null while the editor is closed.
    CTestPanel* model() const { return m_pModel.get(); }

    void open(CMemoryMap& map) {
        if (!m_pModel) {
            m_pModel = std::make_unique<CTestPanel>();
            m_pModel->m_pMap = &map;
            restoreSettings(*m_pModel);
        }
    }
    /// By the user, who wants to find the settings again.
    void close() {
        saveSettings(*m_pModel);
        destroy();
    }
    void destroy() { m_pModel.reset(); }
    void destroySettings() {
        g_savedSettings.valid = false;
        g_mapUndoList.clear();
    }

    void start(int x, int z, int edge, int corner) { strokeStart(*m_pModel, x, z, edge, corner); }
    void update(int x, int z, int amount) { strokeUpdate(*m_pModel, x, z, amount); }
    void stop() { strokeEnd(*m_pModel); }
    void hover(int x, int z, int edge, int corner) {
        updateCursor(*m_pModel, x, z, edge, corner, CursorUse::HOVER);
    }

    void undo() { ::undo(*m_pModel); }
    void selectAll() { ::selectAll(*m_pModel); }
    void deselect() { ::deselect(*m_pModel); }
    void clickTab() {
        m_pModel->isDetails = !m_pModel->isDetails;
        std::swap(m_pModel->m_nTool, m_pModel->m_nOtherTabTool);
    }

private:
    std::unique_ptr<CTestPanel> m_pModel;
};
