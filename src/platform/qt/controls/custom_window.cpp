#include "platform/qt/controls/custom_window.h"

#include <QFrame>

namespace qtbackend {

namespace {

class CustomWidget : public QFrame {
public:
    explicit CustomWidget(QWidget* parent) : QFrame(parent) { setMouseTracking(true); }
    void setWindow(CustomWindow* window) { m_pWindow = window; }

protected:
    void paintEvent(QPaintEvent* event) override {
        QFrame::paintEvent(event);
        if (m_pWindow != nullptr) {
            m_pWindow->paint();
        }
    }

private:
    QPointer<CustomWindow> m_pWindow;
};

} // namespace

CustomWindow::CustomWindow(Window& parent, const ControlTraits& traits)
    : Window(new CustomWidget(parent.widget()), &parent, traits.window) {
    auto& frame = static_cast<CustomWidget&>(*widget());
    frame.setWindow(this);
    if ((traits.exStyle & (WS_EX_CLIENTEDGE | WS_EX_STATICEDGE)) != 0) {
        frame.setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Sunken));
        frame.setLineWidth((traits.exStyle & WS_EX_CLIENTEDGE) != 0 ? 2 : 1);
    }
}

QRect CustomWindow::clientRect() const {
    return widget()->contentsRect();
}

void CustomWindow::paint() {
    if (!isEnding()) {
        ::SendMessage(handle(), WM_PAINT, 0, 0);
    }
}

} // namespace qtbackend
