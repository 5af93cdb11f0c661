#pragma once

#include "controls/expanding_dialog.h"

/// The base of the toolkit's dialogs: a request to close the window destroys it, and each of its commands is
/// a visit, which rests while a modal dialog runs.
class CEditorDialog : public CExpandingDialog {
public:
    using CExpandingDialog::CExpandingDialog;

    INT_PTR DoModal() override;

protected:
    /// Whether the message runs a handler that works on what the host owns.
    static bool isCommand(UINT message);

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg void OnClose();

    DECLARE_MESSAGE_MAP()
};
