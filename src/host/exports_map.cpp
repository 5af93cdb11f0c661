#include "host/export_scope.h"
#include "host/veskutil.h"
#include "module/module_state.h"
#include "platform/framework/win_app.h"
#include "terrain/map_editor_settings.h"
#include "terrain/map_undo_list.h"
#include "terrain/panel/map_editor_dlg.h"

#include <memory>

namespace {

/// The library's application object: made when the library is loaded, gone when the process ends. It stands
/// beside the exports so that whatever links them has it.
CWinApp theApp;

} // namespace

void vuCreateEditor(HWND host, qxCMap* map, CString textureDir, vuMessageCallback onMessage, bool fullEditing,
                    vuIntCallback intCallback) {
    runExport([&] {
        if (g_bEditorActive || map == nullptr) {
            return;
        }
        auto panel = std::make_unique<CMapEditorDlg>(fullEditing);
        g_pMapEditorDlg = panel.get();
        g_strTextureDir = textureDir;
        g_hHostWnd = host;
        panel->bind(map);
        if (!panel->createWindow(CWnd::FromHandle(host))) {
            // Without a window the user could never close the editor: it counts as not opened.
            g_pMapEditorDlg = nullptr;
            return;
        }
        static_cast<void>(panel.release()); // from here its window owns it
        g_bEditorActive = true;
        g_pfnMessageCallback = onMessage;
        g_pfnIntCallback = intCallback;
    });
}

void vuDestroyEditor() {
    runExport([] {
        if (!g_bEditorActive) {
            return;
        }
        g_pMapEditorDlg->destroy();
        g_pMapEditorDlg = nullptr;
        g_bEditorActive = false;
        g_pfnMessageCallback = nullptr;
        g_pfnIntCallback = nullptr;
    });
}

void vuStartEditing(int x, int z, int edge, int corner) {
    runExport([=] {
        if (!g_bEditorActive) {
            return;
        }
        g_bEditingInProgress = true;
        g_pMapEditorDlg->strokeStart(x, z, edge, corner);
    });
}

void vuUpdateEditing(int x, int z, int /*ignored1*/, int /*ignored2*/, int /*ignored3*/, int amount) {
    runExport([=] {
        if (g_bEditorActive) {
            g_pMapEditorDlg->strokeUpdate(x, z, amount);
        }
    });
}

void vuStopEditing() {
    runExport([] {
        if (!g_bEditorActive) {
            return;
        }
        g_bEditingInProgress = false;
        g_pMapEditorDlg->strokeEnd();
    });
}

void vuUpdateCursor(int x, int z, int edge, int corner) {
    runExport([=] {
        if (g_bEditorActive) {
            g_pMapEditorDlg->updateCursor(x, z, edge, corner);
        }
    });
}

bool vuIsEditorActive() {
    return g_bEditorActive;
}

bool vuIsEditingInProgress() {
    return g_bEditingInProgress;
}

void vuDestroySettings() {
    g_savedSettings.valid = false;
    g_mapUndoList.clear();
}
