#include "platform/framework/dialog.h"

#include "platform/dialog_template.h"
#include "platform/framework/module_state.h"
#include "platform/resources.h"
#include "platform/windows/back_end.h"
#include "platform/windows/dialog_manager.h"

#include <map>
#include <optional>

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_COMMAND(IDOK, &CDialog::OnOK)
ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
END_MESSAGE_MAP()

namespace {

/// A dialog of the library, read on first use; null when there is none of that id.
const DialogTemplate* libraryDialog(UINT id) {
    static auto& read = *new std::map<UINT, std::optional<DialogTemplate>>;
    const auto [entry, isNew] = read.try_emplace(id);
    if (isNew) {
        entry->second = findDialog(AfxGetModuleState()->resources(), static_cast<int>(id));
    }
    return entry->second.has_value() ? &*entry->second : nullptr;
}

} // namespace

CDialog::CDialog() = default;

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd) : m_nIDTemplate(nIDTemplate), m_pParentWnd(pParentWnd) {}

CDialog::~CDialog() {
    CWnd::DestroyWindow();
}

BOOL CDialog::Create(UINT nIDTemplate, CWnd* pParentWnd) {
    const DialogTemplate* const layout = libraryDialog(nIDTemplate);
    return layout != nullptr ? CreateIndirect(*layout, pParentWnd) : FALSE;
}

BOOL CDialog::CreateIndirect(const DialogTemplate& layout, CWnd* pParentWnd) {
    if (!createWindow(layout, pParentWnd)) {
        return FALSE;
    }
    if ((layout.style & WS_VISIBLE) != 0) {
        ShowWindow(SW_SHOWNORMAL);
    }
    return TRUE;
}

BOOL CDialog::InitModalIndirect(const DialogTemplate& layout, CWnd* pParentWnd) {
    m_pLayout = std::make_unique<DialogTemplate>(layout);
    m_pParentWnd = pParentWnd;
    return TRUE;
}

/// TRUE when the window stands after its initialisation, which may have ended it.
bool CDialog::createWindow(const DialogTemplate& layout, CWnd* parent) {
    if (m_hWnd != nullptr) {
        return false;
    }
    const HWND made = ::CreateDialogWindow(layout, parent != nullptr ? parent->m_hWnd : nullptr);
    if (SubclassWindow(made) == FALSE) {
        return false;
    }
    const BOOL wantsFocus = OnInitDialog();
    if (::IsWindow(made) == FALSE) {
        return false; // ended, perhaps with this object
    }
    if (wantsFocus != FALSE) {
        setInitialFocus();
    }
    return true;
}

void CDialog::setInitialFocus() {
    const HWND first = ::GetNextDlgTabItem(m_hWnd, nullptr, FALSE);
    if (first != nullptr) {
        ::SetFocus(first);
        ::SendMessage(first, EM_SETSEL, 0, -1);
    }
}

INT_PTR CDialog::DoModal() {
    const DialogTemplate* const layout =
        m_pLayout != nullptr ? m_pLayout.get() : libraryDialog(m_nIDTemplate);
    if (layout == nullptr) {
        return -1;
    }
    const HWND active = ::GetActiveWindow();
    if (!createWindow(*layout, m_pParentWnd != nullptr ? m_pParentWnd : FromHandle(active))) {
        return m_hWnd != nullptr ? -1 : IDCANCEL;
    }
    const INT_PTR result = ::RunDialogWindow(m_hWnd, IDCANCEL);
    DestroyWindow();
    return result;
}

void CDialog::EndDialog(int nResult) {
    ::EndDialogWindow(m_hWnd, nResult);
}

void CDialog::GotoDlgCtrl(CWnd* control) {
    control->SetFocus();
}

BOOL CDialog::OnInitDialog() {
    if (UpdateData(FALSE) == FALSE) {
        EndDialog(-1);
        return FALSE;
    }
    return TRUE;
}

void CDialog::OnOK() {
    if (UpdateData(TRUE) != FALSE) {
        EndDialog(IDOK);
    }
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

BOOL CDialog::PreTranslateMessage(MSG* pMsg) {
    return CWnd::PreTranslateMessage(pMsg) != FALSE ? TRUE : ::IsDialogMessage(m_hWnd, pMsg);
}

LRESULT CDialog::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    return ::DefDlgProc(m_hWnd, message, wParam, lParam);
}
