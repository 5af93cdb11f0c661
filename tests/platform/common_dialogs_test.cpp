#include "support/modal_steps.h"
#include "support/recording_dialog.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QColorDialog>
#include <QMessageBox>

namespace {

TEST(MessageBox, AnswersWithTheButtonPressed) {
    const struct {
        UINT type;
        QMessageBox::StandardButton pressed;
        int answer;
    } cases[] = {
        {MB_OK, QMessageBox::Ok, IDOK},
        {MB_OKCANCEL | MB_ICONSTOP, QMessageBox::Cancel, IDCANCEL},
        {MB_YESNO | MB_ICONQUESTION, QMessageBox::Yes, IDYES},
        {MB_YESNO, QMessageBox::No, IDNO},
    };
    for (const auto& asked : cases) {
        CModalSteps user({[&asked](QWidget* window) {
            ui::click(*dynamic_cast<QMessageBox&>(*window).button(asked.pressed));
        }});
        EXPECT_EQ(AfxMessageBox("50 % & more?", asked.type), asked.answer);
    }
}

TEST(ColorDialog, StartsWithTheColourAndKeepsItOnCancel) {
    CColorDialog dialog(RGB(10, 20, 30), CC_FULLOPEN | CC_ANYCOLOR);
    {
        CModalSteps user({[](QWidget* window) {
            auto& shown = dynamic_cast<QColorDialog&>(*window);
            EXPECT_EQ(shown.currentColor(), QColor(10, 20, 30));
            shown.setCurrentColor(Qt::red);
            shown.reject();
        }});
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    }
    EXPECT_EQ(dialog.GetColor(), RGB(10, 20, 30));
    CModalSteps user({[](QWidget* window) {
        dynamic_cast<QColorDialog&>(*window).setCurrentColor(QColor(1, 2, 3));
        dynamic_cast<QColorDialog&>(*window).accept();
    }});
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetColor(), RGB(1, 2, 3));
}

} // namespace
