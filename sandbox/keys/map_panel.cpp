#include "sandbox/keys/map_panel.h"

#include "sandbox/hands/dialogs.h"

#include <QAbstractSlider>
#include <QLabel>
#include <QTabBar>

#include <algorithm>

namespace {

constexpr int TEMPLATE = 212;
constexpr int FOLD = 2012;
constexpr int STRENGTH_TEXT = 1409;

template <class Kind> Kind* controlOf(int id) {
    const QWidget* const panel = CMapPanel::window();
    return panel != nullptr ? findControl<Kind>(*panel, id) : nullptr;
}

bool isChosen(int control) {
    const QAbstractButton* const button = CMapPanel::button(control);
    return button != nullptr && button->isChecked();
}

} // namespace

QWidget* CMapPanel::window() {
    return shownDialog(TEMPLATE);
}

QTabBar* CMapPanel::tabs() {
    return controlOf<QTabBar>(TABS);
}

bool CMapPanel::showsDetails() {
    const QTabBar* const bar = tabs();
    return bar != nullptr && bar->currentIndex() == 1;
}

void CMapPanel::turnTabs() {
    if (QTabBar* const bar = tabs()) {
        bar->setCurrentIndex(1 - bar->currentIndex());
    }
}

QAbstractButton* CMapPanel::button(int control) {
    return controlOf<QAbstractButton>(control);
}

bool CMapPanel::press(int control) {
    QAbstractButton* const pressed = button(control);
    if (pressed == nullptr || !pressed->isEnabled()) {
        return false;
    }
    pressed->click();
    return true;
}

bool CMapPanel::pressUnfolded(int control) {
    const QAbstractButton* const pressed = button(control);
    const bool folded = pressed != nullptr && !pressed->isVisible() && press(FOLD);
    const bool done = press(control);
    if (folded) {
        press(FOLD);
    }
    return done;
}

const MapTool* CMapPanel::chosenTool() {
    const auto found = std::ranges::find_if(mapTools(), &isChosen, &MapTool::control);
    return found != mapTools().end() ? &*found : nullptr;
}

int CMapPanel::chosenBrush() {
    const auto chosen = std::ranges::find_if(BRUSHES, &isChosen, &BrushText::control);
    return chosen != BRUSHES.end() ? chosen->control : 0;
}

int CMapPanel::strength() {
    const auto* const number = controlOf<QLabel>(STRENGTH_TEXT);
    return number != nullptr ? number->text().toInt() : 0;
}

void CMapPanel::setStrength(int strength) {
    if (auto* const slider = controlOf<QAbstractSlider>(STRENGTH)) {
        slider->setValue(strength);
    }
}

void CMapPanel::stepBrush(int steps) {
    const auto chosen = std::ranges::find_if(BRUSHES, &isChosen, &BrushText::control);
    const auto last = static_cast<int>(BRUSHES.size()) - 1;
    const int now = chosen != BRUSHES.end() ? static_cast<int>(chosen - BRUSHES.begin()) : 0;
    press(BRUSHES[static_cast<std::size_t>(std::clamp(now + steps, 0, last))].control);
}

void CMapPanel::stepStrength(int steps) {
    auto* const slider = controlOf<QAbstractSlider>(STRENGTH);
    if (slider != nullptr && slider->isEnabled()) {
        slider->triggerAction(steps > 0 ? QAbstractSlider::SliderSingleStepAdd
                                        : QAbstractSlider::SliderSingleStepSub);
    }
}
