#include "controls/surface_fixture.h"

#include "controls/colour_button.h"
#include "support/recording_dialog.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

BEGIN_MESSAGE_MAP(CSurfaceDialog, CDialog)
ON_MESSAGE(UM_COLOURCHANGED, &CSurfaceDialog::onColourChanged)
END_MESSAGE_MAP()

CSurfaceDialog::CSurfaceDialog(std::vector<CWnd*> controls, int left, int top)
    : m_controls(std::move(controls)) {
    std::vector<DialogItem> items;
    for (int i = 0; i < static_cast<int>(m_controls.size()); ++i) {
        items.push_back(dialogItem(FIRST_ID + i, "Button", BS_OWNERDRAW,
                                   {BUTTON_WIDTH * i, 0, BUTTON_WIDTH, BUTTON_HEIGHT}));
    }
    DialogTemplate layout = dialogLayout(std::move(items));
    layout.id = FIRST_ID + left + top;
    layout.rect = {0, 0, BUTTON_WIDTH * static_cast<int>(m_controls.size()), BUTTON_HEIGHT};
    CreateIndirect(layout);
    SetWindowPos(nullptr, left, top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window()));
}

void CSurfaceDialog::DoDataExchange(CDataExchange* pDX) {
    for (int i = 0; i < static_cast<int>(m_controls.size()); ++i) {
        DDX_Control(pDX, FIRST_ID + i, *m_controls[static_cast<std::size_t>(i)]);
    }
}

QWidget* CSurfaceDialog::button(int place) {
    return window()->findChild<QWidget*>(QString::number(FIRST_ID + place));
}

LRESULT CSurfaceDialog::onColourChanged(WPARAM, LPARAM lParam) {
    m_changed.push_back(static_cast<int>(lParam) - FIRST_ID);
    return 1;
}

QImage pictureOf(QWidget* widget) {
    QApplication::processEvents();
    return widget->grab().toImage().convertToFormat(QImage::Format_RGB32);
}
