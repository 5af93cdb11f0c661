#include "controls/expanding_dialog.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

namespace {

/// Whether the window's class is exactly the edit control's, whatever its letter case.
bool isEditField(HWND window) {
    constexpr int NAME_SIZE = 16;
    std::array<char, NAME_SIZE> name{};
    const int length = ::GetClassName(window, name.data(), NAME_SIZE);
    return std::ranges::equal(std::string_view(name.data(), static_cast<std::size_t>(std::max(length, 0))),
                              std::string_view("edit"), {}, [](unsigned char c) { return std::tolower(c); });
}

} // namespace

BEGIN_MESSAGE_MAP(CExpandingDialog, CDialog)
END_MESSAGE_MAP()

CExpandingDialog::CExpandingDialog(UINT templateId, CWnd* parent, int frameId, int toggleId,
                                   const CString& collapsedCaption, const CString& expandedCaption,
                                   int keepToggle)
    : CDialog(templateId, parent)
    , m_strCollapsedCaption(collapsedCaption)
    , m_strExpandedCaption(expandedCaption)
    , m_nFrameId(frameId)
    , m_nToggleId(toggleId)
    , m_bKeepToggle(keepToggle) {}

BOOL CExpandingDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    setExpanded(false);
    return TRUE;
}

void CExpandingDialog::DoDataExchange(CDataExchange* /*pDX*/) {}

void CExpandingDialog::setExpanded(bool expanded) {
    if (expanded == (m_bExpanded != 0) || m_nToggleId == 0 || m_nFrameId == 0) {
        return;
    }
    CWnd* const toggleButton = GetDlgItem(m_nToggleId);
    CWnd* const frame = GetDlgItem(m_nFrameId);
    if (toggleButton == nullptr || frame == nullptr) {
        return;
    }
    CRect frameRect;
    frame->GetWindowRect(&frameRect);
    enableOutside(frameRect, expanded);
    if (expanded) {
        expand(*toggleButton);
    } else {
        collapse(*frame, *toggleButton);
    }
    m_bExpanded = expanded ? 1 : 0;
}

void CExpandingDialog::enableOutside(const CRect& frameRect, bool enable) {
    for (CWnd* child = GetWindow(GW_CHILD); child != nullptr; child = child->GetWindow(GW_HWNDNEXT)) {
        CRect childRect;
        child->GetWindowRect(&childRect);
        CRect overlap;
        if (!overlap.IntersectRect(&childRect, &frameRect)) {
            child->EnableWindow(enable ? TRUE : FALSE);
            // Nobody sees them when the dialog is small; Tab passes over what is hidden, even where the
            // dialog's own rules enable it again.
            child->ShowWindow(enable ? SW_SHOW : SW_HIDE);
        }
    }
}

void CExpandingDialog::collapse(CWnd& frame, CWnd& toggleButton) {
    CRect frameRect;
    frame.GetWindowRect(&frameRect);
    CRect dialogRect;
    GetWindowRect(&dialogRect);
    if (!m_fullSize) {
        m_fullSize = dialogRect.Size();
        frame.ShowWindow(SW_HIDE);
    }
    SetWindowPos(nullptr, 0, 0, frameRect.right - dialogRect.left, frameRect.bottom - dialogRect.top,
                 SWP_NOMOVE | SWP_NOZORDER);
    toggleButton.SetWindowText(m_strCollapsedCaption);
}

void CExpandingDialog::expand(CWnd& toggleButton) {
    if (m_fullSize) {
        SetWindowPos(nullptr, 0, 0, m_fullSize->cx, m_fullSize->cy, SWP_NOMOVE | SWP_NOZORDER);
    }
    SendMessage(DM_REPOSITION);
    if (m_bKeepToggle != 0) {
        toggleButton.SetWindowText(m_strExpandedCaption);
    } else {
        toggleButton.EnableWindow(FALSE);
    }
}

void CExpandingDialog::toggle() {
    if (!canToggle(m_bExpanded)) {
        return;
    }
    setExpanded(m_bExpanded == 0);
    if (CWnd* const toggleButton = GetDlgItem(m_nToggleId)) {
        GotoDlgCtrl(GetNextDlgTabItem(toggleButton));
    }
    onToggled(m_bExpanded);
}

BOOL CExpandingDialog::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (m_nToggleId != 0 && LOWORD(wParam) == m_nToggleId && HIWORD(wParam) == BN_CLICKED) {
        toggle();
    }
    return CDialog::OnCommand(wParam, lParam);
}

BOOL CExpandingDialog::PreTranslateMessage(MSG* pMsg) {
    if (pMsg->message == WM_KEYDOWN && pMsg->wParam == VK_RETURN && isEditField(pMsg->hwnd)) {
        pMsg->wParam = VK_TAB;
    }
    return CDialog::PreTranslateMessage(pMsg);
}

BOOL CExpandingDialog::canToggle(int /*currentState*/) {
    return TRUE;
}

void CExpandingDialog::onToggled(int /*newState*/) {}
