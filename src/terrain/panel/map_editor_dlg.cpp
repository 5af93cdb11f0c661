#include "terrain/panel/map_editor_dlg.h"

#include "module/module_state.h"
#include "resources/resource_ids.h"
#include "terrain/edit_cursor.h"
#include "terrain/model/map_editor_settings.h"
#include "terrain/model/map_undo_list.h"
#include "terrain/stroke_engine.h"

#include <cmath>

namespace {

constexpr int DETAILS_TAB = 1;
constexpr int LOWEST_HEIGHT = 0;
constexpr int HIGHEST_HEIGHT = 1023;

/// A number that a record holds and a field could not read back, such as one that is not a number, is shown
/// as 0.
void exchangeFinite(CDataExchange* pDX, int controlId, float& value) {
    if (!std::isfinite(value)) {
        value = 0.0F;
    }
    DDX_Text(pDX, controlId, value);
}

} // namespace

CMapEditorDlg::CMapEditorDlg(bool fullEditing)
    : CHostedEditorDlg(IDD_MAP_EDITOR, IDC_SIMPLE_FRAME, IDC_EXPAND, "Advanced Controls >>",
                       "Simple Controls<<", g_bEditorActive)
    , m_bFullEditing(fullEditing) {}

CMapEditorDlg::~CMapEditorDlg() {
    endWindow();
}

void CMapEditorDlg::onUserCloses() {
    saveSettings(*this);
}

void CMapEditorDlg::letGo() {
    m_pMap = nullptr;
    abandonDialogs();
}

void CMapEditorDlg::strokeStart(int x, int z, int edge, int corner) {
    ::strokeStart(*this, x, z, edge, corner);
}

void CMapEditorDlg::strokeUpdate(int x, int z, int amount) {
    ::strokeUpdate(*this, x, z, amount);
}

void CMapEditorDlg::strokeEnd() {
    ::strokeEnd(*this);
    if (isEnding()) { // the map closed the editor on the way
        return;
    }
    refreshUndoIndicators();
    showMembers();
}

void CMapEditorDlg::updateCursor(int x, int z, int edge, int corner) {
    ::updateCursor(*this, x, z, edge, corner, CursorUse::HOVER);
}

bool CMapEditorDlg::isDetailsTab() const {
    return m_tabs.GetCurSel() == DETAILS_TAB;
}

void CMapEditorDlg::showMembers() {
    UpdateData(FALSE);
}

bool CMapEditorDlg::readControls() {
    if (m_pMap == nullptr || isEnding()) {
        return false;
    }
    const bool accepted = UpdateData(TRUE) != FALSE;
    if (m_pMap == nullptr) {
        return false;
    }
    if (!accepted) {
        showMembers();
    }
    return true;
}

void CMapEditorDlg::DoDataExchange(CDataExchange* pDX) {
    CHostedEditorDlg::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_TOOL_TABS, m_tabs);
    DDX_Control(pDX, IDC_TILING_SPIN, m_tilingSpin);
    exchangeSurfaceControls(pDX);
    DDX_Control(pDX, IDC_UNDO_FILL, m_undoFill);
    DDX_Control(pDX, IDC_STRENGTH, m_strengthSlider);
    DDX_Radio(pDX, IDC_TOOL_SELECT, m_nTool);
    DDX_Text(pDX, IDC_STRENGTH_TEXT, m_strStrength);
    DDX_Slider(pDX, IDC_STRENGTH, m_nStrength);
    exchangeHeight(pDX);
    exchangeFinite(pDX, IDC_VARIATION, m_fVariation);
    exchangeFinite(pDX, IDC_BLEND, m_fBlend);
    DDX_Text(pDX, IDC_TEXTURE_NUMBER, m_nTextureNumber);
    DDX_Text(pDX, IDC_TILING, m_nTiling);
    exchangeFinite(pDX, IDC_GRADIENT, m_fGradient);
    DDX_Radio(pDX, IDC_BRUSH_VERTEX, m_nBrushSize);
    DDX_Check(pDX, IDC_MAP_FLAG, m_bMapFlag);
    DDX_Check(pDX, IDC_HIDE_CURSOR, m_bHideCursor);
    DDX_Check(pDX, IDC_FOG, m_bFog);
}

void CMapEditorDlg::exchangeHeight(CDataExchange* pDX) {
    // A refused value must not stay in the member, where Set Hgt would use it. And a height that Get Hgt took
    // from the map is not the user's to correct: only a typed one is checked.
    int height = m_nHeight;
    DDX_Text(pDX, IDC_HEIGHT, height);
    if (height != m_nHeight) {
        DDV_MinMaxInt(pDX, height, LOWEST_HEIGHT, HIGHEST_HEIGHT);
    }
    m_nHeight = height;
}
