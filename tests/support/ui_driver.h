#pragma once

#include <QString>
#include <QWidget>

#include <functional>

// A person's hands and eyes in front of dialogs: real mouse and key events, controls found by their ids.
namespace ui {

/// The control of a dialog; throws, which fails the test, when the dialog has none of that id and type.
QWidget& control(const QWidget& dialog, int id);
template <class Kind> Kind& control(const QWidget& dialog, int id) {
    return dynamic_cast<Kind&>(control(dialog, id));
}

/// The shown dialog made from the template, or null.
QWidget* dialog(int templateId);

/// Waits for the window to be the active one, which has the keyboard. False when it does not become so.
bool waitUntilActive(QWidget* window);

void click(QWidget& widget);
void click(QWidget& widget, QPoint position);
void doubleClick(QWidget& widget);
/// Presses on one widget and releases on another, as a drag without capture does.
void drag(QWidget& from, QWidget& to);
void dragFrom(QWidget& from, QPoint position, QWidget& to);
/// Turns the wheel over the middle of a widget, by notches away from the person.
void turnWheel(QWidget& widget, int notches);

/// Presses and releases a key in whatever has the focus.
void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Clicks into the field and replaces its text by typing.
void type(QWidget& field, const QString& text);

/// Handles events until the condition holds. False when it does not within five seconds.
bool waitUntil(const std::function<bool()>& condition);
/// Handles the events that are there.
void settle();

} // namespace ui
