#include "sandbox/app/film_keys.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <utility>

namespace {

/// Buttons of the panel, whose widgets bear these numbers as their names.
enum PanelButton {
    NO_BUTTON = 0,
    GO_TO_END = 2045,
    STEP_FORWARD = 2046,
    PLAY = 2047,
    STEP_BACK = 2048,
    GO_TO_START = 2049,
    PREVIOUS_KEY = 2091,
    NEXT_KEY = 2092
};

/// The button that the key stands for. With Shift a keyboard gives another letter for comma and
/// full stop, which one depends on the keyboard; the common ones are known.
PanelButton buttonFor(const QKeyEvent& key) {
    const bool others = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool shifted = key.modifiers().testFlag(Qt::ShiftModifier);
    if (others) {
        return NO_BUTTON;
    }
    switch (key.key()) {
    case Qt::Key_Comma:
        return shifted ? PREVIOUS_KEY : STEP_BACK;
    case Qt::Key_Period:
        return shifted ? NEXT_KEY : STEP_FORWARD;
    case Qt::Key_Less:
    case Qt::Key_Semicolon:
        return shifted ? PREVIOUS_KEY : NO_BUTTON;
    case Qt::Key_Greater:
    case Qt::Key_Colon:
        return shifted ? NEXT_KEY : NO_BUTTON;
    case Qt::Key_Space:
        return PLAY;
    case Qt::Key_Home:
        return GO_TO_START;
    case Qt::Key_End:
        return GO_TO_END;
    default:
        return NO_BUTTON;
    }
}

} // namespace

CFilmKeys::CFilmKeys(QWidget& view, std::function<QWidget*()> panel)
    : QObject(&view), m_panel(std::move(panel)) {
    view.installEventFilter(this);
}

bool CFilmKeys::eventFilter(QObject* /*watched*/, QEvent* event) {
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (!isOverride && event->type() != QEvent::KeyPress) {
        return false;
    }
    const auto* const key = static_cast<QKeyEvent*>(event);
    const PanelButton id = buttonFor(*key);
    const QWidget* const window = id != NO_BUTTON ? m_panel() : nullptr;
    auto* const button =
        window != nullptr ? window->findChild<QAbstractButton*>(QString::number(id)) : nullptr;
    if (button == nullptr) {
        return false;
    }
    if (isOverride) {
        event->accept(); // the window's own shortcut of that key rests meanwhile
    } else if (id != PLAY || !key->isAutoRepeat()) {
        button->click();
    }
    return true;
}
