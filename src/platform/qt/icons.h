#pragma once

#include "platform/windows_types.h"

#include <QIcon>
#include <QSize>

namespace qtbackend {

/// The picture behind a handle, made when the handle is first shown.
QIcon iconOf(HICON icon);

/// The size at which icons are drawn in a square of so many pixels: their own, or what fits.
QSize iconSizeFor(int room);

} // namespace qtbackend
