#pragma once

#include "platform/qt/controls/control_traits.h"

namespace qtbackend {

/// A bar that fills up.
class CProgressWindow : public CInputWindow {
public:
    CProgressWindow(CWindow& parent, const ControlTraits& traits);

    LRESULT process(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool capturesMouse() const override { return false; }

protected:
    LRESULT dialogCode() const override { return DLGC_STATIC; }
    std::unique_ptr<CWnd> makeStandIn() const override;
};

} // namespace qtbackend
