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
    : m_widget(widget), m_widgetKey(widget), m_parent(parent), m_traits(std::move(traits)) {}

Window::~Window() = default;

Window* Window::child(int id) const {
    const auto found = std::find_if(m_children.begin(), m_children.end(),
                                    [id](const Window* candidate) { return candidate->id() == id; });
    return found != m_children.end() ? *found : nullptr;
}

void Window::markEnding() {
    m_ending = true;
    for (Window* control : m_children) {
        control->markEnding();
    }
}

void Window::setObject(CWnd* object) {
    m_object = object;
    if (object != nullptr && m_widget != nullptr) {
        m_widget->installEventFilter(this); // moves it when it is installed already
    }
}

CWnd* Window::standIn() {
    if (m_standIn == nullptr) {
        m_standIn = makeStandIn();
        m_standIn->m_hWnd = m_handle;
    }
    return m_standIn.get();
}

CScrollBar* Window::scrollBarStandIn() {
    if (m_scrollBarStandIn == nullptr) {
        m_scrollBarStandIn = std::make_unique<CScrollBar>();
        m_scrollBarStandIn->m_hWnd = m_handle;
    }
    return m_scrollBarStandIn.get();
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
    if (m_widget != nullptr) {
        m_widget->setGeometry(rect);
    }
}

QRect Window::screenGeometry() const {
    return m_widget != nullptr ? QRect(m_widget->mapToGlobal(QPoint(0, 0)), m_widget->size()) : QRect();
}

QRect Window::clientRect() const {
    return m_widget != nullptr ? m_widget->rect() : QRect();
}

void Window::notify(int code) {
    if (m_parent != nullptr && !m_ending) {
        ::SendMessage(m_parent->handle(), WM_COMMAND, MAKEWPARAM(id(), code),
                      reinterpret_cast<LPARAM>(m_handle));
    }
}

LRESULT Window::notify(NMHDR& header, UINT code) {
    if (m_parent == nullptr || m_ending) {
        return 0;
    }
    header = {m_handle, static_cast<UINT_PTR>(id()), code};
    return ::SendMessage(m_parent->handle(), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
}

void Window::notifyScroll(Qt::Orientation orientation, int code, int position) {
    if (m_parent != nullptr && !m_ending) {
        ::SendMessage(m_parent->handle(), orientation == Qt::Horizontal ? WM_HSCROLL : WM_VSCROLL,
                      MAKEWPARAM(code, position), reinterpret_cast<LPARAM>(m_handle));
    }
}

bool Window::onEvent(QObject*, QEvent*) {
    return false;
}

bool Window::eventFilter(QObject* watched, QEvent* event) {
    if (m_ending) {
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
