#pragma once

#include "platform/qt/controls/control_traits.h"

class QPainter;

namespace qtbackend {

/// A window of a class that the program registered: its object paints it and hears its mouse.
class CCustomWindow : public CInputWindow {
public:
    CCustomWindow(CWindow& parent, const ControlTraits& traits);

    bool capturesMouse() const override { return false; }
    QRect clientRect() const override;

    void paint();

protected:
    bool onEvent(QObject* watched, QEvent* event) override;
};

} // namespace qtbackend
