#pragma once

#include "platform/qt/controls/control_traits.h"

namespace qtbackend {

/// A pair of arrows beside its buddy, mostly an edit.
class CUpDownWindow : public CInputWindow {
public:
    CUpDownWindow(CWindow& parent, const ControlTraits& traits);

    void onCreated() override;
    LRESULT process(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool capturesMouse() const override { return true; }

    /// Asks the parent about a step, then makes it unless the parent says no.
    void step(bool up);

protected:
    LRESULT dialogCode() const override { return DLGC_STATIC; }
    std::unique_ptr<CWnd> makeStandIn() const override;
    bool onEvent(QObject* watched, QEvent* event) override;

private:
    CWindow* buddy() const;
    void setBuddy(HWND window);
    void standBesideBuddy();
    int setPosition(int position);

    HWND m_buddy = nullptr;
    int m_nLower = 100;
    int m_nUpper = 0;
    int m_nPosition = 0;
};

} // namespace qtbackend
