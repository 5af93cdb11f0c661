#pragma once

#include "platform/windows_types.h"

struct DialogTemplate;
class CScrollBar;
class CWnd;

// What the framework asks of the back end under names of our own, because the genuine window system has
// nothing of the kind or hides it. The rooms above the platform do not use it.

/// Makes a hidden dialog with its controls, owned by the parent's window; null when it cannot be made.
HWND CreateDialogWindow(const DialogTemplate& layout, HWND parent);
/// Shows the dialog and runs messages until EndDialogWindow or the window's end; the dialog's result, or
/// `broken` when the window ended without one.
INT_PTR RunDialogWindow(HWND dialog, INT_PTR broken);
void EndDialogWindow(HWND dialog, INT_PTR result);

/// Shows a message over the active window until a button is pressed; IDCANCEL where nothing can be shown.
int ShowMessageBox(LPCSTR text, UINT type);

/// Makes a child control of a predefined or a registered class.
HWND CreateControlWindow(DWORD exStyle, LPCSTR className, LPCSTR text, DWORD style, const RECT& rect,
                         HWND parent, int id);

/// The object that receives the window's messages. Passing null leaves them to the window's own kind.
void SetWindowObject(HWND window, CWnd* object);
/// The attached object, or null.
CWnd* GetWindowObject(HWND window);
/// The attached object, or a stand-in of the control's class that lives as long as the window.
CWnd* GetOrMakeWindowObject(HWND window);
/// A scroll bar object for the window of a scroll message, which may be a trackbar; null for null.
CScrollBar* GetScrollBarObject(HWND window);

/// The part of the screen with the window on it that is free for windows.
RECT GetWorkArea(HWND window);
/// Whether the key (VK_SHIFT, VK_CONTROL) is held during the message being handled.
BOOL IsKeyHeld(WPARAM key);
/// The text that shows while the pointer rests on the window; none when empty.
BOOL SetToolTip(HWND window, LPCSTR text);

/// An icon of the library, kept until unload; null when there is none of that id.
HICON LoadLibraryIcon(UINT id);

/// Opens and closes the painting of a window that is handling WM_PAINT.
HDC BeginWindowPaint(HWND window);
void EndWindowPaint(HWND window, HDC context);
/// Right and bottom of the rectangle excluded.
void FillSolidArea(HDC context, LPCRECT rect, COLORREF colour);

/// Lets the library's windows work in a host that runs no message loop for them: handles what has come in and
/// paints. Does nothing where the host has a loop of its own that does, from inside such a call (a dialog
/// that it opened runs its own loop), and while there are no windows yet.
void ServeWindows();
