#include "host/ui_events/event_session.h"

#include "host/veskutil.h"
#include "resources/resource_ids.h"
#include "sandbox/hands/dialogs.h"
#include "terrain/model/map_undo_list.h"

#include <QApplication>
#include <QFileDialog>
#include <QWindow>

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <utility>

namespace {

constexpr double LONGEST_EVENT = 1.0; // seconds
constexpr int TURNS_TO_END = 2000;
constexpr int TURNS_TO_SETTLE = 100;

std::string nameOf(const QWidget* widget) {
    return widget != nullptr ? widget->objectName().toStdString() : "nothing";
}

std::optional<DialogKind> kindOf(const QWidget& window) {
    const std::pair<bool, DialogKind> kinds[] = {
        {window.inherits("QColorDialog"), DialogKind::COLOUR},
        {window.inherits("QFileDialog"), DialogKind::FILES},
        {window.inherits("QMessageBox"), DialogKind::MESSAGE},
        {&window == shownDialog(IDD_TEXTURE_LIST), DialogKind::TEXTURE_LIST},
        {&window == shownDialog(IDD_SOUNDTRACK), DialogKind::SOUNDTRACK},
        {&window == shownDialog(IDD_TERRAIN_TYPE_EDITOR), DialogKind::TERRAIN_TYPES}};
    const auto found = std::ranges::find(kinds, true, &std::pair<bool, DialogKind>::first);
    return found != std::end(kinds) ? std::optional(found->second) : std::nullopt;
}

/// One of the panels that are open; null when none is.
QWidget* findPanel(CEventDice& dice) {
    QList<QWidget*> panels = {shownDialog(IDD_MAP_EDITOR), shownDialog(IDD_MOVIE_EDITOR)};
    panels.removeAll(nullptr);
    return panels.isEmpty() ? nullptr : dice.of(panels);
}

/// Nothing outside the session's directory is shown, and nothing in it renamed or deleted: what those
/// commands do is the file dialog's own affair, and the machine's files are not the test's.
void confine(QFileDialog& dialog, const QString& directory) {
    dialog.setOption(QFileDialog::ReadOnly);
    QObject::connect(&dialog, &QFileDialog::directoryEntered, &dialog,
                     [&dialog, directory](const QString& entered) {
                         if (!entered.startsWith(directory)) {
                             dialog.setDirectory(directory);
                         }
                     });
}

} // namespace

CEventSession::CEventSession(CEventDice& dice, CEventStage& stage, EventTally& tally)
    : m_dice(dice), m_stage(stage), m_tally(tally), m_gestures(dice, stage), m_player(dice, m_gestures) {}

bool CEventSession::run(int count) {
    m_nEnd = m_tally.events + count;
    m_nTimer = startTimer(0);
    m_loop.exec();
    return !m_bStuck;
}

void CEventSession::timerEvent(QTimerEvent*) {
    // A timer does not fire inside its own event: the loops in there get one of their own.
    killTimer(m_nTimer);
    m_nTimer = startTimer(0);
    noteTime({});
    observeDialogs();
    m_stage.observe();
    keepActivation();
    const bool rests = m_nDepth == 0 && QApplication::activeModalWidget() == nullptr;
    if (rests && m_nBrokenTurns < TURNS_TO_SETTLE && !checkPanel()) {
        return;
    }
    std::optional<EventAct> act = m_gestures.takeNext();
    if (!act) {
        m_tally.events < m_nEnd ? plan() : planEnd();
        act = m_gestures.takeNext();
    }
    if (act) {
        send(*act);
    }
}

/// A screen always has an active window. Without a screen Qt may call none active after a dialog's end, and a
/// field then loses the focus without hearing of it.
void CEventSession::keepActivation() {
    if (QApplication::activeWindow() == nullptr && QApplication::activeModalWidget() == nullptr &&
        QApplication::activePopupWidget() == nullptr) {
        QWidget* const focused = QApplication::focusWindow() != nullptr
                                     ? QWidget::find(QApplication::focusWindow()->winId())
                                     : nullptr;
        QApplication::setActiveWindow(focused != nullptr ? focused : m_stage.window());
    }
}

/// A change of the focus may still be under way: what is broken gets some turns without an event to settle.
/// It is told once, as what follows would only repeat it.
bool CEventSession::checkPanel() {
    if (m_stage.checkPanel()) {
        m_nBrokenTurns = 0;
        return true;
    }
    if (++m_nBrokenTurns == TURNS_TO_SETTLE) {
        ADD_FAILURE() << m_stage.brokenRule() << ", the focus in " << nameOf(QApplication::focusWidget())
                      << ", active " << nameOf(QApplication::activeWindow())
                      << ", after the last of these events:\n"
                      << m_log.getLastEvents();
    }
    return m_nBrokenTurns == TURNS_TO_SETTLE;
}

void CEventSession::send(const EventAct& act) {
    noteTime(act.what);
    const int records = g_mapUndoList.getCount();
    ++m_nDepth;
    act.send();
    --m_nDepth;
    ++m_tally.events;
    m_tally.recorded += records != g_mapUndoList.getCount() ? 1 : 0;
}

void CEventSession::noteTime(std::string next) {
    const double spent = m_log.begin(next);
    const std::string event = std::exchange(m_strEvent, std::move(next));
    if (spent > LONGEST_EVENT && !event.empty()) {
        ADD_FAILURE() << event << " took " << spent << " s. The last events:\n" << m_log.getLastEvents();
    }
}

void CEventSession::observeDialogs() {
    std::erase_if(m_dialogs, [this](const OpenDialog& dialog) {
        if (dialog.window != nullptr && dialog.window->isVisible()) {
            return false;
        }
        ++m_tally.leftOf(dialog.kind)[static_cast<std::size_t>(dialog.wanted)];
        return true;
    });
    QWidget* const shown = QApplication::activeModalWidget();
    if (shown != nullptr &&
        std::ranges::none_of(m_dialogs, [&](auto& known) { return known.window == shown; })) {
        enter(*shown);
    }
}

void CEventSession::enter(QWidget& window) {
    const std::optional<DialogKind> kind = kindOf(window);
    if (!kind) {
        ADD_FAILURE() << "an unknown dialog: " << window.metaObject()->className();
        window.close();
        return;
    }
    m_dialogs.push_back({&window, *kind, m_dice.between(1, *kind == DialogKind::MESSAGE ? 4 : 20)});
    m_tally.dialogsAtOnce = std::max(m_tally.dialogsAtOnce, static_cast<int>(m_dialogs.size()));
    if (auto* const files = qobject_cast<QFileDialog*>(&window)) {
        confine(*files, m_stage.directory());
    }
}

CEventSession::OpenDialog* CEventSession::topDialog() {
    QWidget* const shown = QApplication::activeModalWidget();
    const auto found = std::ranges::find_if(m_dialogs, [&](auto& known) { return known.window == shown; });
    return shown != nullptr && found != m_dialogs.end() ? &*found : nullptr;
}

void CEventSession::plan() {
    for (OpenDialog& dialog : m_dialogs) {
        dialog.wanted = LeaveWay::BY_CHANCE; // the gesture is over, and it still stands
    }
    QWidget* const popup = QApplication::activePopupWidget();
    QWidget* const panel = findPanel(m_dice);
    if (popup != nullptr && !m_dice.oneIn(6)) {
        m_player.anything(*popup);
    } else if (OpenDialog* const dialog = topDialog()) {
        planIn(*dialog);
    } else if (panel != nullptr && !m_dice.oneIn(15)) {
        m_player.usePanel(*panel);
    } else if (m_dice.oneIn(3)) {
        m_gestures.openEditor();
    } else {
        m_player.anything(*m_stage.window());
    }
}

void CEventSession::planIn(OpenDialog& dialog) {
    QWidget* const panel = findPanel(m_dice);
    if (--dialog.turnsLeft < 0) {
        // The way that was taken least so far, or any, when that one does not end it.
        const EventTally::Ways& taken = m_tally.leftOf(dialog.kind);
        const auto rarest = std::min_element(taken.begin(), taken.end() - 1) - taken.begin();
        const int any = m_dice.below(static_cast<int>(LeaveWay::BY_CHANCE));
        dialog.wanted = static_cast<LeaveWay>(m_dice.oneIn(2) ? static_cast<int>(rarest) : any);
        m_player.leave(dialog.kind, *dialog.window, dialog.wanted);
    } else if (panel != nullptr && m_dice.oneIn(12)) {
        m_gestures.clickAnywhere(*panel); // which the dialog blocks
    } else {
        m_player.useDialog(dialog.kind, *dialog.window);
    }
}

void CEventSession::planEnd() {
    if (++m_nEndTurns > TURNS_TO_END) {
        ADD_FAILURE() << "what stands open cannot be left. The last events:\n" << m_log.getLastEvents();
        m_bStuck = true;
    }
    if (QWidget* const popup = QApplication::activePopupWidget()) {
        m_gestures.close(*popup);
    } else if (QWidget* const dialog = QApplication::activeModalWidget()) {
        m_gestures.close(*dialog);
    } else if (vuIsEditorActive() || vuIsMovieEditorActive()) {
        m_gestures.destroyEditor(false);
    } else if (m_nDepth == 0 || m_bStuck) {
        killTimer(m_nTimer);
        m_loop.quit();
    }
}
