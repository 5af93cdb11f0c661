#pragma once

#include "module/visit.h"
#include "platform/framework/win_app.h"

/// The library's application object, whose message boxes let visits rest.
class CVeskApp : public CWinApp {
public:
    int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt) override {
        const CModalPause pause;
        return CWinApp::DoMessageBox(lpszPrompt, nType, nIDPrompt);
    }
};

/// Made when the library is loaded, gone when the process ends. It stands beside the exports of both editors,
/// so that whatever links either has it.
inline CVeskApp theApp;
