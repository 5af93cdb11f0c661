#include "host/ui_events/event_player.h"

#include "resources/resource_ids.h"

#include <QAbstractItemView>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>

#include <array>

namespace {

constexpr std::array SWATCHES = {IDC_TINT_COLOUR, IDC_TINT_1, IDC_TINT_2, IDC_AMBIENT_COLOUR,
                                 IDC_DIFFUSE_COLOUR};
constexpr std::array PICKERS = {IDC_SMOOTH_TEXTURE, IDC_ROUGH_TEXTURE, IDC_WATER_TEXTURE, IDC_DETAIL_TEXTURE};
constexpr std::array MOVIE_BUTTONS = {IDC_PLAY,          IDC_LOOP,          IDC_GO_TO_START,
                                      IDC_NEXT_KEY,      IDC_ADD_KEYFRAME,  IDC_MOVIE_UNDO,
                                      IDC_DELETE_FRAMES, IDC_MARK_KEYFRAME, IDC_PASTE_FRAMES};
constexpr std::array LIST_CONTROLS = {IDC_IMPORT_TEXTURE, IDC_IMPORT_TEXTURE, IDC_TEXTURES,
                                      IDC_TEXTURES,       IDC_TEXTURE_FORMAT, IDC_TEXTURE_SIZE};
constexpr std::array TYPED_FILES = {"stone.tga",
                                    "moss.tga",
                                    "my.texture.tga",
                                    "twelveletter.tga",
                                    "wüste.tga",
                                    "cut.tga",
                                    "headonly.tga",
                                    "empty.tga",
                                    "notes.txt",
                                    "more/sand.tga",
                                    "no_such_file.tga",
                                    "muchtoolonganame.tga",
                                    "\"stone.tga\" \"muchtoolonganame.tga\" \"moss.tga\"",
                                    "\"cut.tga\" \"grass.tga\""};

/// A control that can be seen and used; null when there is none of that id now.
QWidget* usable(const QWidget& window, int id) {
    QWidget* const found = window.findChild<QWidget*>(QString::number(id));
    const bool isUsable =
        found != nullptr && found->isVisible() && found->isEnabled() && !found->visibleRegion().isEmpty();
    return isUsable ? found : nullptr;
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

void CEventPlayer::clickControl(QWidget& window, int id) {
    if (QWidget* const control = usable(window, id)) {
        m_gestures.clickOn(*control);
    } else {
        m_gestures.clickAnywhere(window);
    }
}

void CEventPlayer::doubleClickControl(QWidget& window, int id) {
    if (QWidget* const control = usable(window, id)) {
        m_gestures.doubleClickOn(*control, control->rect().center());
    } else {
        anything(window);
    }
}

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
    const bool isMovie = panel.objectName() == QString("dialog-%1").arg(IDD_MOVIE_EDITOR);
    isMovie ? useMoviePanel(panel) : useMapPanel(panel);
}

/// Those controls of the movie panel that a stray hand seldom meets.
void CEventPlayer::useMoviePanel(QWidget& panel) {
    const int kind = m_dice.below(24);
    QWidget* const timeline = usable(panel, IDC_TIMELINE);
    if (kind == 0) {
        clickControl(panel, IDC_SETUP_SOUND_LIST);
    } else if (kind == 1) {
        doubleClickControl(panel, IDC_FADE_COLOUR);
    } else if (kind == 2) {
        m_dice.oneIn(4) ? m_gestures.close(panel) : m_gestures.openEditor();
    } else if (kind <= 5) {
        clickControl(panel, m_dice.of(MOVIE_BUTTONS));
    } else if (kind <= 7) {
        m_gestures.callMovie();
    } else if (kind == 8 && timeline != nullptr) {
        m_gestures.useTimeline(*timeline);
    } else {
        anything(panel);
    }
}

void CEventPlayer::useMapPanel(QWidget& panel) {
    const int kind = m_dice.below(40);
    QWidget* const from = usable(panel, m_dice.of(SWATCHES));
    QWidget* const to = usable(panel, m_dice.of(SWATCHES));
    if (kind <= 3) {
        openSomeDialog(panel);
    } else if (kind == 4) {
        clickControl(panel, IDC_EXPAND);
    } else if (kind == 5 && from != nullptr && to != nullptr) {
        m_gestures.drag(*from, from->rect().center(), *to, to->rect().center());
    } else if (kind == 6) {
        m_dice.oneIn(4) ? m_gestures.close(panel) : clickControl(panel, IDC_UNDO);
    } else if (kind == 7) {
        m_dice.oneIn(4) ? m_gestures.destroyEditor(m_dice.oneIn(4)) : clickControl(panel, IDC_SELECT_ALL);
    } else if (kind == 8) {
        m_gestures.openEditor(); // a second opening is ignored
    } else if (kind <= 13) {
        m_gestures.hostCall();
    } else {
        anything(panel);
    }
}

void CEventPlayer::openSomeDialog(QWidget& panel) {
    const int kind = m_dice.below(8);
    QWidget* const height = usable(panel, IDC_HEIGHT);
    if (kind <= 1) {
        doubleClickControl(panel, m_dice.of(SWATCHES));
    } else if (kind <= 3) {
        clickControl(panel, IDC_TERRAIN_TYPES);
    } else if (kind == 4 && height != nullptr) {
        m_gestures.type(*height, "2000", Qt::Key_Tab); // refused with a message box
    } else {
        clickControl(panel, m_dice.of(PICKERS));
    }
}

void CEventPlayer::useDialog(DialogKind kind, QWidget& dialog) {
    if (m_dice.oneIn(12)) {
        m_gestures.hostCall();
    } else if (kind == DialogKind::TEXTURE_LIST && m_dice.oneIn(3)) {
        clickControl(dialog, m_dice.of(LIST_CONTROLS));
    } else if (kind == DialogKind::TERRAIN_TYPES && m_dice.oneIn(3)) {
        m_dice.oneIn(2) ? clickControl(dialog, IDC_TERRAIN_TYPE) : m_gestures.typeIntoAnyField(dialog);
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
