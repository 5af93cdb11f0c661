#include "support/recording_dialog.h"

#include <gmock/gmock.h>

#include <QListWidget>
#include <QTabBar>
#include <QTest>

namespace {

enum Id {
    PUSH = 11,
    TICK,
    RADIO_A,
    RADIO_B,
    RADIO_C,
    OTHER,
    EDIT,
    SPIN,
    SLIDE,
    COMBO,
    LIST,
    TABS,
    DRAWN,
    BAR,
    SEVERAL
};

class ControlNotifications : public testing::Test {
protected:
    void SetUp() override {
        m_dialog.open({
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
            dialogItem(BAR, "ScrollBar", 0, {0, 140, 200, 10}),
            dialogItem(SEVERAL, "ListBox", LBS_NOTIFY | LBS_EXTENDEDSEL | WS_TABSTOP, {140, 60, 60, 60}),
        });
    }
    template <class Control> Control& control(int id) const {
        return *static_cast<Control*>(m_dialog.GetDlgItem(id));
    }
    /// Clicks on a list's row.
    void clickRow(int id, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        auto& list = m_dialog.at<QListWidget>(id);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, modifiers,
                          list.visualItemRect(list.item(row)).center());
    }
    void pressIn(int id, std::initializer_list<Qt::Key> keys) {
        m_dialog.at(id).setFocus();
        for (const Qt::Key key : keys) {
            ui::press(key);
        }
    }

    CRecordingDialog m_dialog;
};

TEST_F(ControlNotifications, WhatThePersonDoesIs) {
    for (const char* text : {"Rock", "Grass"}) {
        control<CComboBox>(COMBO).AddString(text);
        control<CListBox>(LIST).AddString(text);
        control<CTabCtrl>(TABS).InsertItem(0, text);
    }
    control<CComboBox>(COMBO).SetCurSel(0);
    control<CSliderCtrl>(SLIDE).SetRange(0, 10);
    QWidget& spin = m_dialog.at(SPIN);
    const struct {
        std::function<void()> act;
        std::vector<std::string> heard;
    } cases[] = {
        {[&] { ui::click(m_dialog.at(TICK)); }, {"12 clicked"}},
        {[&] { ui::doubleClick(m_dialog.at(DRAWN)); }, {"23 clicked", "23 double-clicked"}},
        {[&] {
             ui::type(m_dialog.at(EDIT), "5");
             ui::click(m_dialog.at(PUSH)); // the edit is left before the click that took its focus
         },
         {"17 left", "11 clicked"}},
        {[&] {
             ui::click(spin, {spin.width() / 2, spin.height() / 4});
             ui::click(spin, {spin.width() / 2, 3 * spin.height() / 4});
             ui::press(Qt::Key_Up); // its buddy has the focus
             ui::press(Qt::Key_Down);
         },
         {"18 steps -1", "18 steps 1", "18 steps -1", "18 steps 1"}},
        {[&] {
             pressIn(SLIDE, {Qt::Key_Right, Qt::Key_End});
         },
         {"17 left", "19 scrolls 1 0", "19 scrolls 7 0"}},
        {[&] { pressIn(COMBO, {Qt::Key_Down}); }, {"20 selected"}},
        {[&] {
             clickRow(LIST, 1);
             auto& list = m_dialog.at<QListWidget>(LIST);
             QTest::mouseDClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                                list.visualItemRect(list.item(1)).center());
         },
         {"21 selected", "21 list double-clicked"}},
        {[&] {
             auto& tabs = m_dialog.at<QTabBar>(TABS);
             ui::click(tabs, tabs.tabRect(0).center());
         },
         {"22 turned"}},
        {[&] {
             for (const int id : {PUSH, RADIO_A, SPIN, DRAWN}) {
                 m_dialog.GetDlgItem(id)->EnableWindow(FALSE);
                 ui::click(m_dialog.at(id));
             }
         },
         {}},
    };
    for (const auto& [act, heard] : cases) {
        act();
        EXPECT_EQ(m_dialog.takeHeard(), heard);
    }
    EXPECT_EQ(::SendMessage(::GetDlgItem(m_dialog.m_hWnd, TICK), BM_GETCHECK, 0, 0), 1);
    EXPECT_EQ(control<CComboBox>(COMBO).GetCurSel(), 1);
    EXPECT_EQ(control<CListBox>(LIST).GetCurSel(), 1);
    CString text("what stood there");
    control<CListBox>(LIST).GetText(2, text);
    EXPECT_STREQ(text, "") << "there are two";
}

TEST_F(ControlNotifications, SlidersAnswerAClickAtAnyHeight) {
    auto& slider = control<CSliderCtrl>(SLIDE);
    QWidget& widget = m_dialog.at(SLIDE);
    slider.SetRange(0, 10);
    for (int y = 0; y < widget.height(); ++y) {
        slider.SetPos(0);
        ui::click(widget, {widget.width() - 3, y});
        EXPECT_EQ(slider.GetPos(), 2) << "a page, clicked at " << y << " of " << widget.height();
    }
}

} // namespace
