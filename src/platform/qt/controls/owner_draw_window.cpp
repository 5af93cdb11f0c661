#include "platform/qt/controls/owner_draw_window.h"

#include "platform/framework/controls/button.h"
#include "platform/qt/device_context.h"
#include "platform/windows/control_messages.h"

#include <QAbstractButton>
#include <QPaintEvent>
#include <QPainter>

#include <utility>

namespace qtbackend {

namespace {

/// Asks its window for its picture. What the object leaves unpainted keeps what was there.
class COwnerDrawButton : public QAbstractButton {
public:
    explicit COwnerDrawButton(QWidget* parent) : QAbstractButton(parent) {
        setAttribute(Qt::WA_OpaquePaintEvent);
    }
    void setWindow(COwnerDrawWindow* window) { m_pWindow = window; }

protected:
    /// Styles take the attribute from a button when they get it.
    bool event(QEvent* event) override {
        const bool handled = QAbstractButton::event(event);
        if (event->type() == QEvent::Polish || event->type() == QEvent::StyleChange) {
            setAttribute(Qt::WA_OpaquePaintEvent);
        }
        return handled;
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        if (!std::exchange(m_bPainted, true)) {
            painter.fillRect(rect(), palette().window());
        }
        if (m_pWindow != nullptr) {
            m_pWindow->paint(painter);
        }
    }

private:
    QPointer<COwnerDrawWindow> m_pWindow;
    bool m_bPainted = false;
};

} // namespace

COwnerDrawWindow::COwnerDrawWindow(CWindow& parent, const ControlTraits& traits)
    : CInputWindow(new COwnerDrawButton(parent.widget()), &parent, traits.window) {
    auto& button = static_cast<COwnerDrawButton&>(*widget());
    button.setWindow(this);
    button.installEventFilter(this);
    // A click gives the focus in the default processing of the press, which the object may leave out.
    button.setFocusPolicy((style() & WS_TABSTOP) != 0 ? Qt::TabFocus : Qt::NoFocus);
    QObject::connect(&button, &QAbstractButton::clicked, this, [this] { notify(BN_CLICKED); });
    COwnerDrawWindow::setText(traits.text);
}

/// The picture is the object's; the text is for tool tip and accessibility. Its first line is the name; the
/// tool tip serves as the description.
void COwnerDrawWindow::setText(const QString& text) {
    m_strText = text;
    widget()->setToolTip(text);
    widget()->setAccessibleName(text.section(QLatin1Char('\n'), 0, 0));
}

LRESULT COwnerDrawWindow::process(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_LBUTTONDBLCLK) {
        notify(BN_DOUBLECLICKED);
        return 0;
    }
    if (message == WM_LBUTTONDOWN) {
        widget()->setFocus(Qt::MouseFocusReason);
    }
    return CInputWindow::process(message, wParam, lParam);
}

std::unique_ptr<CWnd> COwnerDrawWindow::makeStandIn() const {
    return std::make_unique<CButton>();
}

UINT COwnerDrawWindow::itemState() const {
    const auto& button = static_cast<const QAbstractButton&>(*widget());
    return (button.isDown() ? ODS_SELECTED : 0) | (button.isEnabled() ? 0 : ODS_DISABLED) |
           (button.hasFocus() ? ODS_FOCUS : 0);
}

void COwnerDrawWindow::paint(QPainter& painter) {
    if (isEnding() || parentWindow() == nullptr) {
        return;
    }
    HDC__ context(painter);
    DRAWITEMSTRUCT item;
    item.CtlID = static_cast<UINT>(id());
    item.itemState = itemState();
    item.hwndItem = handle();
    item.hDC = &context;
    item.rcItem = {0, 0, widget()->width(), widget()->height()};
    ::SendMessage(parentWindow()->handle(), WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
}

} // namespace qtbackend
