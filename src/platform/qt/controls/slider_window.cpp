#include "platform/qt/controls/slider_window.h"

#include "platform/framework/controls/scroll_bar.h"
#include "platform/framework/controls/slider_ctrl.h"
#include "platform/framework/message_state.h"
#include "platform/windows/control_messages.h"

#include <QMouseEvent>
#include <QScrollBar>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>

#include <algorithm>
#include <utility>

namespace qtbackend {

namespace {

int codeOf(int action) {
    switch (action) {
    case QAbstractSlider::SliderSingleStepAdd:
        return SB_LINERIGHT;
    case QAbstractSlider::SliderSingleStepSub:
        return SB_LINELEFT;
    case QAbstractSlider::SliderPageStepAdd:
        return SB_PAGERIGHT;
    case QAbstractSlider::SliderPageStepSub:
        return SB_PAGELEFT;
    case QAbstractSlider::SliderToMinimum:
        return SB_LEFT;
    case QAbstractSlider::SliderToMaximum:
        return SB_RIGHT;
    default:
        return SB_THUMBTRACK;
    }
}

/// Answers a press beside its groove like one on it.
class CTrackbar : public QSlider {
public:
    using QSlider::QSlider;

protected:
    void mousePressEvent(QMouseEvent* event) override {
        QStyleOptionSlider option;
        initStyleOption(&option);
        const auto rectOf = [&](QStyle::SubControl part) {
            return style()->subControlRect(QStyle::CC_Slider, &option, part, this);
        };
        QPoint place = event->position().toPoint();
        if (!rectOf(QStyle::SC_SliderHandle).contains(place)) {
            const QPoint groove = rectOf(QStyle::SC_SliderGroove).center();
            (orientation() == Qt::Horizontal ? place.ry() : place.rx()) =
                orientation() == Qt::Horizontal ? groove.y() : groove.x();
        }
        QMouseEvent moved(event->type(), place, event->globalPosition(), event->button(), event->buttons(),
                          event->modifiers(), event->pointingDevice());
        QSlider::mousePressEvent(&moved);
        event->setAccepted(moved.isAccepted());
    }
};

/// Draws itself again only when something of it looks different: among thousands of positions the next one
/// leaves the thumb on its pixel.
class CScrollBarWidget : public QScrollBar {
public:
    using QScrollBar::QScrollBar;

protected:
    void sliderChange(SliderChange change) override {
        const Look look{thumb(), value() == minimum(), value() == maximum()};
        if (std::exchange(m_look, look) != look || change != SliderValueChange) {
            QScrollBar::sliderChange(change);
        }
    }

private:
    struct Look {
        QRect thumb;
        bool isAtBegin = false;
        bool isAtEnd = false;

        friend bool operator==(const Look&, const Look&) = default;
    };

    QRect thumb() const {
        QStyleOptionSlider option;
        initStyleOption(&option);
        return style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
    }

    Look m_look;
};

} // namespace

CAbstractSliderWindow::CAbstractSliderWindow(QAbstractSlider* slider, CWindow& parent,
                                             const ControlTraits& traits)
    : CInputWindow(slider, &parent, traits.window), m_slider(*slider) {
    m_slider.setFocusPolicy((style() & WS_TABSTOP) != 0 ? Qt::StrongFocus : Qt::ClickFocus);
    m_slider.installEventFilter(this);
    if (!traits.text.isEmpty()) {
        m_slider.setAccessibleName(traits.text);
    }
    QObject::connect(&m_slider, &QAbstractSlider::actionTriggered, this,
                     [this](int action) { m_nCode = codeOf(action); });
    QObject::connect(&m_slider, &QAbstractSlider::valueChanged, this, [this] {
        if (!m_bFromProgram) {
            onMoved(std::exchange(m_nCode, SB_THUMBTRACK));
        }
    });
    QObject::connect(&m_slider, &QAbstractSlider::sliderReleased, this, [this] {
        notifyScroll(m_slider.orientation(), SB_THUMBPOSITION, m_slider.value());
        notifyScroll(m_slider.orientation(), SB_ENDSCROLL, 0);
    });
}

/// A wheel turned on the way past changes nothing.
bool CAbstractSliderWindow::onEvent(QObject*, QEvent* event) {
    if (event->type() == QEvent::Wheel && !m_slider.hasFocus()) {
        event->ignore();
        return true;
    }
    return false;
}

void CAbstractSliderWindow::onMoved(int code) {
    notifyScroll(m_slider.orientation(), code, code == SB_THUMBTRACK ? m_slider.value() : 0);
}

LRESULT CAbstractSliderWindow::setPosition(int position) {
    const CStateScope fromProgram(m_bFromProgram, true);
    const int former = m_slider.value();
    if (former != position) {
        m_slider.setValue(position);
    }
    return former;
}

/// A page is a fifth of the range, as the system has it.
void CAbstractSliderWindow::setRange(int lower, int upper) {
    const CStateScope fromProgram(m_bFromProgram, true);
    m_slider.setRange(lower, upper);
    m_slider.setPageStep(std::max(1, (upper - lower) / 5));
}

CSliderWindow::CSliderWindow(CWindow& parent, const ControlTraits& traits)
    : CAbstractSliderWindow(
          new CTrackbar((traits.window.style & TBS_VERT) != 0 ? Qt::Vertical : Qt::Horizontal,
                        parent.widget()),
          parent, traits) {
    setRange(0, 100);
    if ((style() & TBS_AUTOTICKS) != 0) {
        auto& trackbar = static_cast<QSlider&>(slider());
        trackbar.setTickPosition(QSlider::TicksBelow);
        trackbar.setTickInterval(1);
    }
}

LRESULT CSliderWindow::process(UINT message, WPARAM wParam, LPARAM lParam) {
    const int value = static_cast<int>(lParam);
    switch (message) {
    case TBM_GETPOS:
        return slider().value();
    case TBM_SETPOS:
        setPosition(value);
        return 0;
    case TBM_SETRANGEMIN:
        setRange(value, slider().maximum());
        return 0;
    case TBM_SETRANGEMAX:
        setRange(slider().minimum(), value);
        return 0;
    default:
        return CInputWindow::process(message, wParam, lParam);
    }
}

std::unique_ptr<CWnd> CSliderWindow::makeStandIn() const {
    return std::make_unique<CSliderCtrl>();
}

CScrollBarWindow::CScrollBarWindow(CWindow& parent, const ControlTraits& traits)
    : CAbstractSliderWindow(
          new CScrollBarWidget((traits.window.style & SBS_VERT) != 0 ? Qt::Vertical : Qt::Horizontal,
                               parent.widget()),
          parent, traits) {
    setRange(0, 100);
}

LRESULT CScrollBarWindow::process(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case SBM_GETPOS:
        return m_nPosition;
    case SBM_SETPOS: {
        const int former = m_nPosition;
        m_nPosition = std::clamp(static_cast<int>(wParam), slider().minimum(), slider().maximum());
        setPosition(m_nPosition);
        return former;
    }
    case SBM_SETRANGE:
        setRange(static_cast<int>(wParam), static_cast<int>(lParam));
        m_nPosition = std::clamp(m_nPosition, slider().minimum(), slider().maximum());
        return 0;
    case SBM_GETSCROLLINFO: {
        auto& info = *reinterpret_cast<SCROLLINFO*>(lParam);
        info.nPos = m_nPosition;
        info.nTrackPos = slider().sliderPosition();
        return TRUE;
    }
    default:
        return CInputWindow::process(message, wParam, lParam);
    }
}

/// The thumb follows the mouse while it is dragged; otherwise it stands where the parent has put it.
void CScrollBarWindow::onMoved(int code) {
    CAbstractSliderWindow::onMoved(code);
    if (!isEnding() && !slider().isSliderDown()) {
        setPosition(m_nPosition);
    }
}

std::unique_ptr<CWnd> CScrollBarWindow::makeStandIn() const {
    return std::make_unique<CScrollBar>();
}

} // namespace qtbackend
