#pragma once

#include "platform/framework/wnd.h"

/// A text, frame or rectangle that takes no input.
class CStatic : public CWnd {};
