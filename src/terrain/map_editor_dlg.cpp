#include "terrain/map_editor_dlg.h"

#include "resources/resource_ids.h"
#include "terrain/edit_cursor.h"
#include "terrain/map_undo_list.h"
#include "terrain/stroke_engine.h"

namespace {

constexpr int LOWEST_HEIGHT = 0;
constexpr int HIGHEST_HEIGHT = 1023;
constexpr int DETAILS_TAB = 1;
constexpr int KEEP_TOGGLE = 1;

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
    m_ending = EEnding::NO;
    DestroyWindow();
}

bool CMapEditorDlg::createWindow(CWnd* host) {
    m_bOwnsItself = Create(IDD_MAP_EDITOR, host) != FALSE;
    return m_bOwnsItself;
}

void CMapEditorDlg::destroy() {
    m_pMap = nullptr;
    if (m_nDispatchDepth == 0) {
        delete this;
        return;
    }
    ShowWindow(SW_HIDE);
    m_ending = EEnding::CLOSE_WINDOW;
}

void CMapEditorDlg::closeByUser() {
    if (m_pMap == nullptr) {
        return;
    }
    saveSettings(*this);
    g_bEditorActive = false;
    destroy();
}

LRESULT CMapEditorDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    ++m_nDispatchDepth;
    const LRESULT result = CEditorDialog::WindowProc(message, wParam, lParam);
    --m_nDispatchDepth;
    if (m_nDispatchDepth == 0) {
        finishEnding();
    }
    return result;
}
