#include "controls/editor_dialog.h"

#include "module/visit.h"

#include <optional>

BEGIN_MESSAGE_MAP(CEditorDialog, CExpandingDialog)
ON_WM_CLOSE()
END_MESSAGE_MAP()

void CEditorDialog::DoDataExchange(CDataExchange* pDX) {
    CExpandingDialog::DoDataExchange(pDX);
}

INT_PTR CEditorDialog::DoModal() {
    const CModalPause pause;
    return CExpandingDialog::DoModal();
}

bool CEditorDialog::isCommand(UINT message) {
    return message == WM_COMMAND || message == WM_NOTIFY || message == WM_HSCROLL || message >= WM_USER;
}

LRESULT CEditorDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    std::optional<CVisit> visit;
    if (isCommand(message)) {
        visit.emplace();
    }
    return CExpandingDialog::WindowProc(message, wParam, lParam);
}

void CEditorDialog::OnClose() {
    // The default processing of the message would act on the window that is gone by then, and a dialog that
    // frees itself with its window is gone too: nothing may follow.
    DestroyWindow();
}
