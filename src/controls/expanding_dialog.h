#pragma once

#include "platform/framework.h"

#include <optional>

/// A dialog that can shrink to the part marked by a frame control and grow back, with a toggle button whose
/// caption tells which way it goes; Enter in an edit field moves on to the next control. A dialog without a
/// frame or a toggle (id 0) never changes size.
class CExpandingDialog : public CDialog {
public:
    /// `frameId` and `toggleId` are control ids, 0 for none. With `keepToggle` 0 the dialog can only be
    /// expanded once; the toggle is disabled then.
    CExpandingDialog(UINT templateId, CWnd* parent, int frameId, int toggleId,
                     const CString& collapsedCaption, const CString& expandedCaption, int keepToggle);

    /// Switch to the full size or to the framed part. Does nothing when the dialog is in that state already
    /// or has no frame or no toggle. Expanding enables every control outside the frame, collapsing disables
    /// it.
    void setExpanded(bool expand);

protected:
    BOOL OnInitDialog() override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL PreTranslateMessage(MSG* pMsg) override;

    /// Whether a click on the toggle may switch; `currentState` is 1 when expanded.
    virtual BOOL canToggle(int currentState);
    /// The toggle was clicked and the dialog has switched; `newState` is 1 when expanded.
    virtual void onToggled(int newState);

    DECLARE_MESSAGE_MAP()

private:
    void toggle();
    void enableOutside(const CRect& frameRect, bool enable);
    void collapse(CWnd& frame, CWnd& toggleButton);
    void expand(CWnd& toggleButton);

    CString m_strCollapsedCaption;
    CString m_strExpandedCaption;
    int m_nFrameId;
    int m_nToggleId;
    int m_bKeepToggle;
    std::optional<CSize> m_fullSize; ///< outer size before the first collapse
    int m_bExpanded = 1;
};
