#include "host/host_service.h"
#include "host/vesk_app.h"
#include "host/veskutil.h"
#include "module/export_scope.h"
#include "module/module_state.h"
#include "movie/panel/movie_editor_dlg.h"
#include "sound/sound_manager.h"

#include <memory>
#include <utility>

namespace {

bool g_bOpening = false; ///< a panel is being made: its movie may call back

} // namespace

void vuCreateMovieEditor(HWND host, qxCMovie* movie, bool showClose) {
    runExport([=] {
        if (g_bMovieEditorActive || g_bOpening) {
            return;
        }
        const CFlagScope opening(g_bOpening);
        g_soundManager.create(); // without a device the editor is silent; that is no reason not to open
        if (movie == nullptr) {
            return;
        }
        auto panel = std::make_unique<CMovieEditorDlg>(showClose);
        g_pMovieEditorDlg = panel.get();
        panel->bind(movie);
        if (!panel->createWindow(CWnd::FromHandle(host))) {
            // Without a window the user could never close the editor: it counts as not opened.
            return;
        }
        static_cast<void>(panel.release()); // from here its window owns it
        g_bMovieEditorActive = true;
    });
}

void vuDestroyMovieEditor() {
    runExport([] {
        if (!g_bMovieEditorActive) {
            return;
        }
        CMovieEditorDlg& panel = *std::exchange(g_pMovieEditorDlg, nullptr);
        g_bMovieEditorActive = false;
        panel.endPlayback();
        g_soundManager.release();
        panel.destroy(); // last: it may end dialogs, and their callers ask whether the editor is open
    });
}

bool vuIsMovieEditorActive() {
    return g_bMovieEditorActive;
}

void vuMovieCameraAltered(qxCCamera* camera, bool finished) {
    runExport([=] {
        if (g_bMovieEditorActive) {
            g_pMovieEditorDlg->cameraAltered(camera, finished);
        }
    });
}

void vuSoundUpdate() {
    runExport([] {
        serveHostWithoutLoop();
        if (g_bMovieEditorActive) {
            g_soundManager.update();
        }
    });
}
