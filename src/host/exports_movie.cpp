#include "host/export_scope.h"
#include "host/host_service.h"
#include "host/veskutil.h"
#include "module/module_state.h"
#include "sound/sound_manager.h"

void vuCreateMovieEditor(HWND /*host*/, qxCMovie* /*movie*/, bool /*showClose*/) {
    runExport([] {
        if (g_bMovieEditorActive) {
            return;
        }
        // Without a device the editor is silent; that is no reason not to open.
        g_soundManager.create();
        // This library has no panel to show a movie in. The editor stays closed and says so, rather than let
        // the host wait for the end of an editor that nobody sees.
    });
}

void vuDestroyMovieEditor() {
    runExport([] {
        if (!g_bMovieEditorActive) {
            return;
        }
        g_soundManager.release();
        g_pMovieEditorDlg = nullptr;
        g_bMovieEditorActive = false;
    });
}

bool vuIsMovieEditorActive() {
    return g_bMovieEditorActive;
}

void vuMovieCameraAltered(qxCCamera* /*camera*/, bool /*finished*/) {
    // Only an open movie panel takes camera moves.
}

void vuSoundUpdate() {
    runExport([] {
        serveHostWithoutLoop();
        if (g_bMovieEditorActive) {
            g_soundManager.update();
        }
    });
}
