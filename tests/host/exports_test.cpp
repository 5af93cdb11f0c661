#include "host/veskutil.h"

#include "host/forwarding_map.h"
#include "module/module_state.h"
#include "platform/framework/module_state.h"
#include "sound/sound_manager.h"
#include "support/temp_directory.h"
#include "terrain/model/map_editor_settings.h"
#include "terrain/model/map_undo_list.h"
#include "terrain/panel/map_editor_dlg.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <functional>
#include <new>
#include <vector>

namespace {

/// A sound device on every machine, which plays into a file. OpenAL reads its settings when it is used first.
bool playIntoFile() {
    static const CTempDirectory DIRECTORY;
    const auto settings = DIRECTORY.write("alsoft.conf", "[wave]\nfile = /dev/null\n");
    return setenv("ALSOFT_DRIVERS", "wave", 1) == 0 && setenv("ALSOFT_CONF", settings.c_str(), 1) == 0;
}

const bool PLAYS_INTO_FILE = playIntoFile();

constexpr std::array ALL_CHANGES = {MapChange::HEIGHTS,     MapChange::SURFACE,  MapChange::MARKERS,
                                    MapChange::DETAILS,     MapChange::TEXTURES, MapChange::MATERIAL,
                                    MapChange::EDIT_CURSORS};

std::vector<std::uint64_t> changesOf(const CMemoryMap& map) {
    std::vector<std::uint64_t> counts;
    counts.reserve(ALL_CHANGES.size());
    for (const MapChange kind : ALL_CHANGES) {
        counts.push_back(map.getChangeCount(kind));
    }
    return counts;
}

/// Everything that an export may change, apart from the map.
struct ModuleState {
    bool editorActive = g_bEditorActive;
    CMapEditorDlg* panel = g_pMapEditorDlg;
    bool editing = g_bEditingInProgress;
    HWND host = g_hHostWnd;
    CString directory = g_strTextureDir;
    void (*messageCallback)(vuMessage, void*) = g_pfnMessageCallback;
    int (*intCallback)(int, int, int) = g_pfnIntCallback;
    bool movieActive = g_bMovieEditorActive;
    bool settingsValid = g_savedSettings.valid;
    int undoRecords = g_mapUndoList.getCount();

    friend bool operator==(const ModuleState&, const ModuleState&) = default;
};

void onMessage(vuMessage /*message*/, void* /*data*/) {}
void onOtherMessage(vuMessage /*message*/, void* /*data*/) {}
int onInts(int a, int /*b*/, int /*c*/) {
    return a;
}

class ExportsTest : public testing::Test {
protected:
    ~ExportsTest() override {
        vuDestroyEditor();
        vuDestroySettings();
        g_bEditingInProgress = false;
        g_strTextureDir = "";
        g_soundManager.release();
    }

    void open() { vuCreateEditor(nullptr, &m_map, "textures", &onMessage, true, &onInts); }

    CForwardingMap m_map;
};

} // namespace

TEST_F(ExportsTest, CallsWithoutAnEditorChangeNothing) {
    const std::function<void()> calls[] = {
        [] { vuDestroyEditor(); },
        [] { vuStartEditing(1, 1, 0, 0); },
        [] { vuUpdateEditing(1, 1, 7, 7, 7, -3); },
        [] { vuStopEditing(); },
        [] { vuUpdateCursor(1, 1, 0, 0); },
        [] { vuCreateEditor(nullptr, nullptr, "elsewhere", &onMessage, true, &onInts); },
        [] { vuDestroyMovieEditor(); },
        [] { vuMovieCameraAltered(nullptr, true); },
        [] { vuSoundUpdate(); },
    };
    // Before the first editor, and again after one was opened, used and closed.
    for (const bool afterAnEditor : {false, true}) {
        SCOPED_TRACE(afterAnEditor);
        if (afterAnEditor) {
            open();
            vuStartEditing(2, 2, 0, 0);
            vuStopEditing();
            vuDestroyEditor();
        }
        const ModuleState before;
        const auto mapBefore = changesOf(m_map.memory());
        for (const auto& call : calls) {
            call();
            EXPECT_EQ(ModuleState(), before);
            EXPECT_EQ(changesOf(m_map.memory()), mapBefore);
        }
        EXPECT_FALSE(vuIsEditorActive());
        EXPECT_FALSE(vuIsEditingInProgress());
        EXPECT_FALSE(vuIsMovieEditorActive());
    }
}

TEST_F(ExportsTest, ASecondOpeningLeavesTheFirstInPlace) {
    open();
    const ModuleState first;
    CForwardingMap other;
    other.onReadTiling = [] { ADD_FAILURE() << "nobody asks the second map"; };
    vuCreateEditor(nullptr, &other, "elsewhere", &onOtherMessage, false, nullptr);
    EXPECT_EQ(ModuleState(), first);
    const auto before = changesOf(m_map.memory());
    vuUpdateCursor(3, 3, 0, 0);
    EXPECT_NE(changesOf(m_map.memory()), before);
}

TEST_F(ExportsTest, ClosingForgetsThePanelAndTheCallbacksOnly) {
    open();
    vuStartEditing(1, 1, 0, 0);
    EXPECT_TRUE(vuIsEditingInProgress());
    vuUpdateEditing(2, 2, 0, 0, 0, 0);
    EXPECT_TRUE(vuIsEditingInProgress());
    vuDestroyEditor();
    EXPECT_EQ(g_pMapEditorDlg, nullptr);
    EXPECT_EQ(g_pfnMessageCallback, nullptr);
    EXPECT_EQ(g_pfnIntCallback, nullptr);
    EXPECT_EQ(g_strTextureDir, "textures");
    vuStopEditing();
    EXPECT_TRUE(vuIsEditingInProgress()) << "no editor took the stop";
}

TEST_F(ExportsTest, SettingsAreForgottenWithAndWithoutAnEditor) {
    for (const bool whileOpen : {true, false}) {
        SCOPED_TRACE(whileOpen);
        open();
        g_pMapEditorDlg->m_nTool = TOOL_FLATTEN;
        vuStartEditing(1, 1, 0, 0);
        vuStopEditing();
        if (!whileOpen) {
            vuDestroyEditor();
        }
        EXPECT_FALSE(g_mapUndoList.isEmpty());
        EXPECT_TRUE(g_savedSettings.valid);
        vuDestroySettings();
        EXPECT_TRUE(g_mapUndoList.isEmpty());
        EXPECT_FALSE(g_savedSettings.valid);
        EXPECT_EQ(vuIsEditorActive(), whileOpen);
        if (whileOpen) {
            g_pMapEditorDlg->m_nTool = TOOL_FLATTEN;
            vuStartEditing(2, 2, 0, 0);
            vuStopEditing();
            EXPECT_EQ(g_mapUndoList.getCount(), 4);
            vuDestroyEditor();
        }
    }
}

TEST_F(ExportsTest, AMovieNobodyCanShowStartsTheSoundDeviceAndLeavesTheEditorClosed) {
    vuCreateMovieEditor(nullptr, nullptr, true);
    EXPECT_FALSE(vuIsMovieEditorActive());
    ASSERT_NE(g_soundManager.device(), nullptr);
    vuCreateMovieEditor(nullptr, nullptr, true);
    IDirectSound* const device = g_soundManager.device();
    ASSERT_NE(device, nullptr) << "opened again";
    vuDestroyMovieEditor();
    EXPECT_EQ(g_soundManager.device(), device) << "no editor was open";

    open();
    vuCreateMovieEditor(nullptr, nullptr, true);
    vuDestroyMovieEditor();
    EXPECT_TRUE(vuIsEditorActive());
}

TEST_F(ExportsTest, WhatTheEngineThrowsStaysInside) {
    AFX_MODULE_STATE* const callersState = AfxGetModuleState();
    m_map.onReadTiling = [] { throw std::bad_alloc(); };
    open();
    EXPECT_FALSE(vuIsEditorActive()) << "a panel that could not start is not open";
    EXPECT_EQ(AfxGetModuleState(), callersState);

    m_map.onReadTiling = [] {};
    open();
    ASSERT_TRUE(vuIsEditorActive());
    g_pMapEditorDlg->m_nTool = TOOL_FLATTEN;
    m_map.onReadDim = [] { throw std::bad_alloc(); };
    vuStartEditing(3, 3, 0, 0);
    EXPECT_EQ(AfxGetModuleState(), callersState);
    m_map.onReadDim = [] {};
    vuStopEditing();
    EXPECT_TRUE(vuIsEditorActive());
    EXPECT_FALSE(vuIsEditingInProgress());
}
