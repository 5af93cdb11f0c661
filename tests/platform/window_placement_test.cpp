#include "platform/resources.h"
#include "platform/windows/back_end.h"
#include "resources/resource_ids.h"
#include "support/recording_dialog.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>

namespace {

enum Id { FRAME = 11, PUSH, ICON, FAR };

class WindowPlacement : public testing::Test {
protected:
    void SetUp() override {
        m_dialog.open({
            dialogItem(FRAME, "Static", SS_BLACKFRAME, {0, 0, 100, 150}),
            dialogItem(PUSH, "Button", BS_PUSHBUTTON, {4, 8, 40, 14}, "Push"),
            dialogItem(ICON, "Button", BS_AUTOCHECKBOX | BS_PUSHLIKE | BS_ICON, {4, 30, 20, 20}, "&Raise"),
            dialogItem(FAR, "Edit", WS_DISABLED, {120, 8, 40, 12}),
        });
    }
    CRect windowRect(int id) {
        CRect rect(0, 0, 0, 0);
        (id == 0 ? &m_dialog : m_dialog.GetDlgItem(id))->GetWindowRect(rect);
        return rect;
    }

    CRecordingDialog m_dialog;
};

TEST_F(WindowPlacement, RepositionBringsTheDialogBackOnTheScreen) {
    const CRect area = ::GetWorkArea(m_dialog.m_hWnd);
    m_dialog.SetWindowPos(nullptr, area.right - 20, area.top - 500, 0, 0, SWP_NOSIZE);
    m_dialog.SendMessage(DM_REPOSITION);
    EXPECT_EQ(windowRect(0).right, area.right);
    EXPECT_EQ(windowRect(0).top, area.top);
}

TEST_F(WindowPlacement, CentresOverItsOwnerWhichMayBeAChildOfTheHost) {
    QWidget host;
    QWidget view(&host);
    host.setGeometry(200, 150, 400, 300);
    view.setGeometry(0, 0, 10, 10);
    host.show();
    CRecordingDialog panel;
    DialogTemplate layout = dialogLayout({});
    layout.id = 501;
    ASSERT_TRUE(panel.CreateIndirect(layout, CWnd::FromHandle(reinterpret_cast<HWND>(view.winId()))));
    QWidget& window = *ui::dialog(501);
    EXPECT_EQ(window.parentWidget(), &host) << "a dialog stands over the whole main window";
    EXPECT_FALSE(window.testAttribute(Qt::WA_QuitOnClose));
    EXPECT_EQ(QWidget::find(reinterpret_cast<WId>(panel.m_hWnd)), &window);
    panel.CenterWindow(CWnd::FromHandle(reinterpret_cast<HWND>(host.winId())));
    EXPECT_LE((window.geometry().center() - host.geometry().center()).manhattanLength(), 2);
}

TEST_F(WindowPlacement, AnIconStandsInForItsCaption) {
    auto& button = m_dialog.at<QPushButton>(ICON);
    EXPECT_EQ(button.text() + button.toolTip() + button.accessibleName(), "RaiseRaise");
    const HICON icon = ::LoadLibraryIcon(2004);
    EXPECT_EQ(static_cast<CButton*>(m_dialog.GetDlgItem(ICON))->SetIcon(icon), nullptr);
    EXPECT_FALSE(button.icon().isNull());
}

TEST_F(WindowPlacement, AWindowMadeInAVisibleOneIsShownWithItsBorder) {
    CWnd made;
    EXPECT_FALSE(made.CreateEx(0, "Unregistered", "", WS_CHILD, CRect(1, 1, 9, 9), &m_dialog, FAR + 1));
    ASSERT_TRUE(made.CreateEx(WS_EX_CLIENTEDGE, AfxRegisterWndClass(CS_HREDRAW), "", WS_CHILD | WS_VISIBLE,
                              CRect(10, 10, 50, 40), &m_dialog, FAR + 1));
    EXPECT_TRUE(m_dialog.at(FAR + 1).isVisible());
    CRect client;
    made.GetClientRect(client);
    EXPECT_EQ(client.Width(), 36);
    EXPECT_NE(CClientDC(&made).m_hDC, nullptr) << "it can be drawn on";
}

/// No text of the library's own dialogs is cut off by its control.
TEST(EmbeddedDialogs, TheirTextsFit) {
    for (const int id : {IDD_TEXTURE_LIST, IDD_MAP_EDITOR, IDD_TERRAIN_TYPE_EDITOR}) {
        CDialog dialog;
        ASSERT_TRUE(dialog.Create(static_cast<UINT>(id)));
        const QWidget& window = *QWidget::find(reinterpret_cast<WId>(dialog.m_hWnd));
        for (const auto* label : window.findChildren<QLabel*>()) {
            EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()), label->width())
                << id << ": " << label->text().toStdString();
        }
        for (const auto* button : window.findChildren<QAbstractButton*>()) {
            EXPECT_LE(button->fontMetrics().horizontalAdvance(button->text()) + 4, button->width())
                << id << ": " << button->text().toStdString();
        }
    }
}

} // namespace
