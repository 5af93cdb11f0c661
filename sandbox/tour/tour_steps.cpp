#include "sandbox/tour/tour.h"
#include "sandbox/tour/tour_acts.h"

const std::vector<CTourStep>& tourSteps() {
    using namespace tour;
    static const std::vector<CTourStep> steps{
        {"landscape", showLandscape},
        {"closer", comeCloser},
        {"map-editor", openEditor},
        {"raise-cursor", showCursor},
        {"raise", raiseGround},
        {"magnet", drawCone},
        {"set-height", levelRoad},
        {"select", selectField},
        {"raise-selection", raiseField},
        {"roughen", roughenField},
        {"smooth", smoothField},
        {"undo", undoStroke},
        {"flood", floodValley},
        {"checkerboard", showCheckerboard},
        {"fog", showFog},
        {"advanced", expandPanel},
        {"texture-list", listTextures},
        {"base-textures", coverGround},
        {"simple", foldPanel},
        {"paint", paintGround},
        {"every-cursor", showEveryCursor},
        {"details", plantDetails},
        {"detail-highlight", showDetailHighlight},
        {"closed", closePanel},
        {"reopened", reopenPanel},
        {"saved", saveMap},
    };
    return steps;
}
