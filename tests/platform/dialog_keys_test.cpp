#include "support/recording_dialog.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QLineEdit>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

enum Id { FIRST = 11, GROUP, HIDDEN, OFF, RADIO_A, RADIO_B, RADIO_C, SECOND, PUSH };

class DialogKeys : public testing::Test {
protected:
    void open(DWORD pushStyle = BS_PUSHBUTTON) {
        m_dialog.open({
            dialogItem(PUSH, "Button", pushStyle | WS_TABSTOP, {0, 100, 40, 14}, "Push"),
            dialogItem(FIRST, "Edit", WS_TABSTOP, {50, 0, 40, 12}, "text"),
            dialogItem(GROUP, "Button", BS_GROUPBOX, {0, 40, 190, 30}, "Group"),
            dialogItem(HIDDEN, "Edit", WS_TABSTOP, {0, 0, 40, 12}),
            dialogItem(OFF, "Edit", WS_TABSTOP | WS_DISABLED, {0, 0, 40, 12}),
            dialogItem(RADIO_A, "Button", BS_AUTORADIOBUTTON | BS_PUSHLIKE | WS_GROUP | WS_TABSTOP,
                       {0, 50, 20, 14}),
            dialogItem(RADIO_B, "Button", BS_AUTORADIOBUTTON | BS_PUSHLIKE, {30, 50, 20, 14}),
            dialogItem(RADIO_C, "Button", BS_AUTORADIOBUTTON | BS_PUSHLIKE, {60, 50, 20, 14}),
            dialogItem(SECOND, "Edit", WS_TABSTOP | WS_GROUP, {0, 80, 40, 12}),
        });
        m_dialog.GetDlgItem(HIDDEN)->ShowWindow(SW_HIDE);
    }
    static QString focused() {
        return QApplication::focusWidget() != nullptr ? QApplication::focusWidget()->objectName() : "";
    }
    QStringList walk(Qt::Key key, int presses, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QStringList ids;
        for (int i = 0; i < presses; ++i) {
            ui::press(key, modifiers);
            ids << focused();
        }
        return ids;
    }

    CRecordingDialog m_dialog;
};

TEST_F(DialogKeys, TabWalksTheTemplateOrder) {
    open();
    EXPECT_EQ(focused(), "19");
    EXPECT_THAT(walk(Qt::Key_Tab, 4), ElementsAre("11", "15", "18", "19"));
    ::SendMessage(::GetDlgItem(m_dialog.m_hWnd, RADIO_C), BM_SETCHECK, 1, 0);
    EXPECT_THAT(walk(Qt::Key_Backtab, 4, Qt::ShiftModifier), ElementsAre("18", "17", "11", "19"))
        << "a group is entered at its checked button";
    ui::press(Qt::Key_Tab);
    EXPECT_EQ(m_dialog.at<QLineEdit>(FIRST).selectedText(), "text");
}

TEST_F(DialogKeys, EnterInAnEditPressesTheDefaultButtonUnlessItIsDisabled) {
    open(BS_DEFPUSHBUTTON);
    m_dialog.at(FIRST).setFocus();
    m_dialog.takeHeard();
    ui::press(Qt::Key_Return);
    EXPECT_THAT(m_dialog.takeHeard(), ElementsAre("19 clicked"));
    m_dialog.GetDlgItem(PUSH)->EnableWindow(FALSE);
    ui::press(Qt::Key_Return);
    EXPECT_THAT(m_dialog.takeHeard(), IsEmpty());
}

} // namespace
