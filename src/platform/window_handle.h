#pragma once

/// A window, named by its native window id.
using HWND = struct HWND__*;
