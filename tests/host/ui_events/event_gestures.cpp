#include "host/ui_events/event_gestures.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QLineEdit>
#include <QPointer>

#include <array>
#include <utility>

namespace {

struct Key {
    Qt::Key key;
    const char* text;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
};

/// Keys that mean something somewhere, and a few that do not.
const std::array KEYS = {
    Key{Qt::Key_Tab, "\t"},
    Key{Qt::Key_Tab, "\t"},
    Key{Qt::Key_Backtab, "", Qt::ShiftModifier},
    Key{Qt::Key_Return, "\r"},
    Key{Qt::Key_Enter, "\r", Qt::KeypadModifier},
    Key{Qt::Key_Escape, "\x1b"},
    Key{Qt::Key_Space, " "},
    Key{Qt::Key_Left, ""},
    Key{Qt::Key_Right, ""},
    Key{Qt::Key_Up, ""},
    Key{Qt::Key_Down, ""},
    Key{Qt::Key_Home, ""},
    Key{Qt::Key_End, ""},
    Key{Qt::Key_PageUp, ""},
    Key{Qt::Key_PageDown, ""},
    Key{Qt::Key_Backspace, "\b"},
    Key{Qt::Key_Delete, "\x7f"},
    Key{Qt::Key_0, "0"},
    Key{Qt::Key_1, "1"},
    Key{Qt::Key_5, "5"},
    Key{Qt::Key_9, "9"},
    Key{Qt::Key_Minus, "-"},
    Key{Qt::Key_Period, "."},
    Key{Qt::Key_Comma, ","},
    Key{Qt::Key_A, "a"},
    Key{Qt::Key_E, "e"},
    Key{Qt::Key_G, "g"},
    Key{Qt::Key_Z, "Z", Qt::ShiftModifier},
    Key{Qt::Key_F2, ""},
    Key{Qt::Key_F4, ""},
    Key{Qt::Key_F5, ""},
    Key{Qt::Key_Menu, ""},
    Key{Qt::Key_Down, "", Qt::AltModifier},
    Key{Qt::Key_O, "o", Qt::AltModifier},
    Key{Qt::Key_Tab, "\t", Qt::ControlModifier},
    Key{Qt::Key_A, "\x01", Qt::ControlModifier},
    Key{Qt::Key_C, "\x03", Qt::ControlModifier},
    Key{Qt::Key_V, "\x16", Qt::ControlModifier},
    Key{Qt::Key_X, "\x18", Qt::ControlModifier},
    Key{Qt::Key_Z, "\x1a", Qt::ControlModifier},
};

/// What a person types into a field: good values, ends of ranges, nonsense.
const std::array TYPED = {"0",      "1",   "7",     "512",   "1023", "1024",  "-1",
                          "9999",   "0.5", "1.5",   "-0.25", "abc",  "1e9",   "999999999999",
                          "",       " ",   "-",     ".",     "nan",  "12 34", "300",
                          "0.3333", "+3",  "1e-30", "ä",     "0x10", "16",    "2"};

std::string nameOf(const QWidget& widget) {
    std::string name = widget.window()->objectName().toStdString();
    if (name.empty()) {
        name = widget.window()->metaObject()->className();
    }
    if (!widget.isWindow()) {
        name += '/';
        name += widget.objectName().isEmpty() ? widget.metaObject()->className()
                                              : widget.objectName().toStdString();
    }
    return name;
}

std::string describe(const QWidget& widget, QPoint position) {
    return nameOf(widget) + " at " + std::to_string(position.x()) + ", " + std::to_string(position.y());
}

} // namespace

VisiblePoint anyPoint(CEventDice& dice, QWidget& window) {
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

std::optional<EventAct> CEventGestures::takeNext() {
    if (m_acts.empty()) {
        return std::nullopt;
    }
    EventAct act = std::move(m_acts.front());
    m_acts.pop_front();
    return act;
}

void CEventGestures::add(EventKind kind, std::string what, std::function<bool()> send) {
    m_acts.push_back({kind, std::move(what), std::move(send)});
}

void CEventGestures::press(EventKind kind, QWidget& widget, QPoint position, Qt::MouseButton button,
                           Qt::KeyboardModifiers modifiers) {
    add(kind, describe(widget, position), [=, this, target = QPointer(&widget)] {
        if (target == nullptr || !target->isVisible()) {
            return false;
        }
        m_hand.press(*target, position, button, modifiers);
        return true;
    });
}

void CEventGestures::moveTo(QWidget& widget, QPoint position) {
    add(EventKind::MOVE, describe(widget, position), [=, this, target = QPointer(&widget)] {
        if (target == nullptr || !target->isVisible()) {
            return false;
        }
        m_hand.moveTo(*target, position);
        return true;
    });
}

void CEventGestures::release(const QWidget& over) {
    add(EventKind::RELEASE, "over " + nameOf(over), [this] {
        if (!m_hand.isHolding()) {
            return false;
        }
        m_hand.release();
        return true;
    });
}

/// Long enough that the next press starts a click of its own.
void CEventGestures::pause() {
    constexpr int LONGER_THAN_A_DOUBLE_CLICK = 600;
    m_hand.wait(LONGER_THAN_A_DOUBLE_CLICK);
}

void CEventGestures::clickOn(QWidget& widget) {
    clickOn(widget, widget.rect().center());
}

void CEventGestures::clickOn(QWidget& widget, QPoint position, Qt::KeyboardModifiers modifiers) {
    pause();
    press(EventKind::PRESS, widget, position, Qt::LeftButton, modifiers);
    release(widget);
}

void CEventGestures::doubleClickOn(QWidget& widget, QPoint position) {
    clickOn(widget, position);
    press(EventKind::DOUBLE_CLICK, widget, position, Qt::LeftButton, Qt::NoModifier);
    release(widget);
}

void CEventGestures::dragTo(QWidget& from, QWidget& to) {
    pause();
    press(EventKind::PRESS, from, from.rect().center(), Qt::LeftButton, Qt::NoModifier);
    moveTo(from, from.rect().bottomRight());
    moveTo(to, to.rect().center());
    release(to);
}

void CEventGestures::pressKey(QWidget& window, Qt::Key key, const QString& text,
                              Qt::KeyboardModifiers modifiers) {
    const QWidget* const focus = QApplication::focusWidget();
    std::string what = QKeySequence(static_cast<int>(modifiers) | key).toString().toStdString();
    what += " in " + nameOf(focus != nullptr ? *focus : window);
    add(EventKind::KEY, std::move(what), [=, this, target = QPointer(&window)] {
        if (target == nullptr) {
            return false;
        }
        m_hand.pressKey(*target, key, text, modifiers);
        return true;
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
    add(EventKind::CLOSE, nameOf(window), [target = QPointer(&window)] {
        if (target == nullptr || !target->isVisible()) {
            return false;
        }
        target->close();
        return true;
    });
}

void CEventGestures::turnWheel(QWidget& widget) {
    const QPoint position = widget.rect().center();
    add(EventKind::WHEEL, nameOf(widget),
        [this, position, notches = m_dice.oneIn(2) ? 1 : -2, target = QPointer(&widget)] {
            if (target == nullptr || !target->isVisible()) {
                return false;
            }
            m_hand.turnWheel(*target, position, notches);
            return true;
        });
}

void CEventGestures::changeFocus(QWidget& window) {
    QWidget& next = m_dice.oneIn(3) ? *m_stage.window() : *anyPoint(m_dice, window).widget;
    add(EventKind::FOCUS, nameOf(next), [target = QPointer(&next)] {
        if (target == nullptr || !target->isVisible()) {
            return false;
        }
        if (QWidget* const modal = QApplication::activeModalWidget();
            modal == nullptr || target->window() == modal) {
            target->activateWindow();
        }
        target->setFocus(Qt::ShortcutFocusReason);
        return true;
    });
}

/// As a window manager does it, which may make a window of a fixed size larger, but none too small.
void CEventGestures::resize(QWidget& window) {
    const QRect rect(m_dice.between(-50, 600), m_dice.between(-50, 400), m_dice.between(1, 900),
                     m_dice.between(1, 900));
    add(EventKind::RESIZE, nameOf(window), [rect, target = QPointer(&window)] {
        if (target == nullptr || target->windowHandle() == nullptr) {
            return false;
        }
        QWindow& native = *target->windowHandle();
        native.setGeometry(QRect(rect.topLeft(), rect.size().expandedTo(native.minimumSize())));
        return true;
    });
}

void CEventGestures::anyKey(QWidget& window) {
    const Key& key = m_dice.of(KEYS);
    pressKey(window, key.key, QString::fromUtf8(key.text), key.modifiers);
}

void CEventGestures::anyEvent(QWidget& window) {
    const auto [widget, position] = anyPoint(m_dice, window);
    switch (m_dice.below(16)) {
    case 0:
        return press(EventKind::PRESS, *widget, position, Qt::LeftButton, Qt::NoModifier);
    case 1:
    case 2:
        return m_hand.isHolding() ? release(*widget) : moveTo(*widget, position);
    case 3:
    case 4:
        return moveTo(*widget, position);
    case 5:
        press(EventKind::CONTEXT_PRESS, *widget, position, Qt::RightButton, Qt::NoModifier);
        return release(*widget);
    case 6:
        return doubleClickOn(*widget, position);
    case 7:
    case 8:
        return turnWheel(*widget);
    case 9:
        return m_dice.oneIn(3) ? resize(window) : changeFocus(window);
    default:
        return anyKey(window);
    }
}

void CEventGestures::clickAnywhere(QWidget& window) {
    const auto [widget, position] = anyPoint(m_dice, window);
    clickOn(*widget, position, m_dice.oneIn(8) ? Qt::ControlModifier : Qt::NoModifier);
}

void CEventGestures::dragAnywhere(QWidget& window) {
    const auto [from, position] = anyPoint(m_dice, window);
    const auto [to, end] = anyPoint(m_dice, window);
    pause();
    press(EventKind::PRESS, *from, position, Qt::LeftButton, Qt::NoModifier);
    moveTo(*to, end);
    release(*to);
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
            add(EventKind::MAP_EDIT, "of the host", [this] {
                m_stage.editMap();
                return true;
            });
        } else if (m_dice.oneIn(3)) {
            add(EventKind::HOVER, "of the host", [this] {
                m_stage.hover();
                return true;
            });
        } else {
            add(EventKind::STROKE, "of the host", [this] {
                m_stage.stroke();
                return true;
            });
        }
    }
}

void CEventGestures::callMovie() {
    for (int calls = m_dice.between(1, 6); calls > 0; --calls) {
        add(EventKind::MOVIE, "of the host", [this] {
            m_stage.callMovie();
            return true;
        });
    }
}

void CEventGestures::useTimeline(QWidget& timeline) {
    const auto anyPlace = [&] {
        return QPoint(m_dice.between(-40, timeline.width() + 40), timeline.height() / 2);
    };
    pause();
    const QPoint pressed(m_dice.below(timeline.width()), timeline.height() / 2);
    if (m_dice.oneIn(2)) {
        press(EventKind::PRESS, timeline, pressed, Qt::LeftButton, Qt::NoModifier);
    } else {
        press(EventKind::CONTEXT_PRESS, timeline, pressed, Qt::RightButton,
              m_dice.oneIn(3) ? Qt::ControlModifier : Qt::NoModifier);
    }
    for (int moves = m_dice.between(1, 4); moves > 0; --moves) {
        moveTo(timeline, anyPlace());
    }
    if (m_dice.oneIn(6)) {
        pressKey(timeline, Qt::Key_Escape, "\x1b");
    }
    release(timeline);
}

void CEventGestures::openEditor() {
    if (m_dice.oneIn(2)) {
        return add(EventKind::EDITOR, "movie editor opened by the host", [this] {
            m_stage.openMovieEditor();
            return true;
        });
    }
    add(EventKind::EDITOR, "opened by the host", [this] {
        m_stage.openEditor();
        return true;
    });
}

void CEventGestures::destroyEditor(bool withWindow) {
    if (withWindow) {
        add(EventKind::EDITOR, "and the host's window destroyed", [this] { return m_stage.replaceWindow(); });
    } else if (m_dice.oneIn(2)) {
        add(EventKind::EDITOR, "destroyed, its map and scene freed", [this] {
            m_stage.replaceWorld();
            return true;
        });
    } else {
        add(EventKind::EDITOR, "destroyed by the host", [this] {
            m_stage.destroyEditor();
            return true;
        });
    }
}
