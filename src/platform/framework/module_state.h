#pragma once

/// The resources and windows that the framework works on: those of one loaded library.
class AFX_MODULE_STATE;
AFX_MODULE_STATE* AfxGetStaticModuleState();
AFX_MODULE_STATE* AfxGetModuleState();

/// Switches to a module state for the length of a block and back at its end, however it is left.
class AFX_MAINTAIN_STATE2 {
public:
    explicit AFX_MAINTAIN_STATE2(AFX_MODULE_STATE* state);
    ~AFX_MAINTAIN_STATE2();
    AFX_MAINTAIN_STATE2(const AFX_MAINTAIN_STATE2&) = delete;
    AFX_MAINTAIN_STATE2& operator=(const AFX_MAINTAIN_STATE2&) = delete;

private:
    AFX_MODULE_STATE* m_former;
};

#define AFX_MANAGE_STATE(state) const AFX_MAINTAIN_STATE2 moduleStateOfThisBlock(state)
