#pragma once

#include "platform/qt/controls/control_traits.h"

namespace qtbackend {

/// Makes a control at the end of the parent's controls and enters it in the registry; null for an unknown
/// class.
CWindow* makeControl(CWindow& parent, const ControlTraits& traits);

void registerClass(const std::string& name);

} // namespace qtbackend
