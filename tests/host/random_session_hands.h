#pragma once

#include "host/random_session_driver.h"
#include "support/modal_steps.h"

#include <QTabBar>
#include <QWidget>

#include <functional>

// What a person does in a random session, with mouse and keys, and what can be read off the controls.
namespace hands {

QTabBar& tabBar(QWidget& tabs);
/// A control of a dialog that has an id of its own.
struct Control {
    int id;
    QWidget* widget;
};
/// All of a dialog, by their ids.
std::vector<Control> controlsOf(const QWidget& dialog);
/// What a control shows. Of a list: all entries, a star before the chosen one.
std::string describe(const Control& control);
/// Replace an edit's text and leave it.
void type(QWidget& edit, const std::string& text, Leaving leaving);
/// Read a message box and press Return.
void dismiss(QWidget& messageBox, Seen& messages);
/// Run `open`, and in the dialog that comes up, if one does, take the steps. What was seen: all controls at
/// first and after each step that left the dialog open, and the messages in between.
Seen playDialog(const std::vector<DialogStep>& steps, const std::function<void()>& open);

} // namespace hands
