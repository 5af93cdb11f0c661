#include "module/visit.h"
#include "platform/framework/win_app.h"

namespace {

/// The library's application object: made when the library is loaded, gone when the process ends.
class CVeskApp : public CWinApp {
public:
    int DoMessageBox(LPCTSTR lpszPrompt, UINT nType, UINT nIDPrompt) override {
        const CModalPause pause;
        return CWinApp::DoMessageBox(lpszPrompt, nType, nIDPrompt);
    }
};
CVeskApp theApp;

} // namespace
