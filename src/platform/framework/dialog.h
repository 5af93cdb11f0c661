#pragma once

#include "platform/framework/wnd.h"

#include <memory>

struct DialogTemplate;

/// A dialog made from a template: modeless with Create, modal with DoModal. The caller owns the object; a
/// modeless one that owns itself deletes itself in PostNcDestroy. Destroying the object destroys the window.
class CDialog : public CWnd {
public:
    CDialog();
    /// For DoModal: the template and the owner, null for the active window.
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    ~CDialog() override;

    /// Makes the modeless window over the parent (null for the desktop) and runs OnInitDialog; shown at once
    /// when the template says visible. FALSE when there is no such template.
    using CWnd::Create;
    virtual BOOL Create(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    BOOL CreateIndirect(const DialogTemplate& layout, CWnd* pParentWnd = nullptr);
    /// Prepares DoModal for a layout that is no resource.
    BOOL InitModalIndirect(const DialogTemplate& layout, CWnd* pParentWnd = nullptr);

    /// Runs until EndDialog; its result, or -1 when the dialog could not be made. A window that ends in any
    /// other way counts as IDCANCEL.
    virtual INT_PTR DoModal();
    /// Ends a modal dialog. A modeless one is only hidden.
    void EndDialog(int nResult);

    void GotoDlgCtrl(CWnd* control);

    /// FALSE when the dialog has set the focus itself, TRUE for the first control in tab order.
    virtual BOOL OnInitDialog();
    BOOL PreTranslateMessage(MSG* pMsg) override;

protected:
    /// The default OK: reads the controls and, when they are good, ends with IDOK.
    virtual void OnOK();
    /// The default Cancel, also of Escape and the close box: ends with IDCANCEL.
    virtual void OnCancel();
    LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    DECLARE_MESSAGE_MAP()

private:
    bool createWindow(const DialogTemplate& layout, CWnd* parent);
    void setInitialFocus();

    UINT m_nIDTemplate = 0;
    CWnd* m_pParentWnd = nullptr;
    std::unique_ptr<DialogTemplate> m_pLayout; ///< of InitModalIndirect
};
