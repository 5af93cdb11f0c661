#include "platform/framework/module_state.h"

#include "platform/resources.h"

#include <utility>

namespace {

AFX_MODULE_STATE* g_pSwitchedTo = nullptr;

} // namespace

std::span<const std::byte> AFX_MODULE_STATE::resources() const {
    return embeddedResources();
}

AFX_MODULE_STATE* AfxGetStaticModuleState() {
    static AFX_MODULE_STATE state;
    return &state;
}

AFX_MODULE_STATE* AfxGetModuleState() {
    return g_pSwitchedTo != nullptr ? g_pSwitchedTo : AfxGetStaticModuleState();
}

AFX_MAINTAIN_STATE2::AFX_MAINTAIN_STATE2(AFX_MODULE_STATE* state)
    : m_pFormer(std::exchange(g_pSwitchedTo, state)) {}

AFX_MAINTAIN_STATE2::~AFX_MAINTAIN_STATE2() {
    g_pSwitchedTo = m_pFormer;
}
