#include "host/export_scope.h"
#include "host/module_state.h"
#include "host/veskutil.h"

void vuCreateMovieEditor(HWND /*host*/, qxCMovie* /*movie*/, bool /*showClose*/) {
    // The library has no movie panel to show: the editor stays closed, and says so.
}

void vuDestroyMovieEditor() {
    runExport([] {
        g_pMovieEditorDlg = nullptr;
        g_bMovieEditorActive = false;
    });
}

bool vuIsMovieEditorActive() {
    return g_bMovieEditorActive;
}

void vuMovieCameraAltered(qxCCamera* /*camera*/, bool /*finished*/) {}

void vuSoundUpdate() {}
