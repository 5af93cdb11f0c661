#include "platform/qt/controls/edit_window.h"

#include "platform/framework/controls/edit.h"
#include "platform/qt/dispatch_scope.h"
#include "platform/qt/mouse_router.h"
#include "platform/windows/control_messages.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPixmap>
#include <QScopedValueRollback>
#include <QStyle>
#include <QStyleOptionFrame>

namespace qtbackend {

namespace {

/// Keeps the picture of its frame. Drawing the frame's round corners costs more than drawing the text, and
/// while a movie plays the texts of many fields change with each of its frames, their frames never.
class CFramedEdit : public QLineEdit {
public:
    using QLineEdit::QLineEdit;

    void initStyleOption(QStyleOptionFrame* option) const override {
        QLineEdit::initStyleOption(option);
        if (m_bWithoutFrame) {
            option->rect.adjust(option->lineWidth, option->lineWidth, -option->lineWidth, -option->lineWidth);
            option->lineWidth = 0;
            option->palette.setBrush(QPalette::Base, Qt::NoBrush);
        }
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        // Only of this style is it known that its frame stays outside the room that is left without one.
        if (!style()->inherits("QFusionStyle")) {
            QLineEdit::paintEvent(event);
            return;
        }
        keepFrame();
        QPainter(this).drawPixmap(0, 0, m_frame);
        const QScopedValueRollback<bool> withoutFrame(m_bWithoutFrame, true);
        QLineEdit::paintEvent(event);
    }

private:
    void keepFrame() {
        QStyleOptionFrame option;
        QLineEdit::initStyleOption(&option);
        const qreal ratio = devicePixelRatioF();
        const QSize size = (QSizeF(option.rect.size()) * ratio).toSize();
        if (m_frame.size() == size && m_state == option.state && m_nPaletteKey == option.palette.cacheKey()) {
            return;
        }
        m_state = option.state;
        m_nPaletteKey = option.palette.cacheKey();
        m_frame = QPixmap(size);
        m_frame.setDevicePixelRatio(ratio);
        m_frame.fill(Qt::transparent);
        QPainter painter(&m_frame);
        style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
    }

    QPixmap m_frame;
    QStyle::State m_state;
    qint64 m_nPaletteKey = 0;
    bool m_bWithoutFrame = false;
};

/// A field that the template disables is there to be read, so what stands in it is not greyed.
void letBeRead(QLineEdit& edit) {
    QPalette colours; // with nothing of its own but this
    colours.setColor(QPalette::Disabled, QPalette::Text,
                     edit.palette().color(QPalette::Active, QPalette::Text));
    edit.setPalette(colours);
}

} // namespace

CEditWindow::CEditWindow(CWindow& parent, const ControlTraits& traits)
    : CInputWindow(new CFramedEdit(traits.text, parent.widget()), &parent, traits.window)
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
