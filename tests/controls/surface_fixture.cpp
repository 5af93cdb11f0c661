#include "controls/surface_fixture.h"

#include "controls/colour_button.h"
#include "controls/texture_picker_button.h"
#include "support/recording_dialog.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

BEGIN_MESSAGE_MAP(CSurfaceDialog, CDialog)
ON_MESSAGE(UM_COLOURCHANGED, &CSurfaceDialog::onColourChanged)
ON_MESSAGE(UM_TEXTURECHANGED, &CSurfaceDialog::onTextureChanged)
END_MESSAGE_MAP()

CSurfaceDialog::CSurfaceDialog(std::vector<CWnd*> controls, DWORD style, int left, int top)
    : m_controls(std::move(controls)) {
    std::vector<DialogItem> items;
    for (int i = 0; i < static_cast<int>(m_controls.size()); ++i) {
        items.push_back(
            dialogItem(FIRST_ID + i, "Button", style, {BUTTON_WIDTH * i, 0, BUTTON_WIDTH, BUTTON_HEIGHT}));
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

QWidget* CSurfaceDialog::window() {
    return QWidget::find(reinterpret_cast<WId>(m_hWnd));
}

QWidget* CSurfaceDialog::button(int place) {
    return window()->findChild<QWidget*>(QString::number(FIRST_ID + place));
}

LRESULT CSurfaceDialog::note(UINT message, WPARAM wParam, LPARAM lParam) {
    m_sent.push_back({message, wParam, lParam});
    return 1;
}

LRESULT CSurfaceDialog::onColourChanged(WPARAM wParam, LPARAM lParam) {
    return note(UM_COLOURCHANGED, wParam, lParam);
}

LRESULT CSurfaceDialog::onTextureChanged(WPARAM wParam, LPARAM lParam) {
    return note(UM_TEXTURECHANGED, wParam, lParam);
}

QImage pictureOf(QWidget* widget) {
    QApplication::processEvents();
    return widget->grab().toImage().convertToFormat(QImage::Format_RGB32);
}
