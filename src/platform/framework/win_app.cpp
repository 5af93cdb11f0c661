#include "platform/framework/win_app.h"

#include "platform/framework/message_box.h"
#include "platform/framework/module_state.h"
#include "platform/windows/back_end.h"

CWinApp::CWinApp() {
    AfxGetStaticModuleState()->m_pCurrentWinApp = this;
}

CWinApp::~CWinApp() {
    AfxGetStaticModuleState()->m_pCurrentWinApp = nullptr;
}

HICON CWinApp::LoadIcon(UINT nIDResource) const {
    return ::LoadLibraryIcon(nIDResource);
}

int CWinApp::DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT) {
    return ::ShowMessageBox(lpszPrompt, nType);
}

int AfxMessageBox(LPCTSTR lpszText, UINT nType, UINT nIDHelp) {
    CWinApp* const app = AfxGetApp();
    return app != nullptr ? app->DoMessageBox(lpszText, nType, nIDHelp) : ::ShowMessageBox(lpszText, nType);
}

CWinApp* AfxGetApp() {
    return AfxGetModuleState()->m_pCurrentWinApp;
}

LPCTSTR AfxRegisterWndClass(UINT classStyle, HCURSOR, HBRUSH, HICON) {
    static constexpr char NAME[] = "Afx";
    const WNDCLASS registered{.style = classStyle, .lpszClassName = &NAME[0]};
    ::RegisterClass(&registered);
    return &NAME[0];
}
