#include "platform/qt/controls/tab_window.h"

#include "platform/framework/controls/tab_ctrl.h"
#include "platform/framework/message_state.h"
#include "platform/qt/controls/text_items.h"
#include "platform/windows/control_messages.h"

#include <QStyleOptionTabWidgetFrame>
#include <QStylePainter>

namespace qtbackend {

namespace {

/// Tabs with the frame of their page below.
class CTabsOverPage : public QTabBar {
public:
    explicit CTabsOverPage(QWidget* parent) : QTabBar(parent) {
        setDrawBase(false);
        setExpanding(false);
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        const int tabHeight = count() > 0 ? tabRect(0).height() : 0;
        QStyleOptionTabWidgetFrame frame;
        frame.initFrom(this);
        frame.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this);
        frame.tabBarSize = QSize(width(), tabHeight);
        frame.rect = rect().adjusted(0, tabHeight - style()->pixelMetric(QStyle::PM_TabBarBaseOverlap), 0, 0);
        {
            QStylePainter painter(this);
            painter.drawPrimitive(QStyle::PE_FrameTabWidget, frame);
        }
        QTabBar::paintEvent(event);
    }
};

} // namespace

CTabWindow::CTabWindow(CWindow& parent, const ControlTraits& traits)
    : CInputWindow(new CTabsOverPage(parent.widget()), &parent, traits.window)
    , m_tabs(static_cast<QTabBar&>(*widget())) {
    m_tabs.lower();
    m_tabs.installEventFilter(this);
    QObject::connect(&m_tabs, &QTabBar::currentChanged, this, [this] { onChanged(); });
}

std::unique_ptr<CWnd> CTabWindow::makeStandIn() const {
    return std::make_unique<CTabCtrl>();
}

void CTabWindow::onChanged() {
    if (!m_bFromProgram) {
        NMHDR header;
        notify(header, TCN_SELCHANGE);
    }
}

/// A wheel turned over the tabs on the way past changes nothing.
bool CTabWindow::onEvent(QObject*, QEvent* event) {
    if (event->type() == QEvent::Wheel && !m_tabs.hasFocus()) {
        event->ignore();
        return true;
    }
    return false;
}

LRESULT CTabWindow::process(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case TCM_INSERTITEM:
        return insert(static_cast<int>(wParam), toText(lParam));
    case TCM_GETCURSEL:
        return m_tabs.currentIndex();
    case TCM_SETCURSEL:
        return select(static_cast<int>(wParam));
    default:
        return CInputWindow::process(message, wParam, lParam);
    }
}

LRESULT CTabWindow::insert(int index, const QString& text) {
    const CStateScope fromProgram(m_bFromProgram, true);
    return m_tabs.insertTab(index, text);
}

LRESULT CTabWindow::select(int index) {
    const CStateScope fromProgram(m_bFromProgram, true);
    const int former = m_tabs.currentIndex();
    if (index >= 0 && index < m_tabs.count()) {
        m_tabs.setCurrentIndex(index);
    }
    return former;
}

} // namespace qtbackend
