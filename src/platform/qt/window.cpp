#include "platform/qt/window.h"

#include "platform/framework/controls/scroll_bar.h"
#include "platform/qt/native_event.h"

#include <QTimerEvent>

#include <algorithm>
#include <utility>

namespace qtbackend {

CWindow::CWindow(QWidget* widget, CWindow* parent, WindowTraits traits)
    : m_pWidget(widget), m_pWidgetKey(widget), m_pParent(parent), m_traits(std::move(traits)) {}

CWindow::~CWindow() = default;

CWindow* CWindow::child(int id) const {
    const auto found = std::find_if(m_children.begin(), m_children.end(),
                                    [id](const CWindow* candidate) { return candidate->id() == id; });
    return found != m_children.end() ? *found : nullptr;
}

void CWindow::markEnding() {
    m_bEnding = true;
    for (CWindow* control : m_children) {
        control->markEnding();
    }
}

void CWindow::setObject(CWnd* object) {
    m_pObject = object;
    if (object != nullptr && m_pWidget != nullptr) {
        m_pWidget->installEventFilter(this); // moves it when it is installed already
    }
}

CWnd* CWindow::standIn() {
    if (m_pStandIn == nullptr) {
        m_pStandIn = makeStandIn();
        m_pStandIn->m_hWnd = m_handle;
    }
    return m_pStandIn.get();
}

CScrollBar* CWindow::scrollBarStandIn() {
    if (m_pScrollBarStandIn == nullptr) {
        m_pScrollBarStandIn = std::make_unique<CScrollBar>();
        m_pScrollBarStandIn->m_hWnd = m_handle;
    }
    return m_pScrollBarStandIn.get();
}

std::unique_ptr<CWnd> CWindow::makeStandIn() const {
    return std::make_unique<CWnd>();
}

LRESULT CWindow::process(UINT message, WPARAM, LPARAM) {
    if (message == WM_GETDLGCODE) {
        return dialogCode();
    }
    CNativeEvent::pass(this, message);
    return 0;
}

void CWindow::setGeometry(const QRect& rect) {
    if (m_pWidget != nullptr) {
        m_pWidget->setGeometry(rect);
    }
}

QRect CWindow::screenGeometry() const {
    return m_pWidget != nullptr ? QRect(m_pWidget->mapToGlobal(QPoint(0, 0)), m_pWidget->size()) : QRect();
}

QRect CWindow::clientRect() const {
    return m_pWidget != nullptr ? m_pWidget->rect() : QRect();
}

void CWindow::runTimer(UINT_PTR id, UINT milliseconds) {
    stopTimer(id);
    m_timers.emplace_back(id, startTimer(static_cast<int>(milliseconds)));
}

bool CWindow::stopTimer(UINT_PTR id) {
    const auto timer = std::ranges::find(m_timers, id, &std::pair<UINT_PTR, int>::first);
    if (timer == m_timers.end()) {
        return false;
    }
    QObject::killTimer(timer->second);
    m_timers.erase(timer);
    return true;
}

void CWindow::timerEvent(QTimerEvent* event) {
    const auto timer = std::ranges::find(m_timers, event->timerId(), &std::pair<UINT_PTR, int>::second);
    if (timer != m_timers.end() && !m_bEnding) {
        ::SendMessage(m_handle, WM_TIMER, timer->first, 0);
    }
}

void CWindow::notify(int code) {
    if (m_pParent != nullptr && !m_bEnding) {
        ::SendMessage(m_pParent->handle(), WM_COMMAND, MAKEWPARAM(id(), code),
                      reinterpret_cast<LPARAM>(m_handle));
    }
}

LRESULT CWindow::notify(NMHDR& header, UINT code) {
    if (m_pParent == nullptr || m_bEnding) {
        return 0;
    }
    header = {m_handle, static_cast<UINT_PTR>(id()), code};
    return ::SendMessage(m_pParent->handle(), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
}

void CWindow::notifyScroll(Qt::Orientation orientation, int code, int position) {
    if (m_pParent != nullptr && !m_bEnding) {
        ::SendMessage(m_pParent->handle(), orientation == Qt::Horizontal ? WM_HSCROLL : WM_VSCROLL,
                      MAKEWPARAM(code, position), reinterpret_cast<LPARAM>(m_handle));
    }
}

} // namespace qtbackend
