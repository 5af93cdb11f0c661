#pragma once

#include "platform/dialog_template.h"
#include "platform/framework.h"

#include <QImage>
#include <QWidget>

#include <vector>

/// A modeless dialog of buttons side by side at a place of its own on the screen, which writes down whose
/// colour changed.
class CSurfaceDialog : public CDialog {
public:
    static constexpr int FIRST_ID = 1000;
    static constexpr int BUTTON_WIDTH = 60;  ///< dialog units
    static constexpr int BUTTON_HEIGHT = 20; ///< dialog units

    /// The controls to stand on the buttons, from the left, with the ids FIRST_ID and up.
    CSurfaceDialog(std::vector<CWnd*> controls, int left, int top);

    /// The widget of the control with this place.
    QWidget* button(int place);

    std::vector<int> m_changed; ///< places

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg LRESULT onColourChanged(WPARAM wParam, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

private:
    QWidget* window() { return QWidget::find(reinterpret_cast<WId>(m_hWnd)); }

    std::vector<CWnd*> m_controls;
};

/// What the widget shows, pixel by pixel, after all waiting paints.
QImage pictureOf(QWidget* widget);
