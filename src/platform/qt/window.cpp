#include "platform/qt/window.h"

#include "platform/framework/controls/scroll_bar.h"
#include "platform/qt/key_translation.h"
#include "platform/qt/mouse_router.h"
#include "platform/qt/native_event.h"
#include "platform/qt/window_registry.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace qtbackend {

Window::Window(QWidget* widget, Window* parent, WindowTraits traits)
    : m_pWidget(widget), m_pWidgetKey(widget), m_pParent(parent), m_traits(std::move(traits)) {}

Window::~Window() = default;

Window* Window::child(int id) const {
    const auto found = std::find_if(m_children.begin(), m_children.end(),
                                    [id](const Window* candidate) { return candidate->id() == id; });
    return found != m_children.end() ? *found : nullptr;
}

void Window::markEnding() {
    m_bEnding = true;
    for (Window* control : m_children) {
        control->markEnding();
    }
}

void Window::setObject(CWnd* object) {
    m_pObject = object;
    if (object != nullptr && m_pWidget != nullptr) {
        m_pWidget->installEventFilter(this); // moves it when it is installed already
    }
}

CWnd* Window::standIn() {
    if (m_pStandIn == nullptr) {
        m_pStandIn = makeStandIn();
        m_pStandIn->m_hWnd = m_handle;
    }
    return m_pStandIn.get();
}

CScrollBar* Window::scrollBarStandIn() {
    if (m_pScrollBarStandIn == nullptr) {
        m_pScrollBarStandIn = std::make_unique<CScrollBar>();
        m_pScrollBarStandIn->m_hWnd = m_handle;
    }
    return m_pScrollBarStandIn.get();
}

std::unique_ptr<CWnd> Window::makeStandIn() const {
    return std::make_unique<CWnd>();
}

LRESULT Window::process(UINT message, WPARAM, LPARAM) {
    if (message == WM_GETDLGCODE) {
        return dialogCode();
    }
    NativeEvent::pass(*this, message);
    return 0;
}

void Window::setGeometry(const QRect& rect) {
    if (m_pWidget != nullptr) {
        m_pWidget->setGeometry(rect);
    }
}

QRect Window::screenGeometry() const {
    return m_pWidget != nullptr ? QRect(m_pWidget->mapToGlobal(QPoint(0, 0)), m_pWidget->size()) : QRect();
}

QRect Window::clientRect() const {
    return m_pWidget != nullptr ? m_pWidget->rect() : QRect();
}

void Window::notify(int code) {
    if (m_pParent != nullptr && !m_bEnding) {
        ::SendMessage(m_pParent->handle(), WM_COMMAND, MAKEWPARAM(id(), code),
                      reinterpret_cast<LPARAM>(m_handle));
    }
}

LRESULT Window::notify(NMHDR& header, UINT code) {
    if (m_pParent == nullptr || m_bEnding) {
        return 0;
    }
    header = {m_handle, static_cast<UINT_PTR>(id()), code};
    return ::SendMessage(m_pParent->handle(), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
}

void Window::notifyScroll(Qt::Orientation orientation, int code, int position) {
    if (m_pParent != nullptr && !m_bEnding) {
        ::SendMessage(m_pParent->handle(), orientation == Qt::Horizontal ? WM_HSCROLL : WM_VSCROLL,
                      MAKEWPARAM(code, position), reinterpret_cast<LPARAM>(m_handle));
    }
}

bool Window::onEvent(QObject*, QEvent*) {
    return false;
}

bool Window::eventFilter(QObject* watched, QEvent* event) {
    if (m_bEnding) {
        return false;
    }
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove: {
        const DispatchScope scope;
        return onEvent(watched, event) || routeMouse(*this, watched, static_cast<QMouseEvent&>(*event));
    }
    case QEvent::KeyPress: {
        const DispatchScope scope;
        return onEvent(watched, event) || translateKey(*this, watched, static_cast<QKeyEvent&>(*event));
    }
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::Wheel:
    case QEvent::Close: {
        const DispatchScope scope;
        return onEvent(watched, event);
    }
    default:
        return false;
    }
}

} // namespace qtbackend
