#include "terrain/panel/tool_buttons.h"

void CToolButtons::readCaptions(const CWnd& panel) {
    for (std::size_t tool = 0; tool < TOOL_BUTTONS.size(); ++tool) {
        panel.GetDlgItemText(TOOL_BUTTONS[tool].controlId, m_terrainCaptions[tool]);
        if (TOOL_BUTTONS[tool].terrainCaption != nullptr) {
            m_terrainCaptions[tool] = TOOL_BUTTONS[tool].terrainCaption;
        }
    }
}

void CToolButtons::show(CWnd& panel, ToolTab tab) const {
    const bool details = tab == DETAILS_TAB;
    for (std::size_t tool = 0; tool < TOOL_BUTTONS.size(); ++tool) {
        const ToolButton& button = TOOL_BUTTONS[tool];
        const int icon = details ? button.detailsIcon : button.terrainIcon;
        const bool needsFull = !details || button.detailsNeedsFull;
        const bool renamed = details && button.detailsCaption != nullptr;
        panel.SetDlgItemText(button.controlId,
                             renamed ? button.detailsCaption : m_terrainCaptions[tool].GetString());
        setButtonIcon(panel, button.controlId, icon);
        panel.GetDlgItem(button.controlId)
            ->EnableWindow(icon != 0 && (m_bFullEditing || !needsFull) ? TRUE : FALSE);
    }
}
