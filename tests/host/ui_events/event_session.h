#pragma once

#include "host/ui_events/event_log.h"
#include "host/ui_events/event_player.h"

#include <QEventLoop>
#include <QObject>
#include <QPointer>

#include <vector>

/// Plays events into both editors and whatever they open, one at each turn of the innermost event loop, so
/// that the loops of modal dialogs, menus and drags are driven from inside. What is spent from one turn to
/// the next is the event's, with all that it caused to be done, and without the events of a nested loop. The
/// same seed plays alike again, though not to the letter: what Qt does by the clock meets other events.
class CEventSession : public QObject {
public:
    CEventSession(CEventDice& dice, CEventStage& stage, EventTally& tally);

    /// Sends `count` events, then leaves what stands open and closes the editors. False when something would
    /// not be left.
    bool run(int count);

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    /// A modal dialog that stands open, or is about to go.
    struct OpenDialog {
        QPointer<QWidget> window;
        DialogKind kind;
        int turnsLeft;                         ///< before it is left on purpose
        LeaveWay wanted = LeaveWay::BY_CHANCE; ///< of the gesture being made
    };

    void noteTime(std::string next);
    void keepActivation();
    bool checkPanel();
    void observeDialogs();
    void enter(QWidget& window);
    OpenDialog* topDialog();
    void plan();
    void planIn(OpenDialog& dialog);
    void planEnd();
    void send(const EventAct& act);

    CEventDice& m_dice;
    CEventStage& m_stage;
    EventTally& m_tally;
    CEventGestures m_gestures;
    CEventPlayer m_player;
    CEventLog m_log;
    QEventLoop m_loop;
    int m_nTimer = 0;
    int m_nEnd = 0;
    int m_nDepth = 0;
    int m_nEndTurns = 0;
    bool m_bStuck = false;
    int m_nBrokenTurns = 0; // since a rule of the panel was seen broken
    std::string m_strEvent; // the one being handled
    std::vector<OpenDialog> m_dialogs;
};
