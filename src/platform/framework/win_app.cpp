#include "platform/framework/win_app.h"

#include "platform/framework/module_state.h"

CWinApp::CWinApp() {
    AfxGetStaticModuleState()->m_pCurrentWinApp = this;
}

CWinApp::~CWinApp() {
    AfxGetStaticModuleState()->m_pCurrentWinApp = nullptr;
}

HICON CWinApp::LoadIcon(UINT nIDResource) const {
    return ::LoadIcon(AfxGetResourceHandle(), nIDResource);
}

CWinApp* AfxGetApp() {
    return AfxGetModuleState()->m_pCurrentWinApp;
}

HINSTANCE AfxGetInstanceHandle() {
    return nullptr;
}

HINSTANCE AfxGetResourceHandle() {
    return nullptr;
}

LPCTSTR AfxRegisterWndClass(UINT classStyle, HCURSOR, HBRUSH, HICON) {
    static constexpr char NAME[] = "Afx";
    const WNDCLASS registered{.style = classStyle, .lpszClassName = &NAME[0]};
    ::RegisterClass(&registered);
    return &NAME[0];
}

BOOL AfxRegisterClass(WNDCLASS* windowClass) {
    return ::RegisterClass(windowClass);
}
