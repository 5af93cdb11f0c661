#pragma once

#include <QFont>
#include <QString>

namespace qtbackend {

/// Makes sure that there is an application object, the host's or one that then stays to the process's end.
/// False when widgets cannot be made: the host runs Qt without them, or has ended its application object, or
/// there is no display.
bool ensureApplication();

/// The font that a dialog template asks for, as this machine has it. The two logical fonts of the windowing
/// system stand for the platform's own user-interface font.
QFont dialogFont(const QString& face, int pointSize);

} // namespace qtbackend
