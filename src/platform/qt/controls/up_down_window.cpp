#include "platform/qt/controls/up_down_window.h"

#include "platform/framework/controls/spin_button_ctrl.h"
#include "platform/qt/controls/edit_window.h"
#include "platform/qt/dispatch_scope.h"
#include "platform/qt/window_registry.h"
#include "platform/windows/control_messages.h"

#include <QAbstractSpinBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QStylePainter>

#include <algorithm>
#include <utility>

namespace qtbackend {

namespace {

/// The arrows of a spin box without its text.
class CArrowPair : public QAbstractSpinBox {
public:
    explicit CArrowPair(QWidget* parent) : QAbstractSpinBox(parent) {
        setFocusPolicy(Qt::NoFocus);
        lineEdit()->hide();
    }
    void setWindow(CUpDownWindow* window) { m_pWindow = window; }
    void stepBy(int steps) override {
        const int runsBefore = modalRuns();
        if (m_pWindow != nullptr) {
            m_pWindow->step(steps > 0);
        }
        if (modalRuns() != runsBefore) {
            release();
        }
    }

protected:
    StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }

    /// What the style leaves for the text beside the arrows is not shown.
    void paintEvent(QPaintEvent*) override {
        QStyleOptionSpinBox option;
        initStyleOption(&option);
        const QRect arrows = style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, this);
        constexpr int LINE = 1; // divides them from the text
        QStylePainter painter(this);
        painter.setClipRect(rect().adjusted(std::max(0, arrows.left() - LINE), 0, 0, 0));
        painter.drawComplexControl(QStyle::CC_SpinBox, option);
    }

private:
    /// A dialog took the release of the button: without one the arrow would step on for ever.
    void release() {
        QFocusEvent lost(QEvent::FocusOut, Qt::OtherFocusReason);
        focusOutEvent(&lost);
    }

    QPointer<CUpDownWindow> m_pWindow;
};

} // namespace

CUpDownWindow::CUpDownWindow(CWindow& parent, const ControlTraits& traits)
    : CInputWindow(new CArrowPair(parent.widget()), &parent, traits.window) {
    static_cast<CArrowPair&>(*widget()).setWindow(this);
    widget()->installEventFilter(this);
}

void CUpDownWindow::onCreated() {
    if ((style() & UDS_AUTOBUDDY) != 0) {
        setBuddy(::GetWindow(handle(), GW_HWNDPREV));
    }
}

std::unique_ptr<CWnd> CUpDownWindow::makeStandIn() const {
    return std::make_unique<CSpinButtonCtrl>();
}

CWindow* CUpDownWindow::buddy() const {
    return CWindowRegistry::instance().find(m_buddy);
}

void CUpDownWindow::setBuddy(HWND window) {
    m_buddy = window;
    if ((style() & UDS_ARROWKEYS) != 0) {
        if (auto* const edit = dynamic_cast<CEditWindow*>(buddy())) {
            edit->setArrowKeys([upDown = QPointer(this)](Qt::Key key) {
                if (upDown != nullptr) {
                    upDown->step(key == Qt::Key_Up);
                }
                return upDown != nullptr;
            });
        }
    }
    standBesideBuddy();
}

/// Takes its place out of the buddy's where the style says so.
void CUpDownWindow::standBesideBuddy() {
    const bool right = (style() & UDS_ALIGNRIGHT) != 0;
    if (buddy() == nullptr || (!right && (style() & UDS_ALIGNLEFT) == 0)) {
        return;
    }
    QRect whole = buddy()->widget()->geometry();
    QRect own(whole.topLeft(), QSize(widget()->width(), whole.height()));
    if (right) {
        own.moveRight(whole.right());
        whole.setRight(own.left() - 1);
    } else {
        whole.setLeft(own.right() + 1);
    }
    setGeometry(own);
    buddy()->setGeometry(whole);
}

LRESULT CUpDownWindow::process(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case UDM_SETRANGE32:
        m_nLower = static_cast<int>(wParam);
        m_nUpper = static_cast<int>(lParam);
        return 0;
    case UDM_SETPOS32:
        return setPosition(static_cast<int>(lParam));
    case UDM_GETPOS32:
        return m_nPosition;
    default:
        return CInputWindow::process(message, wParam, lParam);
    }
}

int CUpDownWindow::setPosition(int position) {
    const auto [low, high] = std::minmax(m_nLower, m_nUpper);
    const int former = std::exchange(m_nPosition, std::clamp(position, low, high));
    if ((style() & UDS_SETBUDDYINT) != 0 && buddy() != nullptr) {
        buddy()->setText(QString::number(m_nPosition));
    }
    return former;
}

void CUpDownWindow::step(bool up) {
    if (isEnding() || !widget()->isEnabled()) {
        return;
    }
    const QPointer<CUpDownWindow> alive = this;
    NMUPDOWN record;
    record.iPos = m_nPosition;
    record.iDelta = up == (m_nUpper >= m_nLower) ? 1 : -1;
    const LRESULT veto = notify(record.hdr, UDN_DELTAPOS);
    if (alive == nullptr || isEnding() || veto != 0) {
        return;
    }
    const auto [low, high] = std::minmax(m_nLower, m_nUpper);
    const int next = std::clamp(m_nPosition + record.iDelta, low, high);
    if (next != m_nPosition) {
        setPosition(next);
    }
}

/// A press first gives the buddy the focus, so that what was typed elsewhere is taken over before the step. A
/// wheel turned on the way past changes nothing.
bool CUpDownWindow::onEvent(QObject*, QEvent* event) {
    if (event->type() == QEvent::Wheel && (buddy() == nullptr || !buddy()->widget()->hasFocus())) {
        event->ignore();
        return true;
    }
    if (event->type() != QEvent::MouseButtonPress || buddy() == nullptr || !widget()->isEnabled()) {
        return false;
    }
    const int runsBefore = modalRuns();
    buddy()->widget()->setFocus(Qt::OtherFocusReason);
    return isEnding() || modalRuns() != runsBefore;
}

} // namespace qtbackend
