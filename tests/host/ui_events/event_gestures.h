#pragma once

#include "host/ui_events/event_dice.h"
#include "host/ui_events/event_hand.h"
#include "host/ui_events/event_stage.h"

#include <QWidget>

#include <deque>
#include <functional>
#include <optional>
#include <string>

/// One event of a gesture, sent when its turn comes: by then a dialog may have opened or the widget may be
/// gone. A gesture is a row of them, and each is sent from the innermost event loop.
struct EventAct {
    std::string what;
    std::function<void()> send;
};

/// What a person's hand does at random windows, and what the host does meanwhile, as rows of events.
class CEventGestures {
public:
    CEventGestures(CEventDice& dice, CEventStage& stage) : m_dice(dice), m_stage(stage) {}

    /// Takes the next event off the row; nothing when the row is done.
    std::optional<EventAct> takeNext();

    // Anything, anywhere in the window.
    void anyEvent(QWidget& window);
    void clickAnywhere(QWidget& window);
    void dragAnywhere(QWidget& window);
    void typeIntoAnyField(QWidget& window);

    // With a purpose.
    void clickOn(QWidget& widget) { clickOn(widget, widget.rect().center()); }
    void clickOn(QWidget& widget, QPoint position, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void doubleClickOn(QWidget& widget, QPoint position);
    void drag(QWidget& from, QPoint position, QWidget& to, QPoint end);
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
    void add(std::string what, std::function<void()> send) { m_acts.push_back({std::move(what), send}); }
    /// Sent when the widget can still be seen.
    void addOn(QWidget& widget, const std::string& what, std::function<void(QWidget&)> send);
    void press(QWidget& widget, QPoint position, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void moveTo(QWidget& widget, QPoint position);
    /// Where the pointer is by then.
    void release();
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
