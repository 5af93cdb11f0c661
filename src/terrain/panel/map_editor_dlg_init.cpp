#include "terrain/panel/map_editor_dlg.h"

#include "engine/qx_map.h"
#include "engine/qx_scene.h"
#include "resources/resource_ids.h"
#include "terrain/model/map_editor_settings.h"
#include "terrain/panel/map_editor_buttons.h"

namespace {

constexpr int LOWEST_STRENGTH = 1;
constexpr int HIGHEST_STRENGTH = 10;

} // namespace

BOOL CMapEditorDlg::OnInitDialog() {
    CHostedEditorDlg::OnInitDialog();
    CenterWindow();
    initCloseButton();
    setButtonIcons(*this, BRUSH_BUTTONS);
    setButtonIcons(*this, COMMAND_BUTTONS);
    initTabs();
    readTerrainCaptions();
    refreshToolButtons();
    m_strengthSlider.SetRange(LOWEST_STRENGTH, HIGHEST_STRENGTH);
    m_nTiling = m_pMap->getTextureTiling();
    restoreSettings(*this);
    refreshStrengthAndBrushes();
    initSurfaceControls();
    initToggles();
    showMembers();
    return TRUE;
}

void CMapEditorDlg::initCloseButton() {
    CWnd* const button = GetDlgItem(IDC_CLOSE);
    button->EnableWindow(m_bFullEditing ? TRUE : FALSE);
    button->ShowWindow(m_bFullEditing ? SW_SHOW : SW_HIDE);
}

void CMapEditorDlg::initTabs() {
    m_tabs.InsertItem(0, "Terrain");
    m_tabs.InsertItem(1, "Details");
    m_tabs.SetCurSel(0);
}

void CMapEditorDlg::initToggles() {
    // Flag 32 alone decides: the engine's interface has no further property of the map that goes with it.
    m_bMapFlag = m_pMap->hasFlag(qxMapFlagChecker) ? 1 : 0;
    const qxCScene* const scene = m_pMap->getScene();
    m_bFog = scene != nullptr && scene->getFogMode() == qxFogModeOn ? 1 : 0;
}

void CMapEditorDlg::readTerrainCaptions() {
    for (std::size_t tool = 0; tool < TOOL_BUTTONS.size(); ++tool) {
        GetDlgItemText(TOOL_BUTTONS[tool].controlId, m_terrainCaptions[tool]);
        if (TOOL_BUTTONS[tool].terrainCaption != nullptr) {
            m_terrainCaptions[tool] = TOOL_BUTTONS[tool].terrainCaption;
        }
    }
}

void CMapEditorDlg::refreshToolButtons() {
    const bool details = isDetailsTab();
    for (std::size_t tool = 0; tool < TOOL_BUTTONS.size(); ++tool) {
        const ToolButton& button = TOOL_BUTTONS[tool];
        const int icon = details ? button.detailsIcon : button.terrainIcon;
        const bool needsFull = !details || button.detailsNeedsFull;
        const bool renamed = details && button.detailsCaption != nullptr;
        SetDlgItemText(button.controlId,
                       renamed ? button.detailsCaption : m_terrainCaptions[tool].GetString());
        setButtonIcon(*this, button.controlId, icon);
        GetDlgItem(button.controlId)
            ->EnableWindow(icon != 0 && (m_bFullEditing || !needsFull) ? TRUE : FALSE);
    }
    showMembers();
}
