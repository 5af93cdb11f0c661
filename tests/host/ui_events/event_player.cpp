#include "host/ui_events/event_player.h"

#include "resources/resource_ids.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>

#include <array>

namespace {

constexpr std::array SWATCHES = {IDC_TINT_COLOUR, IDC_TINT_1, IDC_TINT_2, IDC_AMBIENT_COLOUR,
                                 IDC_DIFFUSE_COLOUR};
constexpr std::array PICKERS = {IDC_SMOOTH_TEXTURE, IDC_ROUGH_TEXTURE, IDC_WATER_TEXTURE, IDC_DETAIL_TEXTURE};
constexpr std::array TYPED_FILES = {"stone.tga",
                                    "moss.tga",
                                    "my.texture.tga",
                                    "twelveletter.tga",
                                    "wüste.tga",
                                    "cut.tga",
                                    "headonly.tga",
                                    "empty.tga",
                                    "noise.tga",
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

QAbstractButton* buttonOf(const QWidget& dialog,
                          std::initializer_list<QDialogButtonBox::StandardButton> kinds) {
    if (const auto* const box = dialog.findChild<QDialogButtonBox*>()) {
        for (const auto kind : kinds) {
            if (QAbstractButton* const button = box->button(kind)) {
                return button;
            }
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

void CEventPlayer::anything(QWidget& window) {
    switch (m_dice.below(8)) {
    case 0:
        return m_gestures.typeIntoAnyField(window);
    case 1:
        return m_gestures.dragAnywhere(window);
    case 2:
    case 3:
        return m_gestures.clickAnywhere(window);
    default:
        return m_gestures.anyEvent(window);
    }
}

void CEventPlayer::useHost(QWidget& window) {
    m_dice.oneIn(3) ? m_gestures.openEditor() : anything(window);
}

/// Those controls of the movie panel that a stray hand seldom meets.
void CEventPlayer::useMoviePanel(QWidget& panel) {
    constexpr std::array BUTTONS = {IDC_PLAY,          IDC_LOOP,          IDC_GO_TO_START,
                                    IDC_NEXT_KEY,      IDC_ADD_KEYFRAME,  IDC_MOVIE_UNDO,
                                    IDC_DELETE_FRAMES, IDC_MARK_KEYFRAME, IDC_PASTE_FRAMES};
    switch (m_dice.below(24)) {
    case 0:
        return clickControl(panel, IDC_SETUP_SOUND_LIST);
    case 1:
        if (QWidget* const swatch = usable(panel, IDC_FADE_COLOUR)) {
            return m_gestures.doubleClickOn(*swatch, swatch->rect().center());
        }
        return anything(panel);
    case 2:
        return m_dice.oneIn(4) ? m_gestures.close(panel) : m_gestures.openEditor();
    case 3:
    case 4:
    case 5:
        return clickControl(panel, m_dice.of(BUTTONS));
    case 6:
    case 7:
        return m_gestures.callMovie();
    case 8:
        if (QWidget* const timeline = usable(panel, IDC_TIMELINE)) {
            return m_gestures.useTimeline(*timeline);
        }
        return anything(panel);
    default:
        return anything(panel);
    }
}

void CEventPlayer::usePanel(QWidget& panel) {
    if (panel.objectName() == QString("dialog-%1").arg(IDD_MOVIE_EDITOR)) {
        return useMoviePanel(panel);
    }
    switch (m_dice.below(40)) {
    case 0:
    case 1:
    case 2:
    case 3:
        return openSomeDialog(panel);
    case 4:
        return clickControl(panel, IDC_EXPAND);
    case 5: {
        QWidget* const from = usable(panel, m_dice.of(SWATCHES));
        QWidget* const to = usable(panel, m_dice.of(SWATCHES));
        return from != nullptr && to != nullptr ? m_gestures.dragTo(*from, *to) : anything(panel);
    }
    case 6:
        return m_dice.oneIn(4) ? m_gestures.close(panel) : clickControl(panel, IDC_UNDO);
    case 7:
        return m_dice.oneIn(4) ? m_gestures.destroyEditor(m_dice.oneIn(4))
                               : clickControl(panel, IDC_SELECT_ALL);
    case 8:
        return m_gestures.openEditor(); // a second opening is ignored
    case 9:
    case 10:
    case 11:
    case 12:
    case 13:
        return m_gestures.hostCall();
    default:
        return anything(panel);
    }
}

void CEventPlayer::openSomeDialog(QWidget& panel) {
    switch (m_dice.below(8)) {
    case 0:
    case 1:
        if (QWidget* const swatch = usable(panel, m_dice.of(SWATCHES))) {
            return m_gestures.doubleClickOn(*swatch, swatch->rect().center());
        }
        return anything(panel);
    case 2:
    case 3:
        return clickControl(panel, IDC_TERRAIN_TYPES);
    case 4:
        if (QWidget* const field = usable(panel, IDC_HEIGHT)) {
            return m_gestures.type(*field, "2000", Qt::Key_Tab);
        }
        return anything(panel);
    default:
        return clickControl(panel, m_dice.of(PICKERS));
    }
}

void CEventPlayer::usePopup(QWidget& popup) {
    m_dice.oneIn(2) ? m_gestures.clickAnywhere(popup) : m_gestures.anyEvent(popup);
}

void CEventPlayer::useDialog(DialogKind kind, QWidget& dialog) {
    if (m_dice.oneIn(12)) {
        return m_gestures.hostCall();
    }
    switch (kind) {
    case DialogKind::TEXTURE_LIST:
        return useTextureList(dialog);
    case DialogKind::TERRAIN_TYPES:
        return useTerrainTypes(dialog);
    case DialogKind::FILES:
        return useFileDialog(dialog);
    default:
        return anything(dialog);
    }
}

void CEventPlayer::useTextureList(QWidget& dialog) {
    switch (m_dice.below(8)) {
    case 0:
        return clickControl(dialog, IDC_IMPORT_TEXTURE);
    case 1:
        return clickControl(dialog, IDC_TEXTURES);
    case 2:
        return clickControl(dialog, m_dice.oneIn(2) ? IDC_TEXTURE_FORMAT : IDC_TEXTURE_SIZE);
    default:
        return anything(dialog);
    }
}

void CEventPlayer::useTerrainTypes(QWidget& dialog) {
    switch (m_dice.below(6)) {
    case 0:
        return clickControl(dialog, IDC_TERRAIN_TYPE);
    case 1:
        return m_gestures.typeIntoAnyField(dialog);
    default:
        return anything(dialog);
    }
}

void CEventPlayer::useFileDialog(QWidget& dialog) {
    m_dice.oneIn(10) ? accept(DialogKind::FILES, dialog) : anything(dialog);
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
    QWidget* button = buttonOf(dialog, {QDialogButtonBox::Ok, QDialogButtonBox::Open});
    if (kind != DialogKind::FILES && kind != DialogKind::COLOUR && kind != DialogKind::MESSAGE) {
        button = usable(dialog, 1);
    }
    if (button != nullptr) {
        m_gestures.clickOn(*button);
    } else {
        m_gestures.pressKey(dialog, Qt::Key_Return, "\r");
    }
}

void CEventPlayer::leave(DialogKind kind, QWidget& dialog, LeaveWay way) {
    switch (way) {
    case LeaveWay::OK:
        return accept(kind, dialog);
    case LeaveWay::CANCEL: {
        QWidget* const own = usable(dialog, 2);
        QWidget* const button = own != nullptr ? own : buttonOf(dialog, {QDialogButtonBox::Cancel});
        return button != nullptr ? m_gestures.clickOn(*button)
                                 : m_gestures.pressKey(dialog, Qt::Key_Escape, "\x1b");
    }
    case LeaveWay::ESCAPE:
        return m_gestures.pressKey(dialog, Qt::Key_Escape, "\x1b");
    case LeaveWay::CLOSE_BOX:
        return m_gestures.close(dialog);
    default:
        // The file dialog belongs to the host's window, every other dialog to the panel.
        return m_gestures.destroyEditor(kind == DialogKind::FILES || m_dice.oneIn(5));
    }
}
