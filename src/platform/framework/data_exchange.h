#pragma once

#include "platform/cstring.h"
#include "platform/windows_types.h"

class CWnd;

/// One run of a dialog's data exchange, in either direction. Lives for one UpdateData.
class CDataExchange {
public:
    BOOL m_bSaveAndValidate; ///< TRUE: controls to members
    CWnd* m_pDlgWnd;
    HWND m_hWndLastControl = nullptr;
    BOOL m_bEditLastControl = FALSE;

    CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate);

    /// Name the control that the next step is about. A missing control fails the exchange.
    HWND PrepareCtrl(int nIDC);
    HWND PrepareEditCtrl(int nIDC);
    /// Ends the exchange unsuccessfully: the focus goes to the last prepared control, an edit's text
    /// selected.
    [[noreturn]] void Fail();
};

/// Attaches the object to the control the first time it runs.
void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);

// Texts and numbers of edits and statics. What is not a number is refused with the framework's message.
void DDX_Text(CDataExchange* pDX, int nIDC, int& value);
void DDX_Text(CDataExchange* pDX, int nIDC, float& value);
void DDX_Text(CDataExchange* pDX, int nIDC, CString& value);

/// 0 unticked, 1 ticked.
void DDX_Check(CDataExchange* pDX, int nIDC, int& value);
/// The place of the checked button in its group, whose first button is nIDC; -1 for none.
void DDX_Radio(CDataExchange* pDX, int nIDC, int& value);
void DDX_Slider(CDataExchange* pDX, int nIDC, int& value);

/// Refuses a value outside its limits, limits included. To be called right after the DDX_ of the value.
void DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal);
