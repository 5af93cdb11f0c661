#include "controls/editor_dialog.h"

#include "support/recording_dialog.h"

#include <QTest>

#include <gtest/gtest.h>

namespace {

enum ControlId { FRAME = 10, TOGGLE, FIRST_EDIT, SECOND_EDIT, STRADDLING, ADVANCED, ADVANCED_OFF };

/// A framed part on the left; one control reaches out of it and two stand outside.
DialogTemplate layout() {
    return dialogLayout({
        dialogItem(FRAME, "Static", SS_BLACKFRAME, {5, 4, 90, 80}),
        dialogItem(TOGGLE, "Button", WS_TABSTOP, {8, 8, 50, 14}),
        dialogItem(FIRST_EDIT, "Edit", WS_TABSTOP, {8, 26, 50, 12}),
        dialogItem(SECOND_EDIT, "Edit", WS_TABSTOP, {8, 42, 50, 12}),
        dialogItem(STRADDLING, "Button", WS_TABSTOP, {80, 60, 30, 14}),
        dialogItem(ADVANCED, "Button", WS_TABSTOP, {120, 8, 50, 14}),
        dialogItem(ADVANCED_OFF, "Button", WS_TABSTOP | WS_DISABLED, {120, 26, 50, 14}),
    });
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
    void SetUp() override {
        EXPECT_TRUE(m_dialog.CreateIndirect(layout(), nullptr));
        window()->activateWindow();
        EXPECT_TRUE(ui::waitUntilActive(window()));
    }

    static QWidget* window() { return ui::dialog(CRecordingDialog::TEMPLATE_ID); }
    static QWidget* control(int id) { return &ui::control(*window(), id); }
    static void click(int id) { ui::click(*control(id)); }
    static bool isEnabled(int id) { return control(id)->isEnabled(); }
    static QString caption() { return control(TOGGLE)->property("text").toString(); }

    CTestDialog m_dialog;
};

} // namespace

TEST_F(ExpandingDialogTest, TheToggleExpandsAndCollapses) {
    const QRect collapsed = window()->frameGeometry();
    EXPECT_EQ(window()->rect().bottomRight(), control(FRAME)->geometry().bottomRight());
    EXPECT_TRUE(isEnabled(STRADDLING)) << "it touches the frame";
    EXPECT_FALSE(isEnabled(ADVANCED));
    m_dialog.m_bAllow = false;
    click(TOGGLE);
    EXPECT_EQ(window()->frameGeometry(), collapsed) << "refused";
    m_dialog.m_bAllow = true;
    click(TOGGLE);
    EXPECT_TRUE(window()->rect().contains(control(ADVANCED)->geometry()));
    EXPECT_TRUE(isEnabled(ADVANCED));
    EXPECT_TRUE(isEnabled(ADVANCED_OFF)) << "whatever it was before";
    EXPECT_EQ(caption(), "Less <<");
    EXPECT_TRUE(control(FIRST_EDIT)->hasFocus()) << "the control after the toggle";

    click(TOGGLE);
    EXPECT_EQ(window()->frameGeometry(), collapsed);
    EXPECT_EQ(caption(), "More >>");
    EXPECT_FALSE(isEnabled(ADVANCED));
    EXPECT_FALSE(control(FRAME)->isVisible());
    EXPECT_EQ(m_dialog.m_asked, (std::vector<int>{0, 0, 1}));
    EXPECT_EQ(m_dialog.m_toggled, (std::vector<int>{1, 0}));
}

TEST_F(ExpandingDialogTest, EnterMovesOnFromAnEditAndPressesAButton) {
    control(FIRST_EDIT)->setFocus();
    QTest::keyClick(control(FIRST_EDIT), Qt::Key_Return);
    EXPECT_TRUE(control(SECOND_EDIT)->hasFocus());
    QTest::keyClick(control(SECOND_EDIT), Qt::Key_Return);
    EXPECT_TRUE(control(STRADDLING)->hasFocus());
    EXPECT_EQ(m_dialog.m_nPressed, 0);
    QTest::keyClick(control(STRADDLING), Qt::Key_Return);
    EXPECT_EQ(m_dialog.m_nPressed, 1);
    EXPECT_TRUE(control(STRADDLING)->hasFocus());
}
