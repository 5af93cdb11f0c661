#include "support/recording_dialog.h"

#include <map>
#include <stdexcept>
#include <utility>

BEGIN_MESSAGE_MAP(CRecordingDialog, CDialog)
ON_WM_HSCROLL()
END_MESSAGE_MAP()

DialogItem dialogItem(int id, const char* windowClass, DWORD style, DialogRect rect, const char* text) {
    DialogItem item;
    item.id = id;
    item.rect = rect;
    item.style = WS_CHILD | WS_VISIBLE | style;
    item.windowClass = windowClass;
    item.text = text;
    return item;
}

DialogTemplate dialogLayout(std::vector<DialogItem> items) {
    DialogTemplate layout;
    layout.id = CRecordingDialog::TEMPLATE_ID;
    layout.rect = {0, 0, 200, 150};
    layout.style = WS_POPUP | WS_VISIBLE | WS_CAPTION;
    layout.caption = "Recording dialog";
    layout.fontFace = "MS Sans Serif";
    layout.fontPointSize = 8;
    layout.items = std::move(items);
    return layout;
}

void CRecordingDialog::open(std::vector<DialogItem> items) {
    if (CreateIndirect(dialogLayout(std::move(items))) == FALSE ||
        !ui::waitUntilActive(ui::dialog(TEMPLATE_ID))) {
        throw std::runtime_error("the dialog does not open");
    }
    takeHeard();
}

std::vector<std::string> CRecordingDialog::takeHeard() {
    return std::exchange(m_heard, {});
}

void CRecordingDialog::note(const std::string& text) {
    m_heard.push_back(text);
    if (onNote) {
        onNote(text);
    }
}

void CRecordingDialog::DoDataExchange(CDataExchange* pDX) {
    if (exchange) {
        exchange(pDX);
    }
}

BOOL CRecordingDialog::OnCommand(WPARAM wParam, LPARAM lParam) {
    // The code 1 is the selection change of combo and list boxes alike, 2 the double click of a list.
    static const std::map<int, std::string> NAMES = {{BN_CLICKED, "clicked"},
                                                     {CBN_SELCHANGE, "selected"},
                                                     {LBN_DBLCLK, "list double-clicked"},
                                                     {BN_DOUBLECLICKED, "double-clicked"},
                                                     {EN_KILLFOCUS, "left"}};
    const auto name = NAMES.find(HIWORD(wParam));
    const int id = LOWORD(wParam);
    const BOOL handled = CDialog::OnCommand(wParam, lParam);
    if (name != NAMES.end() && lParam != 0) {
        note(std::to_string(id) + " " + name->second);
    }
    return handled;
}

BOOL CRecordingDialog::OnNotify(WPARAM, LPARAM lParam, LRESULT* pResult) {
    const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
    std::string text = std::to_string(header.idFrom);
    if (header.code == UDN_DELTAPOS) {
        text += " steps " + std::to_string(reinterpret_cast<const NMUPDOWN*>(lParam)->iDelta);
        *pResult = 0;
    } else {
        text += header.code == TCN_SELCHANGE ? " turned" : " ?";
    }
    note(text);
    return TRUE;
}

void CRecordingDialog::OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar) {
    note(std::to_string(pScrollBar->GetDlgCtrlID()) + " scrolls " + std::to_string(nSBCode) + " " +
         std::to_string(nPos));
}
