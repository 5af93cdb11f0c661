#include "platform/recording_dialog.h"
#include "support/modal_steps.h"

#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QColorDialog>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>

namespace {

using testing::ElementsAre;

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

TEST(FileDialog, OpensOnThePresetDirectoryAndGivesEveryFileChosen) {
    const QTemporaryDir directory;
    for (const char* name : {"a.tga", "b.tga"}) {
        QFile file(directory.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    const CString preset = CString(directory.path().toUtf8().constData()) + "\\*.tga";
    CFileDialog dialog(TRUE, "tga", preset, OFN_ALLOWMULTISELECT | OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                       "TGA Files (*.tga)|*.tga|All Files (*.*)|*.*||");
    CModalSteps user({[&directory](QWidget* window) {
        auto& shown = dynamic_cast<QFileDialog&>(*window);
        EXPECT_EQ(shown.directory().absolutePath(), QDir(directory.path()).absolutePath());
        EXPECT_THAT(shown.nameFilters(), ElementsAre("TGA Files (*.tga)", "All Files (*)"));
        EXPECT_EQ(shown.fileMode(), QFileDialog::ExistingFiles);
        auto* const names = shown.findChild<QLineEdit*>("fileNameEdit");
        names->setFocus();
        names->setText("\"a.tga\" \"b.tga\"");
        ui::press(Qt::Key_Return);
    }});
    ASSERT_EQ(dialog.DoModal(), IDOK);
    std::vector<std::string> names;
    for (POSITION position = dialog.GetStartPosition(); position != nullptr;) {
        names.emplace_back(dialog.GetNextPathName(position));
    }
    EXPECT_THAT(names, ElementsAre(directory.filePath("a.tga").toStdString(),
                                   directory.filePath("b.tga").toStdString()));
}

} // namespace
