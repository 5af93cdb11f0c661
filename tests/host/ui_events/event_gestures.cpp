#include "host/ui_events/event_gestures.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>

#include <array>
#include <utility>

namespace {

/// Keys that mean something somewhere, and a few that do not.
constexpr std::array KEYS = {
    Qt::Key_Tab,       Qt::Key_Return, Qt::Key_Escape,  Qt::Key_Space, Qt::Key_Left,   Qt::Key_Right,
    Qt::Key_Up,        Qt::Key_Down,   Qt::Key_Home,    Qt::Key_End,   Qt::Key_PageUp, Qt::Key_PageDown,
    Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Backtab, Qt::Key_Enter, Qt::Key_0,      Qt::Key_9,
    Qt::Key_Minus,     Qt::Key_Period, Qt::Key_A,       Qt::Key_E,     Qt::Key_O,      Qt::Key_V,
    Qt::Key_Z,         Qt::Key_F4,     Qt::Key_Menu};
constexpr std::array MODIFIERS = {Qt::ShiftModifier, Qt::AltModifier, Qt::ControlModifier,
                                  Qt::KeypadModifier};

/// What a person types into a field: good values, ends of ranges, nonsense.
const std::array TYPED = {
    "0", "1", "7", "512", "1023",  "1024", "-1",           "0.5",    "1.5", "-0.25", "abc", "1e9",  "",
    " ", "-", ".", "nan", "12 34", "300",  "999999999999", "0.3333", "+3",  "1e-30", "ä",   "0x10", "16"};

std::string nameOf(const QWidget& widget) {
    const auto own = [](const QWidget& part) {
        return part.objectName().isEmpty() ? part.metaObject()->className() : part.objectName().toStdString();
    };
    return own(*widget.window()) + (widget.isWindow() ? "" : '/' + own(widget));
}

/// A visible widget of the window, itself included, and a place in it that can be seen.
std::pair<QWidget*, QPoint> anyPoint(CEventDice& dice, QWidget& window) {
    const QList<QWidget*> parts = window.findChildren<QWidget*>();
    for (int attempt = 0; attempt < 10 && !parts.isEmpty(); ++attempt) {
        QWidget* const part = dice.of(parts);
        const QRect seen =
            part->window() == &window && part->isVisible() ? part->visibleRegion().boundingRect() : QRect();
        if (!seen.isEmpty()) {
            return {part, {dice.between(seen.left(), seen.right()), dice.between(seen.top(), seen.bottom())}};
        }
    }
    return {&window, {dice.below(std::max(window.width(), 1)), dice.below(std::max(window.height(), 1))}};
}

} // namespace

std::optional<EventAct> CEventGestures::takeNext() {
    if (m_acts.empty()) {
        return std::nullopt;
    }
    EventAct act = std::move(m_acts.front());
    m_acts.pop_front();
    return act;
}

void CEventGestures::addOn(QWidget& widget, const std::string& what, std::function<void(QWidget&)> send) {
    add(what + ' ' + nameOf(widget), [send = std::move(send), target = QPointer(&widget)] {
        if (target != nullptr && target->isVisible()) {
            send(*target);
        }
    });
}

void CEventGestures::press(QWidget& widget, QPoint position, Qt::MouseButton button,
                           Qt::KeyboardModifiers modifiers) {
    addOn(widget, "press", [=, this](QWidget& target) { m_hand.press(target, position, button, modifiers); });
}

void CEventGestures::moveTo(QWidget& widget, QPoint position) {
    addOn(widget, "move to", [=, this](QWidget& target) { m_hand.moveTo(target, position); });
}

void CEventGestures::release() {
    add("release", [this] {
        if (m_hand.isHolding()) {
            m_hand.release();
        }
    });
}

/// Long enough that the next press starts a click of its own.
void CEventGestures::pause() {
    constexpr int LONGER_THAN_A_DOUBLE_CLICK = 600;
    m_hand.wait(LONGER_THAN_A_DOUBLE_CLICK);
}

void CEventGestures::clickOn(QWidget& widget, QPoint position, Qt::KeyboardModifiers modifiers) {
    pause();
    press(widget, position, Qt::LeftButton, modifiers);
    release();
}

void CEventGestures::doubleClickOn(QWidget& widget, QPoint position) {
    clickOn(widget, position);
    press(widget, position);
    release();
}

void CEventGestures::drag(QWidget& from, QPoint position, QWidget& to, QPoint end) {
    pause();
    press(from, position);
    moveTo(from, from.rect().bottomRight());
    moveTo(to, end);
    release();
}

void CEventGestures::pressKey(QWidget& window, Qt::Key key, const QString& text,
                              Qt::KeyboardModifiers modifiers) {
    const QString name = QKeySequence(static_cast<int>(modifiers) | key).toString();
    add("key " + name.toStdString() + " in " + nameOf(window), [=, this, target = QPointer(&window)] {
        if (target != nullptr) {
            m_hand.pressKey(*target, key, text, modifiers);
        }
    });
}

void CEventGestures::type(QWidget& field, const QString& text, Qt::Key leaveBy) {
    clickOn(field);
    pressKey(field, Qt::Key_A, "\x01", Qt::ControlModifier);
    pressKey(field, Qt::Key_Delete, "\x7f");
    for (const QChar letter : text) {
        pressKey(field, static_cast<Qt::Key>(letter.toUpper().unicode()), letter);
    }
    pressKey(field, leaveBy);
}

void CEventGestures::close(QWidget& window) {
    addOn(window, "close", [](QWidget& target) { target.close(); });
}

void CEventGestures::turnWheel(QWidget& widget) {
    const int notches = m_dice.oneIn(2) ? 1 : -2;
    addOn(widget, "wheel over",
          [=, this](QWidget& target) { m_hand.turnWheel(target, target.rect().center(), notches); });
}

void CEventGestures::changeFocus(QWidget& window) {
    QWidget& next = m_dice.oneIn(3) ? *m_stage.window() : *anyPoint(m_dice, window).first;
    addOn(next, "focus to", [](QWidget& target) {
        const QWidget* const modal = QApplication::activeModalWidget();
        if (modal == nullptr || target.window() == modal) {
            target.activateWindow();
        }
        target.setFocus(Qt::ShortcutFocusReason);
    });
}

/// As a window manager does it, which may make a window of a fixed size larger, but none too small.
void CEventGestures::resize(QWidget& window) {
    const QRect rect(m_dice.between(-50, 600), m_dice.between(-50, 400), m_dice.between(1, 900),
                     m_dice.between(1, 900));
    addOn(window, "resize", [rect](QWidget& target) {
        if (QWindow* const native = target.windowHandle()) {
            native->setGeometry(QRect(rect.topLeft(), rect.size().expandedTo(native->minimumSize())));
        }
    });
}

void CEventGestures::anyKey(QWidget& window) {
    const Qt::Key key = m_dice.of(KEYS);
    const Qt::KeyboardModifier modifier = m_dice.oneIn(4) ? m_dice.of(MODIFIERS) : Qt::NoModifier;
    const bool writes = key < Qt::Key_Escape && (modifier & (Qt::AltModifier | Qt::ControlModifier)) == 0;
    pressKey(window, key, writes ? QString(QChar(key)) : QString(), modifier);
}

void CEventGestures::anyEvent(QWidget& window) {
    const auto [widget, position] = anyPoint(m_dice, window);
    const int kind = m_dice.below(16);
    if (kind == 0) {
        press(*widget, position);
    } else if (kind <= 2 && m_hand.isHolding()) {
        release();
    } else if (kind <= 4) {
        moveTo(*widget, position);
    } else if (kind == 5) {
        press(*widget, position, Qt::RightButton);
        release();
    } else if (kind == 6) {
        doubleClickOn(*widget, position);
    } else if (kind <= 8) {
        turnWheel(*widget);
    } else if (kind == 9) {
        m_dice.oneIn(3) ? resize(window) : changeFocus(window);
    } else {
        anyKey(window);
    }
}

void CEventGestures::clickAnywhere(QWidget& window) {
    const auto [widget, position] = anyPoint(m_dice, window);
    clickOn(*widget, position, m_dice.oneIn(8) ? Qt::ControlModifier : Qt::NoModifier);
}

void CEventGestures::dragAnywhere(QWidget& window) {
    const auto [from, position] = anyPoint(m_dice, window);
    const auto [to, end] = anyPoint(m_dice, window);
    drag(*from, position, *to, end);
}

void CEventGestures::typeIntoAnyField(QWidget& window) {
    constexpr std::array LEAVING = {Qt::Key_Tab, Qt::Key_Return, Qt::Key_Backtab, Qt::Key_Down};
    if (QLineEdit* const field = anyOf<QLineEdit>(m_dice, window)) {
        type(*field, QString::fromUtf8(m_dice.of(TYPED)), m_dice.of(LEAVING));
    } else {
        anyKey(window);
    }
}

void CEventGestures::hostCall() {
    for (int calls = m_dice.between(1, 6); calls > 0; --calls) {
        if (m_dice.oneIn(12)) {
            add("map edit of the host", [this] { m_stage.editMap(); });
        } else if (m_dice.oneIn(3)) {
            add("hover of the host", [this] { m_stage.hover(); });
        } else {
            add("stroke of the host", [this] { m_stage.stroke(); });
        }
    }
}

void CEventGestures::callMovie() {
    for (int calls = m_dice.between(1, 6); calls > 0; --calls) {
        add("movie call of the host", [this] { m_stage.callMovie(); });
    }
}

void CEventGestures::useTimeline(QWidget& timeline) {
    const int middle = timeline.height() / 2;
    const bool selects = m_dice.oneIn(2);
    pause();
    press(timeline, {m_dice.below(timeline.width()), middle}, selects ? Qt::RightButton : Qt::LeftButton,
          selects && m_dice.oneIn(3) ? Qt::ControlModifier : Qt::NoModifier);
    for (int moves = m_dice.between(1, 4); moves > 0; --moves) {
        moveTo(timeline, {m_dice.between(-40, timeline.width() + 40), middle});
    }
    if (m_dice.oneIn(6)) {
        pressKey(timeline, Qt::Key_Escape, "\x1b");
    }
    release();
}

void CEventGestures::openEditor() {
    if (m_dice.oneIn(2)) {
        add("movie editor opened by the host", [this] { m_stage.openMovieEditor(); });
    } else {
        add("map editor opened by the host", [this] { m_stage.openEditor(); });
    }
}

void CEventGestures::destroyEditor(bool withWindow) {
    if (withWindow) {
        add("the host's window destroyed", [this] { m_stage.replaceWindow(); });
    } else if (m_dice.oneIn(2)) {
        add("editors destroyed, map and scene freed", [this] { m_stage.replaceWorld(); });
    } else {
        add("editors destroyed by the host", [this] { m_stage.destroyEditor(); });
    }
}
