#pragma once

class QKeyEvent;
class QObject;

namespace qtbackend {

class CWindow;

/// Sends a key through the PreTranslateMessage of the window and its parents, and what they leave as
/// WM_KEYDOWN to the window. True when the key was used up.
bool translateKey(CWindow& window, QObject* watched, QKeyEvent& event);

} // namespace qtbackend
