#include "terrain/panel/map_editor_dlg.h"

#include "module/module_state.h"
#include "resources/resource_ids.h"
#include "terrain/edit_cursor.h"
#include "terrain/map_editor_settings.h"
#include "terrain/map_undo_list.h"
#include "terrain/stroke_engine.h"

namespace {

constexpr int KEEP_TOGGLE = 1;
constexpr int DETAILS_TAB = 1;
constexpr int LOWEST_HEIGHT = 0;
constexpr int HIGHEST_HEIGHT = 1023;

} // namespace

CMapEditorDlg::CMapEditorDlg(bool fullEditing)
    : CEditorDialog(IDD_MAP_EDITOR, nullptr, IDC_SIMPLE_FRAME, IDC_EXPAND, "Advanced Controls >>",
                    "Simple Controls<<", KEEP_TOGGLE)
    , m_bFullEditing(fullEditing) {}

CMapEditorDlg::~CMapEditorDlg() {
    // The window goes while the controls that are members still exist. A field that loses the focus on the
    // way must not ask the user about its value.
    m_pMap = nullptr;
    m_bOwnsItself = false;
    m_bFreeWhenIdle = false;
    CMapEditorDlg::DestroyWindow();
}

bool CMapEditorDlg::createWindow(CWnd* host) {
    m_bOwnsItself = Create(IDD_MAP_EDITOR, host) != FALSE;
    return m_bOwnsItself;
}

void CMapEditorDlg::destroy() {
    m_pMap = nullptr;
    abandonDialogs();
    if (m_nDispatchDepth == 0) {
        delete this;
        return;
    }
    m_bFreeWhenIdle = true;
    DestroyWindow(); // now: a message box over a panel that is only hidden would go on blocking the host
}

void CMapEditorDlg::closeByUser() {
    if (m_pMap == nullptr) {
        return;
    }
    saveSettings(*this);
    g_bEditorActive = false;
    destroy();
}

void CMapEditorDlg::PostNcDestroy() {
    if (!m_bOwnsItself) {
        return;
    }
    if (m_pMap != nullptr) {
        // The window went down with the host's: the exports must not reach for it any more.
        m_pMap = nullptr;
        abandonDialogs();
        g_bEditorActive = false;
    }
    m_bOwnsItself = false;
    if (m_nDispatchDepth == 0) {
        delete this;
        return;
    }
    m_bFreeWhenIdle = true;
}

LRESULT CMapEditorDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    ++m_nDispatchDepth;
    const LRESULT result = CEditorDialog::WindowProc(message, wParam, lParam);
    --m_nDispatchDepth;
    if (m_nDispatchDepth == 0 && m_bFreeWhenIdle) {
        delete this;
    }
    return result;
}

void CMapEditorDlg::strokeStart(int x, int z, int edge, int corner) {
    ::strokeStart(*this, x, z, edge, corner);
}

void CMapEditorDlg::strokeUpdate(int x, int z, int amount) {
    ::strokeUpdate(*this, x, z, amount);
}

void CMapEditorDlg::strokeEnd() {
    ::strokeEnd(*this);
    refreshUndoIndicators();
    showMembers();
}

void CMapEditorDlg::updateCursor(int x, int z, int edge, int corner) {
    ::updateCursor(*this, x, z, edge, corner, false);
}

bool CMapEditorDlg::isDetailsTab() const {
    return m_tabs.GetCurSel() == DETAILS_TAB;
}

void CMapEditorDlg::showMembers() {
    UpdateData(FALSE);
}

bool CMapEditorDlg::readControls() {
    if (m_pMap == nullptr) {
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
    CEditorDialog::DoDataExchange(pDX);
    DDX_Control(pDX, IDC_TOOL_TABS, m_tabs);
    DDX_Control(pDX, IDC_TILING_SPIN, m_tilingSpin);
    exchangeSurfaceControls(pDX);
    DDX_Control(pDX, IDC_UNDO_FILL, m_undoFill);
    DDX_Control(pDX, IDC_STRENGTH, m_strengthSlider);
    DDX_Radio(pDX, IDC_TOOL_SELECT, m_nTool);
    DDX_Text(pDX, IDC_STRENGTH_TEXT, m_strStrength);
    DDX_Slider(pDX, IDC_STRENGTH, m_nStrength);
    exchangeHeight(pDX);
    DDX_Text(pDX, IDC_VARIATION, m_fVariation);
    DDX_Text(pDX, IDC_BLEND, m_fBlend);
    DDX_Text(pDX, IDC_TEXTURE_NUMBER, m_nTextureNumber);
    DDX_Text(pDX, IDC_TILING, m_nTiling);
    DDX_Text(pDX, IDC_GRADIENT, m_fGradient);
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
