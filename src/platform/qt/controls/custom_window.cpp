#include "platform/qt/controls/custom_window.h"

#include "platform/qt/mouse_router.h"

#include <QFrame>
#include <QWheelEvent>

namespace qtbackend {

namespace {

class CCustomWidget : public QFrame {
public:
    explicit CCustomWidget(QWidget* parent) : QFrame(parent) { setMouseTracking(true); }
    void setWindow(CCustomWindow* window) { m_pWindow = window; }

protected:
    void paintEvent(QPaintEvent* event) override {
        QFrame::paintEvent(event);
        if (m_pWindow != nullptr) {
            m_pWindow->paint();
        }
    }

private:
    QPointer<CCustomWindow> m_pWindow;
};

} // namespace

CCustomWindow::CCustomWindow(CWindow& parent, const ControlTraits& traits)
    : CInputWindow(new CCustomWidget(parent.widget()), &parent, traits.window) {
    auto& frame = static_cast<CCustomWidget&>(*widget());
    frame.setWindow(this);
    if ((traits.exStyle & (WS_EX_CLIENTEDGE | WS_EX_STATICEDGE)) != 0) {
        frame.setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Sunken));
        frame.setLineWidth((traits.exStyle & WS_EX_CLIENTEDGE) != 0 ? 2 : 1);
    }
}

QRect CCustomWindow::clientRect() const {
    return widget()->contentsRect();
}

bool CCustomWindow::onEvent(QObject* watched, QEvent* event) {
    return event->type() == QEvent::Wheel && routeWheel(*this, watched, static_cast<QWheelEvent&>(*event));
}

void CCustomWindow::paint() {
    if (!isEnding()) {
        ::SendMessage(handle(), WM_PAINT, 0, 0);
    }
}

} // namespace qtbackend
