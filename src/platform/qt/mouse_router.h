#pragma once

#include "platform/windows_types.h"

class QMouseEvent;
class QObject;
class QWheelEvent;

namespace qtbackend {

class CWindow;

/// Turns a mouse event into a message to the window that is to have it: the one that captured the mouse, else
/// the one under the pointer, whichever widget Qt keeps the mouse with. True when the event was used up.
bool routeMouse(CWindow& window, QObject* watched, QMouseEvent& event);

/// Sends the turn of a wheel to the window. True when the event was used up; an ignored one goes to the
/// parent.
bool routeWheel(CWindow& window, QObject* watched, QWheelEvent& event);

/// The press that Qt is about to deliver never happened: its click was answered by a modal dialog already.
void discardNextPress();

} // namespace qtbackend
