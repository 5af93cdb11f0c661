#include "support/recording_dialog.h"

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

enum Id { A = 11, B, EDIT, PUSH };

using Log = std::vector<std::string>;

/// A button that keeps the press to itself, as a colour swatch does, and writes the mouse down.
class CSwatch : public CButton {
public:
    explicit CSwatch(Log& log) : m_log(log) {}
    bool captures = false;

protected:
    afx_msg void OnLButtonDown(UINT, CPoint) {
        note("down");
        if (captures) {
            SetCapture();
        }
    }
    afx_msg void OnLButtonUp(UINT, CPoint point) {
        CRect client;
        GetClientRect(client);
        note(point.x < client.right ? "up" : "up outside");
        ::ReleaseCapture();
    }
    DECLARE_MESSAGE_MAP()

private:
    void note(const std::string& what) { m_log.push_back(std::to_string(GetDlgCtrlID()) + " " + what); }

    Log& m_log;
};

BEGIN_MESSAGE_MAP(CSwatch, CButton)
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
END_MESSAGE_MAP()

class MouseRouting : public testing::Test {
protected:
    void SetUp() override {
        m_dialog.exchange = [this](CDataExchange* pDX) {
            DDX_Control(pDX, A, m_a);
            DDX_Control(pDX, B, m_b);
        };
        m_dialog.open({
            dialogItem(EDIT, "Edit", WS_TABSTOP, {0, 40, 40, 12}),
            dialogItem(A, "Button", BS_OWNERDRAW, {0, 0, 30, 12}),
            dialogItem(B, "Button", BS_OWNERDRAW, {50, 0, 30, 12}),
            dialogItem(PUSH, "Button", WS_TABSTOP, {100, 0, 30, 12}),
        });
    }

    Log m_log;
    CRecordingDialog m_dialog;
    CSwatch m_a{m_log};
    CSwatch m_b{m_log};
};

TEST_F(MouseRouting, ThePlaceBetweenHearsNothing) {
    ui::drag(m_dialog.at(A), m_dialog.at(PUSH));
    ui::drag(m_dialog.at(EDIT), m_dialog.at(B));
    EXPECT_THAT(m_log, ElementsAre("11 down")) << "an edit keeps the mouse until its release";
    EXPECT_THAT(m_dialog.takeHeard(), IsEmpty());
    QWidget& background = *ui::dialog(CRecordingDialog::TEMPLATE_ID);
    ui::dragFrom(background, {5, background.height() - 5}, m_dialog.at(B));
    EXPECT_THAT(m_log, ElementsAre("11 down", "12 up")) << "a dialog's background does not";
}

TEST_F(MouseRouting, AWheelTurnedOnTheWayPastChangesNothing) {
    CRecordingDialog other;
    DialogTemplate layout = dialogLayout({
        dialogItem(EDIT, "Edit", WS_TABSTOP, {0, 40, 40, 12}),
        dialogItem(A, "msctls_trackbar32", WS_TABSTOP, {0, 0, 60, 14}),
        dialogItem(PUSH, "Edit", WS_TABSTOP, {0, 60, 40, 12}),
        dialogItem(B, "msctls_updown32", UDS_AUTOBUDDY | UDS_ALIGNRIGHT, {0, 60, 11, 12}),
    });
    layout.id = CRecordingDialog::TEMPLATE_ID + 1;
    ASSERT_TRUE(other.CreateIndirect(layout));
    QWidget& window = *ui::dialog(layout.id);
    ASSERT_TRUE(ui::waitUntilActive(&window));
    ui::control(window, EDIT).setFocus();
    for (const auto& [turned, meant] : {std::pair(A, A), {B, PUSH}}) {
        ui::control(window, EDIT).setFocus();
        other.takeHeard();
        ui::turnWheel(ui::control(window, turned), 1);
        EXPECT_THAT(other.takeHeard(), IsEmpty()) << turned;
        ui::control(window, meant).setFocus();
        other.takeHeard();
        ui::turnWheel(ui::control(window, turned), 1);
        EXPECT_FALSE(other.takeHeard().empty()) << turned;
    }
}

} // namespace
