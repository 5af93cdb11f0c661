#include "controls/editor_dialog.h"

BEGIN_MESSAGE_MAP(CEditorDialog, CExpandingDialog)
ON_WM_CLOSE()
END_MESSAGE_MAP()

void CEditorDialog::DoDataExchange(CDataExchange* pDX) {
    CExpandingDialog::DoDataExchange(pDX);
}

void CEditorDialog::OnClose() {
    // The default processing of the message would act on the window that is gone by then, and a dialog that
    // frees itself with its window is gone too: nothing may follow.
    DestroyWindow();
}
