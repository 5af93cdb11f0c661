#include "controls/editor_dialog.h"

#include "platform/dialog_template.h"
#include "support/ui_driver.h"

#include <QTest>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

enum ControlId {
    FRAME = 10,
    TOGGLE = 11,
    FIRST_EDIT = 12,
    SECOND_EDIT = 13,
    STRADDLING = 14,
    ADVANCED = 15,
    ADVANCED_OFF = 16,
};

DialogItem item(int id, DialogRect rect, const char* windowClass, DWORD style) {
    DialogItem made;
    made.id = id;
    made.rect = rect;
    made.style = style | WS_CHILD | WS_VISIBLE;
    made.windowClass = windowClass;
    return made;
}

/// A framed part on the left; one control reaches out of it and two stand outside.
DialogTemplate layout() {
    DialogTemplate made;
    made.id = 7;
    made.rect = {0, 0, 200, 100};
    made.style = WS_POPUP | WS_CAPTION | WS_VISIBLE;
    made.caption = "Expanding";
    made.items = {
        item(FRAME, {5, 4, 90, 80}, "Static", SS_BLACKFRAME),
        item(TOGGLE, {8, 8, 50, 14}, "Button", BS_PUSHBUTTON | WS_TABSTOP),
        item(FIRST_EDIT, {8, 26, 50, 12}, "Edit", ES_AUTOHSCROLL | WS_TABSTOP),
        item(SECOND_EDIT, {8, 42, 50, 12}, "Edit", ES_AUTOHSCROLL | WS_TABSTOP),
        item(STRADDLING, {80, 60, 30, 14}, "Button", BS_PUSHBUTTON | WS_TABSTOP),
        item(ADVANCED, {120, 8, 50, 14}, "Button", BS_PUSHBUTTON | WS_TABSTOP),
        item(ADVANCED_OFF, {120, 26, 50, 14}, "Button", BS_PUSHBUTTON | WS_TABSTOP | WS_DISABLED),
    };
    return made;
}

class CTestDialog : public CEditorDialog {
public:
    CTestDialog() : CEditorDialog(0, nullptr, FRAME, TOGGLE, "More >>", "Less <<", 1) {}

    bool m_bAllow = true;
    std::vector<int> m_asked;
    std::vector<int> m_toggled;
    int m_nPressed = 0;

protected:
    BOOL canToggle(int currentState) override {
        m_asked.push_back(currentState);
        return m_bAllow ? TRUE : FALSE;
    }
    void onToggled(int newState) override { m_toggled.push_back(newState); }
    void onPressed() { ++m_nPressed; }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CTestDialog, CEditorDialog)
ON_BN_CLICKED(STRADDLING, &CTestDialog::onPressed)
END_MESSAGE_MAP()

class ExpandingDialogTest : public testing::Test {
protected:
    CTestDialog& open() {
        m_pDialog = std::make_unique<CTestDialog>();
        EXPECT_TRUE(m_pDialog->CreateIndirect(layout(), nullptr));
        window()->activateWindow();
        EXPECT_TRUE(ui::waitUntilActive(window()));
        return *m_pDialog;
    }

    static QWidget* window() { return ui::dialog(7); }
    static QWidget* control(int id) { return &ui::control(*window(), id); }
    static void click(int id) { ui::click(*control(id)); }

    CRect rectOf(int id) const {
        CRect rect;
        m_pDialog->GetDlgItem(id)->GetWindowRect(&rect);
        return rect;
    }
    CRect dialogRect() const {
        CRect rect;
        m_pDialog->GetWindowRect(&rect);
        return rect;
    }
    bool isEnabled(int id) const { return m_pDialog->GetDlgItem(id)->IsWindowEnabled() != FALSE; }
    bool isShown(int id) const { return ::IsWindowVisible(m_pDialog->GetDlgItem(id)->m_hWnd) != FALSE; }
    CString caption(int id) const {
        CString text;
        m_pDialog->GetDlgItem(id)->GetWindowText(text);
        return text;
    }

    std::unique_ptr<CTestDialog> m_pDialog;
};

} // namespace

TEST_F(ExpandingDialogTest, TheToggleExpandsAndCollapses) {
    CTestDialog& dialog = open();
    const CSize collapsed = dialogRect().Size();
    const CRect before = dialogRect();
    EXPECT_EQ(before.right, rectOf(FRAME).right);
    EXPECT_EQ(before.bottom, rectOf(FRAME).bottom);
    EXPECT_TRUE(isEnabled(STRADDLING)) << "it touches the frame";
    EXPECT_FALSE(isEnabled(ADVANCED));
    click(TOGGLE);
    const CSize full = dialogRect().Size();
    EXPECT_GT(full.cx, rectOf(ADVANCED).right - dialogRect().left);
    EXPECT_TRUE(isEnabled(ADVANCED));
    EXPECT_TRUE(isEnabled(ADVANCED_OFF)) << "whatever it was before";
    EXPECT_EQ(caption(TOGGLE), "Less <<");
    EXPECT_TRUE(control(FIRST_EDIT)->hasFocus()) << "the control after the toggle";

    click(TOGGLE);
    EXPECT_EQ(dialogRect().Size().cx, collapsed.cx);
    EXPECT_EQ(dialogRect().Size().cy, collapsed.cy);
    EXPECT_EQ(dialogRect().left, before.left);
    EXPECT_EQ(dialogRect().top, before.top);
    EXPECT_EQ(caption(TOGGLE), "More >>");
    EXPECT_FALSE(isEnabled(ADVANCED));
    EXPECT_FALSE(isShown(FRAME));
    EXPECT_EQ(dialog.m_asked, (std::vector<int>{0, 1}));
    EXPECT_EQ(dialog.m_toggled, (std::vector<int>{1, 0}));
}

TEST_F(ExpandingDialogTest, ARefusedToggleChangesNothing) {
    CTestDialog& dialog = open();
    const CRect before = dialogRect();
    dialog.m_bAllow = false;
    click(TOGGLE);
    EXPECT_EQ(dialogRect().Width(), before.Width());
    EXPECT_FALSE(isEnabled(ADVANCED));
    EXPECT_TRUE(dialog.m_toggled.empty());
}

TEST_F(ExpandingDialogTest, EnterMovesOnFromAnEditAndPressesAButton) {
    CTestDialog& dialog = open();
    control(FIRST_EDIT)->setFocus();
    QTest::keyClick(control(FIRST_EDIT), Qt::Key_Return);
    EXPECT_TRUE(control(SECOND_EDIT)->hasFocus());
    QTest::keyClick(control(SECOND_EDIT), Qt::Key_Return);
    EXPECT_TRUE(control(STRADDLING)->hasFocus());
    EXPECT_EQ(dialog.m_nPressed, 0);
    QTest::keyClick(control(STRADDLING), Qt::Key_Return);
    EXPECT_EQ(dialog.m_nPressed, 1);
    EXPECT_TRUE(control(STRADDLING)->hasFocus());
}

TEST_F(ExpandingDialogTest, ARequestToCloseDestroysTheWindow) {
    CTestDialog& dialog = open();
    window()->close();
    EXPECT_EQ(dialog.GetSafeHwnd(), nullptr);
    EXPECT_EQ(window(), nullptr);

    CTestDialog modal;
    ASSERT_TRUE(modal.InitModalIndirect(layout()));
    QTimer::singleShot(0, [] { window()->close(); });
    EXPECT_EQ(modal.DoModal(), IDCANCEL);
    EXPECT_EQ(window(), nullptr);
}
