#include "platform/recording_dialog.h"

#include <gtest/gtest.h>

#include <QApplication>

namespace {

// This program has no application object of its own. The cases run in their order.

constexpr int EDIT_ID = 11;

DialogTemplate layout() {
    return dialogLayout({dialogItem(EDIT_ID, "Edit", WS_TABSTOP, {0, 0, 40, 12})});
}

TEST(HostWithoutQt, AnApplicationWithoutWidgetsGetsNoDialogs) {
    int count = 1;
    char name[] = "host";
    char* arguments[] = {&name[0], nullptr};
    const QCoreApplication console(count, &arguments[0]);
    CRecordingDialog dialog;
    EXPECT_FALSE(dialog.CreateIndirect(layout()));
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_EQ(AfxMessageBox("Nobody sees this"), IDCANCEL);
}

TEST(HostWithoutQt, GetsAnApplicationOnFirstNeedThatStays) {
    EXPECT_EQ(QCoreApplication::instance(), nullptr);
    const HWND hostWindow = reinterpret_cast<HWND>(std::uintptr_t{0x7654321});
    for (int opening = 0; opening < 2; ++opening) {
        CRecordingDialog dialog;
        ASSERT_TRUE(dialog.CreateIndirect(layout(), CWnd::FromHandle(hostWindow)));
        ASSERT_TRUE(ui::waitUntilActive(ui::dialog(CRecordingDialog::TEMPLATE_ID)));
        EXPECT_EQ(::GetParent(dialog.m_hWnd), hostWindow);
        ui::type(dialog.at(EDIT_ID), "7");
        CString text;
        EXPECT_EQ(dialog.GetDlgItemText(EDIT_ID, text), 1);
    }
    ASSERT_NE(qApp, nullptr);
    EXPECT_FALSE(QGuiApplication::quitOnLastWindowClosed());
    delete qApp; // it is the process's to end
}

} // namespace
