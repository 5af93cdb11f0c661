#pragma once

#include <QByteArray>

namespace qtbackend {

/// Whether an X server accepts this process at the address `display` ("host:number.screen"), with the key
/// that the person's authority file has for it.
bool answersAsX11(const QByteArray& display);

/// Whether the Wayland compositor that the environment names takes connections.
bool isWaylandThere();

} // namespace qtbackend
