#include "terrain/panel/map_editor_dlg.h"

#include "controls/history_display.h"
#include "engine/qx_map.h"
#include "engine/qx_scene.h"
#include "resources/resource_ids.h"
#include "terrain/model/map_recording.h"
#include "terrain/model/map_selection.h"
#include "terrain/model/map_undo_list.h"
#include "terrain/panel/map_editor_buttons.h"

#include <utility>

BEGIN_MESSAGE_MAP(CMapEditorDlg, CHostedEditorDlg)
ON_BN_CLICKED(IDC_TOOL_SELECT, &CMapEditorDlg::onToolClicked)
ON_BN_CLICKED(IDC_TOOL_RAISE, &CMapEditorDlg::onToolClicked)
ON_BN_CLICKED(IDC_TOOL_FLATTEN, &CMapEditorDlg::onToolClicked)
ON_BN_CLICKED(IDC_TOOL_SET_HEIGHT, &CMapEditorDlg::onToolClicked)
ON_BN_CLICKED(IDC_TOOL_GET_HEIGHT, &CMapEditorDlg::onToolClicked)
ON_BN_CLICKED(IDC_TOOL_TINT, &CMapEditorDlg::onToolClicked)
ON_BN_CLICKED(IDC_TOOL_SMOOTH, &CMapEditorDlg::onToolClicked)
ON_BN_CLICKED(IDC_TOOL_FLOOD, &CMapEditorDlg::onToolClicked)
ON_BN_CLICKED(IDC_TOOL_DRAIN, &CMapEditorDlg::onToolClicked)
ON_BN_CLICKED(IDC_TOOL_PAINT, &CMapEditorDlg::onToolClicked)
ON_BN_CLICKED(IDC_TOOL_GET_GRADIENT, &CMapEditorDlg::onToolClicked)
ON_BN_CLICKED(IDC_TOOL_MAGNET, &CMapEditorDlg::onToolClicked)
ON_BN_CLICKED(IDC_TOOL_ROUGHEN, &CMapEditorDlg::onToolClicked)
ON_BN_CLICKED(IDC_BRUSH_VERTEX, &CMapEditorDlg::onBrushClicked)
ON_BN_CLICKED(IDC_BRUSH_EDGE, &CMapEditorDlg::onBrushClicked)
ON_BN_CLICKED(IDC_BRUSH_CELL, &CMapEditorDlg::onBrushClicked)
ON_BN_CLICKED(IDC_BRUSH_PLUS, &CMapEditorDlg::onBrushClicked)
ON_BN_CLICKED(IDC_BRUSH_2X2, &CMapEditorDlg::onBrushClicked)
ON_BN_CLICKED(IDC_BRUSH_DISC, &CMapEditorDlg::onBrushClicked)
ON_WM_HSCROLL()
ON_EN_KILLFOCUS(IDC_HEIGHT, &CMapEditorDlg::onHeightKillFocus)
ON_NOTIFY(TCN_SELCHANGE, IDC_TOOL_TABS, &CMapEditorDlg::onTabChanged)
ON_BN_CLICKED(IDC_HIDE_CURSOR, &CMapEditorDlg::onHideCursor)
ON_BN_CLICKED(IDC_MAP_FLAG, &CMapEditorDlg::onMapFlag)
ON_BN_CLICKED(IDC_FOG, &CMapEditorDlg::onFog)
ON_BN_CLICKED(IDC_SELECT_ALL, &CMapEditorDlg::onSelectAll)
ON_BN_CLICKED(IDC_DESELECT, &CMapEditorDlg::onDeselect)
ON_BN_CLICKED(IDC_UNDO, &CMapEditorDlg::onUndo)
ON_BN_CLICKED(IDC_CLOSE, &CMapEditorDlg::onCloseButton)
ON_BN_CLICKED(IDC_PREVIOUS_TEXTURE, &CMapEditorDlg::onPreviousDefinition)
ON_BN_CLICKED(IDC_NEXT_TEXTURE, &CMapEditorDlg::onNextDefinition)
ON_BN_CLICKED(IDC_INSERT_DEFINITION, &CMapEditorDlg::onInsertDefinition)
ON_BN_CLICKED(IDC_DELETE_DEFINITION, &CMapEditorDlg::onDeleteDefinition)
ON_BN_CLICKED(IDC_DUPLICATE_DEFINITION, &CMapEditorDlg::onDuplicateDefinition)
ON_EN_KILLFOCUS(IDC_BLEND, &CMapEditorDlg::onBlendKillFocus)
ON_EN_KILLFOCUS(IDC_VARIATION, &CMapEditorDlg::onVariationKillFocus)
ON_EN_KILLFOCUS(IDC_TILING, &CMapEditorDlg::onTilingKillFocus)
ON_NOTIFY(UDN_DELTAPOS, IDC_BLEND_SPIN, &CMapEditorDlg::onBlendSpin)
ON_NOTIFY(UDN_DELTAPOS, IDC_VARIATION_SPIN, &CMapEditorDlg::onVariationSpin)
ON_NOTIFY(UDN_DELTAPOS, IDC_TILING_SPIN, &CMapEditorDlg::onTilingSpin)
ON_MESSAGE(UM_COLOURCHANGED, &CMapEditorDlg::onColourChanged)
ON_MESSAGE(UM_TEXTURECHANGED, &CMapEditorDlg::onTextureChanged)
ON_BN_CLICKED(IDC_TERRAIN_TYPES, &CMapEditorDlg::onTerrainTypes)
END_MESSAGE_MAP()

namespace {

bool usesBrushSize(int tool) {
    return tool == TOOL_RAISE || tool == TOOL_FLATTEN || tool == TOOL_SET_HEIGHT || tool == TOOL_TINT ||
           tool == TOOL_PAINT;
}

} // namespace

void CMapEditorDlg::onToolClicked() {
    if (!readControls()) {
        return;
    }
    refreshStrengthAndBrushes();
    showMembers();
    SetActiveWindow();
}

void CMapEditorDlg::onBrushClicked() {
    if (readControls()) {
        SetActiveWindow();
    }
}

void CMapEditorDlg::OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar) {
    if (readControls()) {
        refreshStrengthAndBrushes();
        CHostedEditorDlg::OnHScroll(nSBCode, nPos, pScrollBar);
    }
}

void CMapEditorDlg::onHeightKillFocus() {
    if (readControls()) {
        showMembers();
    }
}

void CMapEditorDlg::onTabChanged(NMHDR* /*pNMHDR*/, LRESULT* pResult) {
    *pResult = 0;
    if (!readControls()) {
        return;
    }
    refreshToolButtons();
    std::swap(m_nTool, m_nOtherTabTool);
    showPreview();
    showMembers();
}

void CMapEditorDlg::onHideCursor() {
    readControls();
}

void CMapEditorDlg::onMapFlag() {
    if (!readControls()) {
        return;
    }
    if (m_bMapFlag != 0) {
        m_pMap->setFlag(qxMapFlagChecker);
    } else {
        m_pMap->clearFlag(qxMapFlagChecker);
    }
}

void CMapEditorDlg::onFog() {
    if (!readControls()) {
        return;
    }
    if (qxCScene* const scene = m_pMap->getScene()) {
        scene->setFogMode(m_bFog != 0 ? qxFogModeOn : qxFogModeOff);
    }
}

void CMapEditorDlg::onSelectAll() {
    if (m_pMap != nullptr) {
        selectAll(*this);
    }
}

void CMapEditorDlg::onDeselect() {
    if (m_pMap != nullptr) {
        deselect(*this);
    }
}

void CMapEditorDlg::onUndo() {
    if (m_pMap == nullptr) {
        return;
    }
    undo(*this);
    refreshUndoIndicators();
    showMembers();
}

void CMapEditorDlg::onCloseButton() {
    closeByUser();
}

void CMapEditorDlg::refreshStrengthAndBrushes() {
    m_strStrength.Format("%i", m_nStrength);
    const BOOL usable = usesBrushSize(m_nTool) && !isDetailsTab() ? TRUE : FALSE;
    for (const IconButton& button : BRUSH_BUTTONS) {
        GetDlgItem(button.controlId)->EnableWindow(usable);
    }
    showMembers();
}

void CMapEditorDlg::refreshUndoIndicators() {
    showHistory(*this, IDC_UNDO, m_undoFill, g_mapUndoList);
}
