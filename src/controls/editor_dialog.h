#pragma once

#include "controls/expanding_dialog.h"

/// The base of the toolkit's dialogs: a request to close the window destroys it.
class CEditorDialog : public CExpandingDialog {
public:
    using CExpandingDialog::CExpandingDialog;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void OnClose();

    DECLARE_MESSAGE_MAP()
};
