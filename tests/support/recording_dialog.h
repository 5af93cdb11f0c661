#pragma once

#include "platform/dialog_template.h"
#include "platform/framework.h"
#include "support/ui_driver.h"

#include <functional>
#include <string>
#include <vector>

/// A control of a small dialog: its id, class, style beside WS_CHILD | WS_VISIBLE, place and text.
DialogItem dialogItem(int id, const char* windowClass, DWORD style, DialogRect rect, const char* text = "");

/// A template of 200 by 150 dialog units with the id CRecordingDialog::templateId.
DialogTemplate dialogLayout(std::vector<DialogItem> items);

/// A modeless dialog that writes down what its controls report, as "id what". What it exchanges and what it
/// does on hearing something is the test's.
class CRecordingDialog : public CDialog {
public:
    static constexpr int TEMPLATE_ID = 500;

    std::function<void(CDataExchange*)> exchange;
    std::function<void(const std::string&)> onNote;

    /// Made of these controls, on the screen, and with nothing heard yet.
    void open(std::vector<DialogItem> items);
    /// What was heard since the last call.
    std::vector<std::string> takeHeard();
    template <class Kind = QWidget> Kind& at(int id) const {
        return ui::control<Kind>(*ui::dialog(TEMPLATE_ID), id);
    }

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
    afx_msg void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar);

    DECLARE_MESSAGE_MAP()

private:
    void note(const std::string& text);

    std::vector<std::string> m_heard;
};
