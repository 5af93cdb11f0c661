#pragma once

#include "sandbox/tour/tour_stage.h"

#include <QString>
#include <vector>

/// One step of the tour: what is done, and the name of the picture taken after it.
struct TourStep {
    const char* name;
    void (*act)(CTourStage& stage);
};

/// The written session, in order. A step throws CTourFailure when it did not have its effect.
const std::vector<TourStep>& tourSteps();

/// Play the session on the window, which must be shown, from the step of the name `first` on, or all of it
/// when that is empty, and write a numbered picture of each step into the folder. Returns the process's exit
/// code: 0 when every step had its effect. Failures go to stderr; the tour ends at the first one.
int playTour(CMainWindow& window, const QString& folder, const QString& first);
