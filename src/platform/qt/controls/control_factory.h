#pragma once

#include "platform/qt/window.h"

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

/// Makes a control at the end of the parent's controls and enters it in the registry; null for an unknown
/// class.
CWindow* makeControl(CWindow& parent, const ControlTraits& traits);

void registerClass(const std::string& name);

} // namespace qtbackend
