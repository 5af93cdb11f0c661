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

} // namespace
