#include "host/ui_events/event_player.h"

#include "resources/resource_ids.h"

#include <QAbstractItemView>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>

#include <array>

namespace {

/// Controls that a stray hand meets too seldom, in either panel and in their dialogs.
constexpr std::array SWATCHES = {IDC_TINT_COLOUR,    IDC_TINT_1,         IDC_TINT_2,
                                 IDC_AMBIENT_COLOUR, IDC_DIFFUSE_COLOUR, IDC_FADE_COLOUR};
constexpr std::array CLICKED = {IDC_TERRAIN_TYPES,  IDC_SMOOTH_TEXTURE,
                                IDC_WATER_TEXTURE,  IDC_DETAIL_TEXTURE,
                                IDC_EXPAND,         IDC_UNDO,
                                IDC_SELECT_ALL,     IDC_PLAY,
                                IDC_LOOP,           IDC_ADD_KEYFRAME,
                                IDC_MOVIE_UNDO,     IDC_DELETE_FRAMES,
                                IDC_PASTE_FRAMES,   IDC_SETUP_SOUND_LIST,
                                IDC_IMPORT_TEXTURE, IDC_TEXTURES,
                                IDC_TEXTURE_SIZE};
constexpr std::array TYPED_FILES = {"stone.tga", "moss.tga",      "my.texture.tga",   "twelveletter.tga",
                                    "wüste.tga", "cut.tga",       "headonly.tga",     "empty.tga",
                                    "notes.txt", "more/sand.tga", "no_such_file.tga", "muchtoolonganame.tga"};

/// A control that can be seen and used; null when there is none of that id now.
QWidget* usable(const QWidget& window, int id) {
    QWidget* const found = window.findChild<QWidget*>(QString::number(id));
    const bool isUsable =
        found != nullptr && found->isVisible() && found->isEnabled() && !found->visibleRegion().isEmpty();
    return isUsable ? found : nullptr;
}

/// One of these that can be used; null when there is none.
template <class Ids> QWidget* anyUsable(CEventDice& dice, const QWidget& window, const Ids& ids) {
    QList<QWidget*> found;
    for (const int id : ids) {
        if (QWidget* const control = usable(window, id)) {
            found << control;
        }
    }
    return found.isEmpty() ? nullptr : dice.of(found);
}

/// A dialog's own button, or that of a dialog of Qt's.
QWidget* buttonOf(const QWidget& dialog, int id, QDialogButtonBox::StandardButtons kinds) {
    if (QWidget* const own = usable(dialog, id)) {
        return own;
    }
    const auto* const box = dialog.findChild<QDialogButtonBox*>();
    for (const auto kind : {QDialogButtonBox::Ok, QDialogButtonBox::Open, QDialogButtonBox::Cancel}) {
        if (box != nullptr && kinds.testFlag(kind) && box->button(kind) != nullptr) {
            return box->button(kind);
        }
    }
    return nullptr;
}

} // namespace

void CEventPlayer::anything(QWidget& window) {
    const int kind = m_dice.below(8);
    if (kind == 0) {
        m_gestures.typeIntoAnyField(window);
    } else if (kind == 1) {
        m_gestures.dragAnywhere(window);
    } else if (kind <= 3) {
        m_gestures.clickAnywhere(window);
    } else {
        m_gestures.anyEvent(window);
    }
}

void CEventPlayer::usePanel(QWidget& panel) {
    const int kind = m_dice.below(32);
    QWidget* const clicked = anyUsable(m_dice, panel, CLICKED);
    QWidget* const swatch = anyUsable(m_dice, panel, SWATCHES);
    QWidget* const timeline = usable(panel, IDC_TIMELINE);
    QWidget* const height = usable(panel, IDC_HEIGHT);
    if (kind <= 4 && clicked != nullptr) {
        m_gestures.clickOn(*clicked);
    } else if (kind == 5 && swatch != nullptr) {
        m_gestures.doubleClickOn(*swatch, swatch->rect().center());
    } else if (kind == 6 && swatch != nullptr) {
        QWidget* const other = anyUsable(m_dice, panel, SWATCHES);
        m_gestures.drag(*swatch, swatch->rect().center(), *other, other->rect().center());
    } else if (kind == 7 && m_dice.oneIn(4)) {
        m_dice.oneIn(2) ? m_gestures.close(panel) : m_gestures.destroyEditor(m_dice.oneIn(4));
    } else if (kind == 8) {
        m_gestures.openEditor(); // a second opening is ignored
    } else if (kind <= 11) {
        m_gestures.hostCall();
    } else if (kind <= 13) {
        m_gestures.callMovie();
    } else if (kind == 14 && timeline != nullptr) {
        m_gestures.useTimeline(*timeline);
    } else if (kind == 15 && height != nullptr) {
        m_gestures.type(*height, "2000", Qt::Key_Tab); // refused with a message box
    } else {
        anything(panel);
    }
}

void CEventPlayer::useDialog(DialogKind kind, QWidget& dialog) {
    QWidget* const clicked = anyUsable(m_dice, dialog, CLICKED);
    if (m_dice.oneIn(12)) {
        m_gestures.hostCall();
    } else if (clicked != nullptr && m_dice.oneIn(3)) {
        m_gestures.clickOn(*clicked);
    } else if (kind == DialogKind::FILES && m_dice.oneIn(10)) {
        accept(kind, dialog);
    } else {
        anything(dialog);
    }
}

void CEventPlayer::chooseFiles(QWidget& dialog) {
    auto* const view = anyOf<QAbstractItemView>(m_dice, dialog);
    const int rows =
        view != nullptr && view->model() != nullptr ? view->model()->rowCount(view->rootIndex()) : 0;
    auto* const name = dialog.findChild<QLineEdit*>("fileNameEdit");
    if (rows > 0 && m_dice.oneIn(2)) {
        for (int count = m_dice.between(1, 3); count > 0; --count) {
            const QModelIndex entry = view->model()->index(m_dice.below(rows), 0, view->rootIndex());
            m_gestures.clickOn(*view->viewport(), view->visualRect(entry).center(), Qt::ControlModifier);
        }
    } else if (name != nullptr) {
        m_gestures.type(*name, QString::fromUtf8(m_dice.of(TYPED_FILES)), Qt::Key_Return);
    }
}

void CEventPlayer::accept(DialogKind kind, QWidget& dialog) {
    if (kind == DialogKind::FILES) {
        chooseFiles(dialog);
    }
    QWidget* const button = buttonOf(dialog, 1, QDialogButtonBox::Ok | QDialogButtonBox::Open);
    button != nullptr ? m_gestures.clickOn(*button) : m_gestures.pressKey(dialog, Qt::Key_Return, "\r");
}

void CEventPlayer::leave(DialogKind kind, QWidget& dialog, LeaveWay way) {
    QWidget* const cancel = buttonOf(dialog, 2, QDialogButtonBox::Cancel);
    if (way == LeaveWay::OK) {
        accept(kind, dialog);
    } else if (way == LeaveWay::CANCEL && cancel != nullptr) {
        m_gestures.clickOn(*cancel);
    } else if (way == LeaveWay::CANCEL || way == LeaveWay::ESCAPE) {
        m_gestures.pressKey(dialog, Qt::Key_Escape, "\x1b");
    } else if (way == LeaveWay::CLOSE_BOX) {
        m_gestures.close(dialog);
    } else {
        // The file dialog belongs to the host's window, every other dialog to the panel.
        m_gestures.destroyEditor(kind == DialogKind::FILES || m_dice.oneIn(5));
    }
}
