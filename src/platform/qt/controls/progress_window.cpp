#include "platform/qt/controls/progress_window.h"

#include "platform/framework/controls/progress_ctrl.h"
#include "platform/windows/control_messages.h"

#include <QProgressBar>

#include <algorithm>

namespace qtbackend {

namespace {

LRESULT setPosition(QProgressBar& bar, int position) {
    const int former = bar.value();
    const int within = std::clamp(position, bar.minimum(), bar.maximum());
    if (within != former) {
        bar.setValue(within);
    }
    return former;
}

void setRange(QProgressBar& bar, int lower, int upper) {
    if (bar.minimum() != lower || bar.maximum() != upper) {
        const int position = std::clamp(bar.value(), lower, std::max(lower, upper));
        bar.setRange(lower, upper);
        bar.setValue(position);
    }
}

} // namespace

CProgressWindow::CProgressWindow(CWindow& parent, const ControlTraits& traits)
    : CInputWindow(new QProgressBar(parent.widget()), &parent, traits.window) {
    auto& bar = static_cast<QProgressBar&>(*widget());
    bar.setTextVisible(false);
    bar.setToolTip(traits.text);
    bar.setAccessibleName(traits.text);
    bar.setRange(0, 100);
    bar.setValue(0);
}

LRESULT CProgressWindow::process(UINT message, WPARAM wParam, LPARAM lParam) {
    auto& bar = static_cast<QProgressBar&>(*widget());
    switch (message) {
    case PBM_SETRANGE32:
        setRange(bar, static_cast<int>(wParam), static_cast<int>(lParam));
        return 0;
    case PBM_SETPOS:
        return setPosition(bar, static_cast<int>(wParam));
    case PBM_GETPOS:
        return bar.value();
    default:
        return CInputWindow::process(message, wParam, lParam);
    }
}

std::unique_ptr<CWnd> CProgressWindow::makeStandIn() const {
    return std::make_unique<CProgressCtrl>();
}

} // namespace qtbackend
