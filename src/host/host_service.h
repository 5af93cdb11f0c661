#pragma once

#include "platform/windows/back_end.h"

/// The sound update is the one call that every host makes again and again, so it is also where the library's
/// windows are served in a host that runs no message loop for them. With the genuine window system there is
/// nothing to do: a thread with windows has a loop.
inline void serveHostWithoutLoop() {
    ::ServeWindows();
}
