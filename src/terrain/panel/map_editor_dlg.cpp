#include "terrain/panel/map_editor_dlg.h"

#include "controls/finite_field.h"
#include "controls/history_display.h"
#include "engine/qx_map.h"
#include "engine/qx_scene.h"
#include "module/module_state.h"
#include "resources/resource_ids.h"
#include "terrain/edit_cursor.h"
#include "terrain/model/map_editor_settings.h"
#include "terrain/model/map_recording.h"
#include "terrain/model/map_selection.h"
#include "terrain/model/map_undo_list.h"
#include "terrain/stroke_engine.h"

#include <utility>

BEGIN_MESSAGE_MAP(CMapEditorDlg, CSurfaceEditorDlg)
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
END_MESSAGE_MAP()

namespace {

constexpr int LOWEST_STRENGTH = 1;
constexpr int HIGHEST_STRENGTH = 10;
constexpr int LOWEST_HEIGHT = 0;
constexpr int HIGHEST_HEIGHT = 1023;

bool usesBrushSize(int tool) {
    return tool == TOOL_RAISE || tool == TOOL_FLATTEN || tool == TOOL_SET_HEIGHT || tool == TOOL_TINT ||
           tool == TOOL_PAINT;
}

} // namespace

CMapEditorDlg::CMapEditorDlg(bool fullEditing)
    : CSurfaceEditorDlg(IDD_MAP_EDITOR, IDC_SIMPLE_FRAME, IDC_EXPAND, "Advanced Controls >>",
                        "Simple Controls<<", g_bEditorActive)
    , m_toolButtons(fullEditing)
    , m_bFullEditing(fullEditing) {}

CMapEditorDlg::~CMapEditorDlg() {
    endWindow();
}

void CMapEditorDlg::onUserCloses() {
    saveSettings(*this);
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

BOOL CMapEditorDlg::OnInitDialog() {
    CSurfaceEditorDlg::OnInitDialog();
    CenterWindow();
    initCloseButton();
    setButtonIcons(*this, BRUSH_BUTTONS);
    setButtonIcons(*this, COMMAND_BUTTONS);
    initTabs();
    m_toolButtons.readCaptions(*this);
    refreshToolButtons();
    m_strengthSlider.SetRange(LOWEST_STRENGTH, HIGHEST_STRENGTH);
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

void CMapEditorDlg::DoDataExchange(CDataExchange* pDX) {
    CSurfaceEditorDlg::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_TOOL_TABS, m_tabs);
    DDX_Control(pDX, IDC_UNDO_FILL, m_undoFill);
    DDX_Control(pDX, IDC_STRENGTH, m_strengthSlider);
    DDX_Radio(pDX, IDC_TOOL_SELECT, m_nTool);
    DDX_Text(pDX, IDC_STRENGTH_TEXT, m_strStrength);
    DDX_Slider(pDX, IDC_STRENGTH, m_nStrength);
    exchangeHeight(pDX);
    exchangeNumbers(pDX);
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
        CSurfaceEditorDlg::OnHScroll(nSBCode, nPos, pScrollBar);
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

void CMapEditorDlg::refreshToolButtons() {
    m_toolButtons.show(*this, isDetailsTab() ? DETAILS_TAB : TERRAIN_TAB);
    showMembers();
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
