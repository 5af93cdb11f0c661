#pragma once

#include "platform/windows/messages.h"
#include "platform/windows_types.h"

#include <cstddef>

// The functions of the window system, as the genuine one has them. A back end defines them. A null or dead
// window is answered with zero, never with a crash.

inline constexpr UINT SWP_NOSIZE = 0x0001;
inline constexpr UINT SWP_NOMOVE = 0x0002;
inline constexpr UINT SWP_NOZORDER = 0x0004;
inline constexpr UINT SWP_NOACTIVATE = 0x0010;
inline constexpr UINT SWP_SHOWWINDOW = 0x0040;
inline constexpr UINT SWP_HIDEWINDOW = 0x0080;

inline constexpr UINT RDW_INVALIDATE = 0x0001;
inline constexpr UINT RDW_ERASE = 0x0004;
inline constexpr UINT RDW_UPDATENOW = 0x0100;

inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOWNORMAL = 1;
inline constexpr int SW_SHOW = 5;

inline constexpr UINT GW_HWNDNEXT = 2;
inline constexpr UINT GW_HWNDPREV = 3;
inline constexpr UINT GW_OWNER = 4;
inline constexpr UINT GW_CHILD = 5;

BOOL IsWindow(HWND window);
BOOL IsWindowEnabled(HWND window);
/// Whether the window and all its parents are shown.
BOOL IsWindowVisible(HWND window);
/// Non-zero when the window was disabled before.
BOOL EnableWindow(HWND window, BOOL enable);
/// Non-zero when the window was shown before.
BOOL ShowWindow(HWND window, int command);
BOOL DestroyWindow(HWND window);

/// Runs the window's procedure to its end and returns its answer.
LRESULT SendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/// Queues the message; it is dropped when the window is gone by then.
BOOL PostMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
/// What the kind of window does with a message nobody handled.
LRESULT DefWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// Copies the text and a terminating zero into a buffer of the given size in bytes; the length copied.
int GetWindowText(HWND window, LPSTR buffer, int size);
int GetWindowTextLength(HWND window);
/// Touches the window only when the text is another one.
BOOL SetWindowText(HWND window, LPCSTR text);
/// The registered class name ("Edit", "Button" …), cut to the buffer; its length.
int GetClassName(HWND window, LPSTR buffer, int size);
DWORD GetWindowStyle(HWND window);
int GetDlgCtrlID(HWND window);
HWND GetDlgItem(HWND dialog, int id);
HWND GetParent(HWND window);
/// Children come in the order of the template.
HWND GetWindow(HWND window, UINT relation);
/// The window of this process that has the keyboard, the host's ones included; null for none.
HWND GetActiveWindow();
HWND SetActiveWindow(HWND window);
/// The window that the person works in, as far as this process can tell: one of its own, or null.
HWND GetForegroundWindow();
/// Stands for the whole screen; never null, and no other window's handle.
HWND GetDesktopWindow();

BOOL GetWindowRect(HWND window, LPRECT rect); ///< screen coordinates, frame included
BOOL GetClientRect(HWND window, LPRECT rect);
BOOL ScreenToClient(HWND window, LPPOINT point);
BOOL ClientToScreen(HWND window, LPPOINT point);
/// Position and size of the whole window: for a child in its parent's client area, else on the screen.
BOOL SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags);

BOOL InvalidateRect(HWND window, LPCRECT rect, BOOL erase);
BOOL UpdateWindow(HWND window);
BOOL RedrawWindow(HWND window, LPCRECT rect, HRGN region, UINT flags);

HWND GetFocus();
HWND SetFocus(HWND window);
HWND GetCapture();
HWND SetCapture(HWND window);
BOOL ReleaseCapture();

/// The high bit is set while the key (VK_SHIFT, VK_CONTROL) is held, as of the message being handled.
SHORT GetKeyState(int key);

/// Sends the window WM_TIMER with this id again and again; once more starts it anew. It ends with the window.
UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, std::nullptr_t procedure);
BOOL KillTimer(HWND window, UINT_PTR id);

/// What a registered class is known by; its procedure is always the framework's.
struct WNDCLASS {
    UINT style = 0;
    HINSTANCE hInstance = nullptr;
    HICON hIcon = nullptr;
    HCURSOR hCursor = nullptr;
    HBRUSH hbrBackground = nullptr;
    LPCSTR lpszMenuName = nullptr;
    LPCSTR lpszClassName = nullptr;
};

BOOL RegisterClass(const WNDCLASS* windowClass);
