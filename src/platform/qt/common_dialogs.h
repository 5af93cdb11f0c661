#pragma once

#include "platform/windows_types.h"

#include <QDialog>
#include <QPointer>

namespace qtbackend {

/// The widget that a common dialog stands over: that of the window given, else the one in use, else none.
QWidget* ownerOf(HWND window);

/// Runs one of Qt's own dialogs modally. True when it was accepted, and still exists: its owner may end with
/// it.
bool runDialog(const QPointer<QDialog>& dialog);

} // namespace qtbackend
