#pragma once

#include "platform/dialog_template.h"
#include "platform/framework.h"

#include <QImage>
#include <QWidget>

#include <functional>
#include <vector>

/// A message that a control sent its dialog, and when: the id of the control in lParam.
struct SentMessage {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;

    friend bool operator==(const SentMessage&, const SentMessage&) = default;
};

/// A modeless dialog of buttons side by side at a place of its own on the screen, which writes down what
/// they send it.
class CSurfaceDialog : public CDialog {
public:
    static constexpr int FIRST_ID = 1000;
    static constexpr int BUTTON_WIDTH = 60;  ///< dialog units
    static constexpr int BUTTON_HEIGHT = 20; ///< dialog units

    /// The controls to stand on the buttons, from the left, with the ids FIRST_ID and up. `style` is one of
    /// BS_OWNERDRAW and BS_PUSHBUTTON.
    CSurfaceDialog(std::vector<CWnd*> controls, DWORD style, int left, int top);

    QWidget* window();
    /// The widget of the control with this place.
    QWidget* button(int place);

    std::vector<SentMessage> m_sent;

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    afx_msg LRESULT onColourChanged(WPARAM wParam, LPARAM lParam);
    afx_msg LRESULT onTextureChanged(WPARAM wParam, LPARAM lParam);

    DECLARE_MESSAGE_MAP()

private:
    LRESULT note(UINT message, WPARAM wParam, LPARAM lParam);

    std::vector<CWnd*> m_controls;
};

/// What the widget shows, pixel by pixel, after all waiting paints.
QImage pictureOf(QWidget* widget);
