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
void getHeight(CTourStage& stage);
void getGradient(CTourStage& stage);
void flattenCell(CTourStage& stage);
void levelRoad(CTourStage& stage);
void selectField(CTourStage& stage);
void raiseField(CTourStage& stage);
void roughenField(CTourStage& stage);
void smoothField(CTourStage& stage);
void undoStroke(CTourStage& stage);
void hideCursor(CTourStage& stage);
void selectAll(CTourStage& stage);

// Water, light, colour and texture: tour_surface_acts.cpp.
void floodValley(CTourStage& stage);
void drainValley(CTourStage& stage);
void showCheckerboard(CTourStage& stage);
void showFog(CTourStage& stage);
void listTextures(CTourStage& stage);
void coverGround(CTourStage& stage);
void chooseTint(CTourStage& stage);
void tintGround(CTourStage& stage);
void paintGround(CTourStage& stage);

// Textures, their definitions and the terrain types: tour_definition_acts.cpp.
void importTextures(CTourStage& stage);
void addDefinition(CTourStage& stage);
void tintDefinition(CTourStage& stage);
void dragTint(CTourStage& stage);
void removeDefinition(CTourStage& stage);
void editTerrainTypes(CTourStage& stage);

// Details: tour_detail_acts.cpp.
void addQuad(CTourStage& stage);
void scaleDetail(CTourStage& stage);
void rotateDetail(CTourStage& stage);
void moveDetail(CTourStage& stage);
void duplicateDetail(CTourStage& stage);
void flipDetail(CTourStage& stage);
void deleteDetail(CTourStage& stage);
void plantDetails(CTourStage& stage);
void showDetailHighlight(CTourStage& stage);

// Edit cursors: tour_cursor_acts.cpp.
void showEveryCursor(CTourStage& stage);

// The film, its editor and the view of it: tour_film_acts.cpp.
void openMovieEditor(CTourStage& stage);
void stepThroughFilm(CTourStage& stage);
void stepWithKeys(CTourStage& stage);
void selectInTimeline(CTourStage& stage);
void zoomTimeline(CTourStage& stage);
void showHeights(CTourStage& stage);
void lookThroughFilm(CTourStage& stage);
void showFade(CTourStage& stage);
void flyFilmCamera(CTourStage& stage);
void setPlace(CTourStage& stage);
void aimAtPlace(CTourStage& stage);
void listPlaces(CTourStage& stage);
void scrubFilm(CTourStage& stage);
void playFilm(CTourStage& stage);
void loopFilm(CTourStage& stage);
void closeMovieEditor(CTourStage& stage);

// Keyframes and the soundtrack: tour_keyframe_acts.cpp.
void editNumbers(CTourStage& stage);
void chooseFrameProperties(CTourStage& stage);
void chooseFadeColour(CTourStage& stage);
void ease(CTourStage& stage);
void markKeyframes(CTourStage& stage);
void insertFrames(CTourStage& stage);
void copyFrames(CTourStage& stage);
void setUpSounds(CTourStage& stage);

} // namespace tour
