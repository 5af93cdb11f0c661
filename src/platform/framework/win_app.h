#pragma once

#include "platform/framework/wnd.h"

/// The application object of the library: gives access to its icons. One global instance.
class CWinApp : public CCmdTarget {
public:
    CWinApp();
    ~CWinApp() override;

    /// An icon of the library, kept until unload; null when there is none of that id.
    HICON LoadIcon(UINT nIDResource) const;
    virtual BOOL InitInstance() { return TRUE; }
    virtual int ExitInstance() { return 0; }
};

/// Lets the library's windows work in a host that runs no message loop for them: handles what has come in and
/// paints. Does nothing where the host has a loop of its own that does, from inside such a call (a dialog
/// that it opened runs its own loop), and while there are no windows yet.
void AfxServeWindows();

CWinApp* AfxGetApp();
HINSTANCE AfxGetInstanceHandle();
HINSTANCE AfxGetResourceHandle();
/// Makes a name for CreateEx: the class is registered on first use and stays so.
LPCTSTR AfxRegisterWndClass(UINT classStyle, HCURSOR cursor = nullptr, HBRUSH background = nullptr,
                            HICON icon = nullptr);
BOOL AfxRegisterClass(WNDCLASS* windowClass);
