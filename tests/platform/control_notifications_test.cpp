#include "platform/recording_dialog.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QSlider>
#include <QTabBar>
#include <QTest>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

enum Id { PUSH = 11, TICK, RADIO_A, RADIO_B, RADIO_C, OTHER, EDIT, SPIN, SLIDE, COMBO, LIST, TABS, DRAWN };

class ControlNotifications : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_dialog.CreateIndirect(dialogLayout({
            dialogItem(PUSH, "Button", WS_TABSTOP, {0, 0, 40, 14}, "Push"),
            dialogItem(TICK, "Button", BS_AUTOCHECKBOX | WS_TABSTOP, {50, 0, 40, 14}, "Tick"),
            dialogItem(RADIO_A, "Button", BS_AUTORADIOBUTTON | WS_GROUP, {0, 20, 40, 14}, "A"),
            dialogItem(RADIO_B, "Button", BS_AUTORADIOBUTTON, {50, 20, 40, 14}, "B"),
            dialogItem(RADIO_C, "Button", BS_AUTORADIOBUTTON | BS_PUSHLIKE, {100, 20, 40, 14}, "C"),
            dialogItem(OTHER, "Button", BS_AUTORADIOBUTTON | WS_GROUP, {150, 20, 40, 14}, "Other"),
            dialogItem(EDIT, "Edit", WS_TABSTOP | WS_GROUP, {0, 40, 40, 12}),
            dialogItem(SPIN, "msctls_updown32", UDS_AUTOBUDDY | UDS_ARROWKEYS, {41, 40, 11, 12}),
            dialogItem(SLIDE, "msctls_trackbar32", WS_TABSTOP, {60, 40, 80, 14}),
            dialogItem(COMBO, "ComboBox", CBS_DROPDOWNLIST | CBS_SORT | WS_TABSTOP, {0, 60, 60, 50}),
            dialogItem(LIST, "ListBox", LBS_NOTIFY | WS_TABSTOP, {70, 60, 60, 40}),
            dialogItem(TABS, "SysTabControl32", WS_TABSTOP, {0, 100, 100, 40}),
            dialogItem(DRAWN, "Button", BS_OWNERDRAW, {110, 110, 20, 20}),
        })));
        ASSERT_TRUE(ui::waitUntilActive(ui::dialog(CRecordingDialog::TEMPLATE_ID)));
        m_dialog.takeHeard();
    }

    CRecordingDialog m_dialog;
};

TEST_F(ControlNotifications, ButtonsReportTheirClicks) {
    ui::click(m_dialog.at(PUSH));
    ui::click(m_dialog.at(TICK));
    EXPECT_THAT(m_dialog.takeHeard(), ElementsAre("11 clicked", "12 clicked"));
    EXPECT_EQ(::SendMessage(::GetDlgItem(m_dialog.m_hWnd, TICK), BM_GETCHECK, 0, 0), 1);
}

TEST_F(ControlNotifications, OneRadioButtonOfAGroupIsChecked) {
    auto& a = m_dialog.at<QAbstractButton>(RADIO_A);
    auto& c = m_dialog.at<QAbstractButton>(RADIO_C);
    ui::click(m_dialog.at(OTHER));
    ui::click(a);
    ui::click(c);
    ui::click(c);
    EXPECT_FALSE(a.isChecked());
    EXPECT_TRUE(c.isChecked()) << "a second click takes nothing away";
    EXPECT_TRUE(m_dialog.at<QAbstractButton>(OTHER).isChecked()) << "it is another group's";
    EXPECT_THAT(m_dialog.takeHeard(), ElementsAre("16 clicked", "13 clicked", "15 clicked", "15 clicked"));
}

TEST_F(ControlNotifications, AnEditIsLeftBeforeTheClickThatTookItsFocus) {
    ui::type(m_dialog.at(EDIT), "5");
    ui::click(m_dialog.at(PUSH));
    EXPECT_THAT(m_dialog.takeHeard(), ElementsAre("17 left", "11 clicked"));
}

TEST_F(ControlNotifications, ArrowsOfAnUpDownStepByClickAndByKey) {
    QWidget& spin = m_dialog.at(SPIN);
    ui::click(spin, {spin.width() / 2, spin.height() / 4});
    ui::click(spin, {spin.width() / 2, 3 * spin.height() / 4});
    EXPECT_TRUE(m_dialog.at(EDIT).hasFocus()) << "its buddy takes the focus";
    ui::press(Qt::Key_Up);
    ui::press(Qt::Key_Down);
    EXPECT_THAT(m_dialog.takeHeard(), ElementsAre("18 steps -1", "18 steps 1", "18 steps -1", "18 steps 1"));
}

TEST_F(ControlNotifications, AVetoedStepLeavesThePosition) {
    auto* const spin = static_cast<CSpinButtonCtrl*>(m_dialog.GetDlgItem(SPIN));
    spin->SetPos(50);
    m_dialog.at(EDIT).setFocus();
    ui::press(Qt::Key_Up);
    EXPECT_EQ(spin->GetPos(), 49);
    m_dialog.veto = 1;
    ui::press(Qt::Key_Up);
    EXPECT_EQ(spin->GetPos(), 49);
}

TEST_F(ControlNotifications, SlidersReportTheUsersMovesOnly) {
    auto* const slider = static_cast<CSliderCtrl*>(m_dialog.GetDlgItem(SLIDE));
    slider->SetRange(1, 10);
    slider->SetPos(0);
    EXPECT_EQ(slider->GetPos(), 1) << "held to the range";
    EXPECT_THAT(m_dialog.takeHeard(), IsEmpty());
    m_dialog.at(SLIDE).setFocus();
    ui::press(Qt::Key_Right);
    ui::press(Qt::Key_End);
    EXPECT_EQ(slider->GetPos(), 10);
    EXPECT_THAT(m_dialog.takeHeard(), ElementsAre("19 scrolls 1 0", "19 scrolls 7 0"));
}

TEST_F(ControlNotifications, SlidersAnswerAClickAtAnyHeight) {
    auto* const slider = static_cast<CSliderCtrl*>(m_dialog.GetDlgItem(SLIDE));
    QWidget& widget = m_dialog.at(SLIDE);
    slider->SetRange(0, 10);
    for (int y = 0; y < widget.height(); ++y) {
        slider->SetPos(0);
        ui::click(widget, {widget.width() - 3, y});
        EXPECT_EQ(slider->GetPos(), 2) << "a page, clicked at " << y << " of " << widget.height();
    }
}

TEST_F(ControlNotifications, CombosSortAndReportTheUsersChoiceOnly) {
    auto* const combo = static_cast<CComboBox*>(m_dialog.GetDlgItem(COMBO));
    EXPECT_EQ(combo->SetItemData(combo->AddString("Rock"), 7), 0);
    EXPECT_EQ(combo->AddString("Grass"), 0);
    combo->SetItemData(0, 9);
    EXPECT_EQ(combo->GetCurSel(), CB_ERR) << "adding selects nothing";
    combo->SetCurSel(0);
    EXPECT_EQ(combo->GetItemData(1), 7U);
    EXPECT_THAT(m_dialog.takeHeard(), IsEmpty());
    m_dialog.at(COMBO).setFocus();
    ui::press(Qt::Key_Down);
    EXPECT_EQ(combo->GetCurSel(), 1);
    EXPECT_THAT(m_dialog.takeHeard(), ElementsAre("20 selected"));
}

TEST_F(ControlNotifications, ListsReportSelectionAndDoubleClick) {
    auto* const list = static_cast<CListBox*>(m_dialog.GetDlgItem(LIST));
    list->AddString("-NONE-");
    list->SetItemData(list->AddString("rock"), 5);
    list->SetCurSel(0);
    EXPECT_THAT(m_dialog.takeHeard(), IsEmpty());
    auto& widget = m_dialog.at<QListWidget>(LIST);
    const QPoint second = widget.visualItemRect(widget.item(1)).center();
    ui::click(*widget.viewport(), second);
    QTest::mouseDClick(widget.viewport(), Qt::LeftButton, Qt::NoModifier, second);
    EXPECT_EQ(list->GetCurSel(), 1);
    EXPECT_EQ(list->GetItemData(1), 5U);
    EXPECT_EQ(list->GetItemData(2), static_cast<DWORD_PTR>(LB_ERR));
    EXPECT_THAT(m_dialog.takeHeard(), ElementsAre("21 selected", "21 list double-clicked"));
}

TEST_F(ControlNotifications, TabsReportTheUsersTurnsOnly) {
    auto* const tabs = static_cast<CTabCtrl*>(m_dialog.GetDlgItem(TABS));
    tabs->InsertItem(0, "Terrain");
    tabs->InsertItem(1, "Details");
    tabs->SetCurSel(0);
    EXPECT_THAT(m_dialog.takeHeard(), IsEmpty());
    auto& widget = m_dialog.at<QTabBar>(TABS);
    ui::click(widget, widget.tabRect(1).center());
    EXPECT_EQ(tabs->GetCurSel(), 1);
    EXPECT_THAT(m_dialog.takeHeard(), ElementsAre("22 turned"));
}

TEST_F(ControlNotifications, OwnerDrawnButtonsReportDoubleClicks) {
    ui::doubleClick(m_dialog.at(DRAWN));
    EXPECT_THAT(m_dialog.takeHeard(), ElementsAre("23 clicked", "23 double-clicked"));
}

TEST_F(ControlNotifications, DisabledControlsHearNoMouse) {
    for (const int id : {PUSH, RADIO_A, SPIN, DRAWN}) {
        m_dialog.GetDlgItem(id)->EnableWindow(FALSE);
        ui::click(m_dialog.at(id));
    }
    EXPECT_THAT(m_dialog.takeHeard(), IsEmpty());
}

} // namespace
