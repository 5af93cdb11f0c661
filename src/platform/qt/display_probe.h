#pragma once

#include <QByteArray>

namespace qtbackend {

/// The platform plugin, with what the environment adds to its name, by which an application object can be
/// made in this process; empty when there is none. An application object made all the same would end the
/// process. Takes a few seconds where a display is reached and does not answer, and prints nothing.
QByteArray findUsablePlatform();

} // namespace qtbackend
