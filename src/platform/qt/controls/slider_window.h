#pragma once

#include "platform/qt/controls/control_traits.h"

#include <QAbstractSlider>

namespace qtbackend {

/// What trackbars and scroll bars have in common: the user's moves arrive at the parent as scroll messages.
class CAbstractSliderWindow : public CInputWindow {
public:
    CAbstractSliderWindow(QAbstractSlider* slider, CWindow& parent, const ControlTraits& traits);

protected:
    QAbstractSlider& slider() const { return m_slider; }
    LRESULT setPosition(int position);
    void setRange(int lower, int upper);
    LRESULT dialogCode() const override { return DLGC_WANTARROWS; }
    bool onEvent(QObject* watched, QEvent* event) override;
    /// The user has moved it: the code tells how.
    virtual void onMoved(int code);

private:
    QAbstractSlider& m_slider;
    int m_nCode = SB_THUMBTRACK; ///< of the move under way
    bool m_bFromProgram = false; ///< changes of the position are not reported
};

/// A trackbar.
class CSliderWindow : public CAbstractSliderWindow {
public:
    CSliderWindow(CWindow& parent, const ControlTraits& traits);

    LRESULT process(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    std::unique_ptr<CWnd> makeStandIn() const override;
};

/// A scroll bar that stands alone. It shows what its parent tells it, also after the user has moved it.
class CScrollBarWindow : public CAbstractSliderWindow {
public:
    CScrollBarWindow(CWindow& parent, const ControlTraits& traits);

    LRESULT process(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    std::unique_ptr<CWnd> makeStandIn() const override;
    void onMoved(int code) override;

private:
    int m_nPosition = 0; ///< as the parent set it
};

} // namespace qtbackend
