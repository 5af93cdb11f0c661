#pragma once

#include "host/ui_events/event_act.h"
#include "host/ui_events/event_dice.h"
#include "host/ui_events/event_hand.h"
#include "host/ui_events/event_stage.h"

#include <QWidget>

#include <deque>
#include <optional>
#include <span>

/// What a person's hand does at random windows, and what the host does meanwhile, as rows of events.
class CEventGestures {
public:
    CEventGestures(CEventDice& dice, CEventStage& stage) : m_dice(dice), m_stage(stage) {}

    /// Takes the next event off the row; nothing when the row is done.
    std::optional<EventAct> takeNext();
    void clear() { m_acts.clear(); }

    // Anything, anywhere in the window.
    void anyEvent(QWidget& window);
    void clickAnywhere(QWidget& window);
    void dragAnywhere(QWidget& window);
    void typeIntoAnyField(QWidget& window);

    // With a purpose.
    void clickOn(QWidget& widget);
    void clickOn(QWidget& widget, QPoint position, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void doubleClickOn(QWidget& widget, QPoint position);
    void dragTo(QWidget& from, QWidget& to);
    void pressKey(QWidget& window, Qt::Key key, const QString& text = {},
                  Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(QWidget& field, const QString& text, Qt::Key leaveBy);
    void close(QWidget& window);
    /// A drag of either button over the frames, with Ctrl now and then, and Escape in the middle.
    void useTimeline(QWidget& timeline);

    /// What the host does while the user works: hardly anything but strokes and hovering.
    void hostCall();
    void callMovie();
    /// Either editor, or both.
    void openEditor();
    /// The editors go; the host may free its map, or lose its window. `withWindow`: it does.
    void destroyEditor(bool withWindow);

private:
    void add(EventKind kind, std::string what, std::function<bool()> send);
    void press(EventKind kind, QWidget& widget, QPoint position, Qt::MouseButton button,
               Qt::KeyboardModifiers modifiers);
    void moveTo(QWidget& widget, QPoint position);
    /// Where the pointer is by then; `over` says where the gesture took it.
    void release(const QWidget& over);
    void pause();
    void turnWheel(QWidget& widget);
    void changeFocus(QWidget& window);
    void resize(QWidget& window);
    void anyKey(QWidget& window);

    CEventDice& m_dice;
    CEventStage& m_stage;
    CEventHand m_hand;
    std::deque<EventAct> m_acts;
};

/// A visible widget of the window, itself included, and a place in it that can be seen.
struct VisiblePoint {
    QWidget* widget;
    QPoint position;
};
VisiblePoint anyPoint(CEventDice& dice, QWidget& window);
/// A visible, enabled widget of the window of this class that the eye can see; null when there is none.
template <class Kind> Kind* anyOf(CEventDice& dice, const QWidget& window) {
    QList<Kind*> found;
    for (Kind* widget : window.findChildren<Kind*>()) {
        if (widget->isVisible() && widget->isEnabled() && !widget->visibleRegion().isEmpty()) {
            found << widget;
        }
    }
    return found.isEmpty() ? nullptr : dice.of(found);
}
