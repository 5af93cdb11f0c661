#pragma once

#include "host/ui_events/event_gestures.h"

/// Decides what the hand does next in the window at hand: mostly anything, now and then something with a
/// purpose, so that every dialog is opened, used and left in every way.
class CEventPlayer {
public:
    CEventPlayer(CEventDice& dice, CEventGestures& gestures) : m_dice(dice), m_gestures(gestures) {}

    void anything(QWidget& window);
    /// The panel of either editor.
    void usePanel(QWidget& panel);
    void useDialog(DialogKind kind, QWidget& dialog);
    /// Leaves the dialog in this way, which a message box has less of.
    void leave(DialogKind kind, QWidget& dialog, LeaveWay way);

private:
    void chooseFiles(QWidget& dialog);
    void accept(DialogKind kind, QWidget& dialog);

    CEventDice& m_dice;
    CEventGestures& m_gestures;
};
