#pragma once

#include "platform/framework/wnd.h"

/// A line of text to type in.
class CEdit : public CWnd {};
