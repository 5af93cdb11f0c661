#include "host/vesk_app.h"
#include "host/veskutil.h"
#include "module/export_scope.h"
#include "module/module_state.h"
#include "module/visit.h"
#include "terrain/model/map_editor_settings.h"
#include "terrain/model/map_undo_list.h"
#include "terrain/panel/map_editor_dlg.h"

#include <memory>
#include <utility>

namespace {

/// Runs `call` on the open panel, if there is one. The panel lives until the call has left it, even when the
/// map that it works on calls back and closes the editor.
template <class Call> void visitPanel(Call call) {
    if (g_bEditorActive) {
        CMapEditorDlg& panel = *g_pMapEditorDlg;
        const CVisit visit;
        call(panel);
    }
}

bool g_bOpening = false; ///< a panel is being made: its map may call back

} // namespace

void vuCreateEditor(HWND host, qxCMap* map, CString textureDir, vuMessageCallback onMessage, bool fullEditing,
                    vuIntCallback intCallback) {
    runExport([&] {
        if (g_bEditorActive || g_bOpening || map == nullptr) {
            return;
        }
        const CFlagScope opening(g_bOpening);
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
        CMapEditorDlg& panel = *std::exchange(g_pMapEditorDlg, nullptr);
        g_bEditorActive = false;
        g_pfnMessageCallback = nullptr;
        g_pfnIntCallback = nullptr;
        panel.destroy(); // last: it may end dialogs, and their callers ask whether the editor is open
    });
}

void vuStartEditing(int x, int z, int edge, int corner) {
    runExport([=] {
        if (!g_bEditorActive) {
            return;
        }
        g_bEditingInProgress = true;
        visitPanel([=](CMapEditorDlg& panel) { panel.strokeStart(x, z, edge, corner); });
    });
}

void vuUpdateEditing(int x, int z, int /*ignored1*/, int /*ignored2*/, int /*ignored3*/, int amount) {
    runExport([=] { visitPanel([=](CMapEditorDlg& panel) { panel.strokeUpdate(x, z, amount); }); });
}

void vuStopEditing() {
    runExport([] {
        if (!g_bEditorActive) {
            return;
        }
        g_bEditingInProgress = false;
        visitPanel([](CMapEditorDlg& panel) { panel.strokeEnd(); });
    });
}

void vuUpdateCursor(int x, int z, int edge, int corner) {
    runExport([=] { visitPanel([=](CMapEditorDlg& panel) { panel.updateCursor(x, z, edge, corner); }); });
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
