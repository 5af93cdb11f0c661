#include "platform/qt/controls/edit_window.h"

#include "platform/framework/controls/edit.h"
#include "platform/qt/dispatch_scope.h"
#include "platform/qt/mouse_router.h"
#include "platform/windows/control_messages.h"

#include <QFocusEvent>
#include <QKeyEvent>

namespace qtbackend {

namespace {

/// A field that the template disables is there to be read, so what stands in it is not greyed.
void letBeRead(QLineEdit& edit) {
    QPalette colours; // with nothing of its own but this
    colours.setColor(QPalette::Disabled, QPalette::Text,
                     edit.palette().color(QPalette::Active, QPalette::Text));
    edit.setPalette(colours);
}

} // namespace

CEditWindow::CEditWindow(CWindow& parent, const ControlTraits& traits)
    : CInputWindow(new QLineEdit(traits.text, parent.widget()), &parent, traits.window)
    , m_edit(static_cast<QLineEdit&>(*widget())) {
    m_edit.installEventFilter(this);
    m_edit.setReadOnly((style() & ES_READONLY) != 0);
    if ((style() & WS_DISABLED) != 0) {
        letBeRead(m_edit);
    }
    if ((style() & (ES_CENTER | ES_RIGHT)) != 0) {
        m_edit.setAlignment((style() & ES_RIGHT) != 0 ? Qt::AlignRight : Qt::AlignHCenter);
    }
}

LRESULT CEditWindow::process(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case EM_SETSEL:
        select(static_cast<int>(wParam), static_cast<int>(lParam));
        return 0;
    default:
        return CInputWindow::process(message, wParam, lParam);
    }
}

void CEditWindow::setText(const QString& text) {
    m_edit.setText(text);
    m_edit.setCursorPosition(0); // a text longer than the field shows its beginning
}

void CEditWindow::select(int start, int end) {
    if (start < 0) {
        m_edit.deselect();
        return;
    }
    const int length = static_cast<int>(m_edit.text().size());
    m_edit.setSelection(start, (end < 0 ? length : end) - start);
}

std::unique_ptr<CWnd> CEditWindow::makeStandIn() const {
    return std::make_unique<CEdit>();
}

bool CEditWindow::onEvent(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut) {
        watched->event(event);
        onFocusLost(event);
        return true;
    }
    if (event->type() == QEvent::FocusIn &&
        static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason) {
        watched->event(event);
        notify(EN_SETFOCUS);
        return true;
    }
    if (event->type() == QEvent::KeyPress && m_arrowKeys) {
        const auto key = static_cast<Qt::Key>(static_cast<QKeyEvent*>(event)->key());
        return (key == Qt::Key_Up || key == Qt::Key_Down) && m_arrowKeys(key);
    }
    return false;
}

/// The widget has handled the event: a handler that fails may give it the focus and select its text again.
void CEditWindow::onFocusLost(QEvent* event) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason == Qt::PopupFocusReason) {
        return; // its own context menu, or a drop-down list: neither takes the focus
    }
    const int runsBefore = modalRuns();
    notify(EN_KILLFOCUS);
    if (reason == Qt::MouseFocusReason && modalRuns() != runsBefore) {
        discardNextPress();
    }
}

} // namespace qtbackend
