#pragma once

#include "platform/qt/input_window.h"

#include <QRect>
#include <QString>

namespace qtbackend {

/// What a control is made from.
struct ControlTraits {
    WindowTraits window;
    DWORD exStyle = 0;
    QString text;
    QRect rect; ///< in the parent's pixels
};

} // namespace qtbackend
