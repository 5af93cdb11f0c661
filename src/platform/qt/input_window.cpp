#include "platform/qt/input_window.h"

#include "platform/qt/dispatch_scope.h"
#include "platform/qt/key_translation.h"
#include "platform/qt/mouse_router.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace qtbackend {

bool CInputWindow::onEvent(QObject*, QEvent*) {
    return false;
}

bool CInputWindow::eventFilter(QObject* watched, QEvent* event) {
    if (isEnding()) {
        return false;
    }
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove: {
        const CDispatchScope scope;
        return onEvent(watched, event) || routeMouse(*this, watched, static_cast<QMouseEvent&>(*event));
    }
    case QEvent::KeyPress: {
        const CDispatchScope scope;
        return onEvent(watched, event) || translateKey(*this, watched, static_cast<QKeyEvent&>(*event));
    }
    case QEvent::FocusIn:
    case QEvent::FocusOut:
    case QEvent::Wheel:
    case QEvent::Close: {
        const CDispatchScope scope;
        return onEvent(watched, event);
    }
    default:
        return false;
    }
}

} // namespace qtbackend
