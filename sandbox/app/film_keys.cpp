#include "sandbox/app/film_keys.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <algorithm>
#include <array>
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

struct FilmKey {
    Qt::Key key;
    bool shifted;
    PanelButton button;
};

// With Shift a keyboard gives another letter for comma and full stop, which one depends on the keyboard.
constexpr std::array FILM_KEYS{
    FilmKey{Qt::Key_Space, false, PLAY},          FilmKey{Qt::Key_Home, false, GO_TO_START},
    FilmKey{Qt::Key_End, false, GO_TO_END},       FilmKey{Qt::Key_Comma, false, STEP_BACK},
    FilmKey{Qt::Key_Period, false, STEP_FORWARD}, FilmKey{Qt::Key_Comma, true, PREVIOUS_KEY},
    FilmKey{Qt::Key_Less, true, PREVIOUS_KEY},    FilmKey{Qt::Key_Semicolon, true, PREVIOUS_KEY},
    FilmKey{Qt::Key_Period, true, NEXT_KEY},      FilmKey{Qt::Key_Greater, true, NEXT_KEY},
    FilmKey{Qt::Key_Colon, true, NEXT_KEY},
};

/// The button that the key stands for.
PanelButton buttonFor(const QKeyEvent& key) {
    const bool others = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool shifted = key.modifiers().testFlag(Qt::ShiftModifier);
    const auto found = std::ranges::find_if(
        FILM_KEYS, [&](const FilmKey& known) { return known.key == key.key() && known.shifted == shifted; });
    return others || found == FILM_KEYS.end() ? NO_BUTTON : found->button;
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
