#include "module/module_state.h"

bool g_bEditorActive = false;
CMapEditorDlg* g_pMapEditorDlg = nullptr;
bool g_bEditingInProgress = false;
HWND g_hHostWnd = nullptr;
CString g_strTextureDir;
void (*g_pfnMessageCallback)(vuMessage message, void* data) = nullptr;
int (*g_pfnIntCallback)(int, int, int) = nullptr;
bool g_bMovieEditorActive = false;
CMovieEditorDlg* g_pMovieEditorDlg = nullptr;
CMovieEditorDlg* g_pPlayingMovieDlg = nullptr;
