#pragma once

#include "platform/qt/window.h"

#include <QEvent>

namespace qtbackend {

/// A window that people use: turns the input to its widget that its kind leaves alone into messages.
class CInputWindow : public CWindow {
public:
    using CWindow::CWindow;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    /// Events of the kind's own interest. True when the event was used up.
    virtual bool onEvent(QObject* watched, QEvent* event);
};

} // namespace qtbackend
