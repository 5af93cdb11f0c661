#include "sandbox/keys/held_keys.h"

#include "sandbox/keys/map_panel.h"
#include "sandbox/view/map_view.h"

#include <QMouseEvent>
#include <QTimer>

#include <utility>

CHeldKeys::CHeldKeys(CMapView& view, std::function<void()> settle)
    : QObject(&view), m_view(view), m_settle(std::move(settle)) {
    view.installEventFilter(this);
}

bool CHeldKeys::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) {
        const auto& press = *static_cast<QMouseEvent*>(event);
        if (press.button() == Qt::LeftButton && press.buttons() == Qt::LeftButton) {
            begin(press.modifiers());
        }
    } else if (event->type() == QEvent::MouseButtonRelease &&
               static_cast<QMouseEvent*>(event)->button() == Qt::LeftButton) {
        QTimer::singleShot(0, this, &CHeldKeys::end); // the stroke ends with its own tool
    }
    return false;
}

void CHeldKeys::begin(Qt::KeyboardModifiers held) {
    end();
    const MapTool* const tool = CMapPanel::chosenTool();
    if (tool == nullptr || CMapPanel::showsDetails()) {
        return;
    }
    if (held == Qt::ShiftModifier) {
        change(SMOOTH_TOOL);
    } else if (held == Qt::ControlModifier) {
        if (tool->control == FLOOD_TOOL) {
            change(DRAIN_TOOL);
        } else if (tool->control == DRAIN_TOOL) {
            change(FLOOD_TOOL);
        } else {
            m_view.turnDrag(tool->control == RAISE_TOOL || tool->control == MAGNET_TOOL);
        }
    }
}

void CHeldKeys::change(int tool) {
    const int former = CMapPanel::chosenTool()->control;
    if (former != tool && CMapPanel::press(tool)) {
        m_former = former;
        m_settle();
    }
}

void CHeldKeys::end() {
    m_view.turnDrag(false);
    if (const std::optional<int> former = std::exchange(m_former, std::nullopt)) {
        CMapPanel::press(*former);
        m_settle();
    }
}
