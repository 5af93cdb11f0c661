#pragma once

#include <cstddef>
#include <span>

class CWinApp;

/// What the framework works on for one loaded library: its application object and its resources.
class AFX_MODULE_STATE {
public:
    CWinApp* m_pCurrentWinApp = nullptr;

    /// The library's compiled resource file.
    std::span<const std::byte> resources() const;
};

/// The state of the library that this code is part of.
AFX_MODULE_STATE* AfxGetStaticModuleState();
/// The state switched to; the library's own when nobody switched.
AFX_MODULE_STATE* AfxGetModuleState();

/// Switches to a module state for the length of a block and back at its end, however it is left.
class AFX_MAINTAIN_STATE2 {
public:
    explicit AFX_MAINTAIN_STATE2(AFX_MODULE_STATE* state);
    ~AFX_MAINTAIN_STATE2();
    AFX_MAINTAIN_STATE2(const AFX_MAINTAIN_STATE2&) = delete;
    AFX_MAINTAIN_STATE2& operator=(const AFX_MAINTAIN_STATE2&) = delete;

private:
    AFX_MODULE_STATE* m_pFormer;
};

#define AFX_MANAGE_STATE(state) const AFX_MAINTAIN_STATE2 moduleStateOfThisBlock(state)
