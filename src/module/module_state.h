#pragma once

#include "platform/cstring.h"
#include "platform/window_handle.h"

class CMapEditorDlg;
class CMovieEditorDlg;
enum vuMessage : int;

/// What the whole module knows: which editors are open, and what the host gave when it opened one. One
/// instance each, zero when the library is loaded, touched by the host's user-interface thread only.

/// A map editor is open. While it is false the stroke and cursor exports do nothing.
extern bool g_bEditorActive;
/// The open map editor; used only while g_bEditorActive is true. It owns itself until an export destroys it.
extern CMapEditorDlg* g_pMapEditorDlg;
/// A brush stroke is under way: only the start and the stop of a stroke change it.
extern bool g_bEditingInProgress;
/// Host window of the last map editor opened; the parent of the texture import dialog. Never cleared.
extern HWND g_hHostWnd;
/// Texture directory of the last map editor opened; where the texture import dialog opens. Never cleared.
extern CString g_strTextureDir;
/// The host's callbacks: kept while the map editor is open, never called.
extern void (*g_pfnMessageCallback)(vuMessage message, void* data);
extern int (*g_pfnIntCallback)(int, int, int);

/// A movie editor is open.
extern bool g_bMovieEditorActive;
/// The open movie editor; used only while g_bMovieEditorActive is true.
extern CMovieEditorDlg* g_pMovieEditorDlg;
/// The panel that last started its movie; null again when it has ended. The engine's callbacks act for it
/// alone.
extern CMovieEditorDlg* g_pPlayingMovieDlg;
