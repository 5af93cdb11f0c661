#pragma once

#include "platform/cstring.h"
#include "platform/windows_types.h"

#include <vector>

class CWnd;

inline constexpr DWORD OFN_OVERWRITEPROMPT = 0x00000002;
inline constexpr DWORD OFN_HIDEREADONLY = 0x00000004;
inline constexpr DWORD OFN_ALLOWMULTISELECT = 0x00000200;

/// The fields of the framework's open-file record that callers may set before DoModal.
struct OPENFILENAME {
    LPSTR lpstrFile = nullptr; ///< a name to preset in place of the one given before, or null. Only read: the
                               ///< names chosen are not bound to the size of a buffer
    DWORD nMaxFile = 0;
    DWORD Flags = 0;
};

/// The platform's file dialog.
class CFileDialog {
public:
    OPENFILENAME m_ofn;

    /// lpszFileName presets the file name; a wildcard in it filters the list, a directory before it is where
    /// the dialog opens. lpszFilter: pairs of caption and pattern, each ended by a bar, one bar more at the
    /// end.
    explicit CFileDialog(BOOL bOpenFileDialog, LPCTSTR lpszDefExt = nullptr, LPCTSTR lpszFileName = nullptr,
                         DWORD dwFlags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, LPCTSTR lpszFilter = nullptr,
                         CWnd* pParentWnd = nullptr);
    /// IDOK or IDCANCEL.
    INT_PTR DoModal();
    /// Walks the files chosen: full paths with slashes, in the dialog's order.
    POSITION GetStartPosition() const;
    CString GetNextPathName(POSITION& position) const;

private:
    bool m_bOpen;
    CString m_strExtension;
    CString m_strFileName;
    CString m_strFilter;
    HWND m_parent;
    std::vector<CString> m_paths;
};
