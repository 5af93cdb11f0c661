#pragma once

#include "platform/framework/module_state.h"

/// Runs the body of an export in the library's own module state, so that dialog templates and icons are found
/// in the library, and gives the caller's back on every way out. A host may be written in another language or
/// built without exceptions: none leaves here, and a call that ran out of memory ends as one that does not
/// apply.
template <typename Body> void runExport(Body&& body) noexcept {
    try {
        AFX_MANAGE_STATE(AfxGetStaticModuleState());
        body();
    } catch (...) {
        return;
    }
}

/// A flag that is set while this lives.
class CFlagScope {
public:
    explicit CFlagScope(bool& flag) : m_flag(flag) { m_flag = true; }
    ~CFlagScope() { m_flag = false; }
    CFlagScope(const CFlagScope&) = delete;
    CFlagScope& operator=(const CFlagScope&) = delete;

private:
    bool& m_flag;
};
