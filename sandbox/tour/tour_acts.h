#pragma once

#include "sandbox/tour/tour_stage.h"

/// The steps of the tour, each a function that acts and requires the effect, in the files of their subjects.
namespace tour {

// Window and panel: tour_window_acts.cpp.
void showLandscape(CTourStage& stage);
void comeCloser(CTourStage& stage);
void openEditor(CTourStage& stage);
void expandPanel(CTourStage& stage);
void foldPanel(CTourStage& stage);
void closePanel(CTourStage& stage);
void reopenPanel(CTourStage& stage);
void saveMap(CTourStage& stage);

// Heights: tour_height_acts.cpp.
void showCursor(CTourStage& stage);
void raiseGround(CTourStage& stage);
void drawCone(CTourStage& stage);
void levelRoad(CTourStage& stage);
void selectField(CTourStage& stage);
void raiseField(CTourStage& stage);
void roughenField(CTourStage& stage);
void smoothField(CTourStage& stage);
void undoStroke(CTourStage& stage);

// Water, light and texture: tour_surface_acts.cpp.
void floodValley(CTourStage& stage);
void showCheckerboard(CTourStage& stage);
void showFog(CTourStage& stage);
void listTextures(CTourStage& stage);
void coverGround(CTourStage& stage);
void paintGround(CTourStage& stage);
void plantDetails(CTourStage& stage);

// Edit cursors: tour_cursor_acts.cpp.
void showEveryCursor(CTourStage& stage);
void showDetailHighlight(CTourStage& stage);

} // namespace tour
