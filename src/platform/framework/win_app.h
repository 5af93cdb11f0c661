#pragma once

#include "platform/framework/wnd.h"

/// The application object of the library: gives access to its icons. One global instance.
class CWinApp : public CCmdTarget {
public:
    CWinApp();
    ~CWinApp() override;

    /// An icon of the library, kept until unload; null when there is none of that id.
    HICON LoadIcon(UINT nIDResource) const;

    /// What AfxMessageBox shows, with the same arguments and result. A library may do more about it.
    virtual int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt);
};

CWinApp* AfxGetApp();
/// Makes a name for CreateEx: the class is registered on first use and stays so.
LPCTSTR AfxRegisterWndClass(UINT classStyle, HCURSOR cursor = nullptr, HBRUSH background = nullptr,
                            HICON icon = nullptr);
