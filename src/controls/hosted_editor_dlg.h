#pragma once

#include "controls/editor_dialog.h"
#include "module/visit.h"

/// The panel of an editor that a host opened: a modeless window over the host's, which ends by its own
/// "Close", by its window, with its host's window, or by the host's call, each at any time: also from inside
/// one of its own handlers (a host's timer may call while a message box is open) and from inside a call of
/// the host that is at work on it (the host's map may call back). Lives on the heap; once its window is open
/// it owns itself, and is freed when the last handler and the last visit have left.
class CHostedEditorDlg : public CEditorDialog, private CEndOfVisits {
public:
    /// Open the modeless window as a child of `host`, which may be null. False, and the object still the
    /// caller's, when there is no window.
    bool createWindow(CWnd* host);
    /// Close the window and free the object, as soon as nobody is inside. Whoever calls has told the module
    /// that the editor is closed.
    void destroy();

protected:
    /// `active` is the module's flag that this editor is open; it is cleared when the panel ends by itself.
    CHostedEditorDlg(UINT templateId, int frameId, int toggleId, const CString& collapsedCaption,
                     const CString& expandedCaption, bool& active);

    /// The person closes the panel. Does nothing when it is ending already.
    void closeByUser();
    /// The panel is on its way out: its fields ask for nothing and store nothing, and no command begins any
    /// more. One that is at work still has what it works on, until it opens a modal window.
    bool isEnding() const { return m_bEnding; }

    /// The person closes the panel, which is still whole: the last chance to remember something.
    virtual void onUserCloses() {}
    /// Let go of what the host owns, and end every dialog that stands over the panel: both may be gone
    /// afterwards. May run more than once.
    virtual void letGo() = 0;
    /// Ends the window, in a destructor, while the members that stand on its controls still exist.
    void endWindow();

    void PostNcDestroy() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void OnOK() override;
    void OnCancel() override;
    afx_msg void OnClose();

    DECLARE_MESSAGE_MAP()

private:
    class CDispatch;

    void onVisitsOver() override;
    void freeWhenIdle();

    const UINT m_nTemplate;
    bool& m_bActive;
    bool m_bOwnsItself = false; ///< the end of the window is the end of the object
    bool m_bEnding = false;
    bool m_bFreeWhenIdle = false; ///< to be freed when the outermost message has been handled
    int m_nDispatchDepth = 0;     ///< messages being handled, one inside the other
};
