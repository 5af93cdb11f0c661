#include "controls/hosted_editor_dlg.h"

namespace {

constexpr int KEEP_TOGGLE = 1;

} // namespace

BEGIN_MESSAGE_MAP(CHostedEditorDlg, CEditorDialog)
ON_WM_CLOSE()
END_MESSAGE_MAP()

/// One message being handled; an exception of a handler passes through it as well.
class CHostedEditorDlg::CDispatch {
public:
    explicit CDispatch(CHostedEditorDlg& panel) : m_panel(panel) { ++panel.m_nDispatchDepth; }
    ~CDispatch() {
        --m_panel.m_nDispatchDepth;
        m_panel.freeWhenIdle();
    }
    CDispatch(const CDispatch&) = delete;
    CDispatch& operator=(const CDispatch&) = delete;

private:
    CHostedEditorDlg& m_panel;
};

CHostedEditorDlg::CHostedEditorDlg(UINT templateId, int frameId, int toggleId,
                                   const CString& collapsedCaption, const CString& expandedCaption,
                                   bool& active)
    : CEditorDialog(templateId, nullptr, frameId, toggleId, collapsedCaption, expandedCaption, KEEP_TOGGLE)
    , m_nTemplate(templateId)
    , m_bActive(active) {}

void CHostedEditorDlg::endWindow() {
    m_bEnding = true;
    letGo();
    m_bOwnsItself = false;
    m_bFreeWhenIdle = false;
    DestroyWindow();
}

bool CHostedEditorDlg::createWindow(CWnd* host) {
    m_bOwnsItself = Create(m_nTemplate, host) != FALSE && GetSafeHwnd() != nullptr;
    return m_bOwnsItself;
}

void CHostedEditorDlg::destroy() {
    m_bEnding = true;
    CVisit::whenOver(*this);
}

/// Nobody works on what the host owns any more.
void CHostedEditorDlg::onVisitsOver() {
    letGo();
    m_bFreeWhenIdle = true;
    if (m_nDispatchDepth > 0) {
        DestroyWindow(); // now: a message box over a panel that is only hidden would go on blocking the host
        return;
    }
    freeWhenIdle();
}

void CHostedEditorDlg::freeWhenIdle() {
    if (m_bFreeWhenIdle && m_nDispatchDepth == 0) {
        delete this;
    }
}

void CHostedEditorDlg::closeByUser() {
    if (m_bEnding) {
        return;
    }
    onUserCloses();
    m_bActive = false;
    destroy();
}

void CHostedEditorDlg::PostNcDestroy() {
    if (!m_bOwnsItself) {
        return;
    }
    m_bOwnsItself = false;
    if (!m_bEnding) {
        m_bActive = false; // the window went down with the host's: the exports must not reach for it any more
        destroy();
    }
}

LRESULT CHostedEditorDlg::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    const CDispatch inside(*this);
    if (m_bEnding && isCommand(message)) {
        return 0;
    }
    return CEditorDialog::WindowProc(message, wParam, lParam);
}

void CHostedEditorDlg::OnClose() {
    closeByUser();
}

void CHostedEditorDlg::OnOK() {
    // The framework would hide the window and leave the editor open without one. Enter has no meaning here
    // outside the edit fields, ...
}

void CHostedEditorDlg::OnCancel() {
    // ... and a stray Escape must not end a long session: only "Close" and the window's own close request do.
}
