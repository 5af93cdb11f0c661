#include "platform/framework/data_exchange.h"

#include "platform/framework/message_box.h"
#include "platform/framework/message_state.h"
#include "platform/framework/number_text.h"
#include "platform/framework/user_exception.h"
#include "platform/framework/wnd.h"
#include "platform/windows/control_messages.h"

namespace {

CString textOf(HWND control) {
    CString text;
    CWnd::FromHandle(control)->GetWindowText(text);
    return text;
}

[[noreturn]] void refuse(CDataExchange& exchange, const CString& prompt) {
    AfxMessageBox(prompt, MB_ICONEXCLAMATION);
    exchange.Fail();
}

/// Moves a number between an edit's text and a member; a text that is no number is refused with the prompt.
template <class Number>
void exchangeNumber(CDataExchange& exchange, int id, Number& value, const char* prompt) {
    const HWND control = exchange.PrepareEditCtrl(id);
    if (exchange.m_bSaveAndValidate == FALSE) {
        ::SetWindowText(control, writeNumber(value).c_str());
    } else if (!readNumber(textOf(control).GetString(), value)) {
        refuse(exchange, prompt);
    }
}

} // namespace

BOOL CWnd::UpdateData(BOOL bSaveAndValidate) {
    if (m_hWnd == nullptr) {
        return FALSE;
    }
    CDataExchange exchange(this, bSaveAndValidate);
    // A message box during the exchange takes the focus from an edit. Its handler would start another
    // exchange and another box: the dialog hears no notification until this one is over.
    const CStateScope lockout(messageState().lockedOut, m_hWnd);
    try {
        DoDataExchange(&exchange);
    } catch (const CUserException&) {
        return FALSE; // the user has been told
    }
    return TRUE;
}

CDataExchange::CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate)
    : m_bSaveAndValidate(bSaveAndValidate), m_pDlgWnd(pDlgWnd) {}

HWND CDataExchange::PrepareCtrl(int nIDC) {
    const HWND control = ::GetDlgItem(m_pDlgWnd->m_hWnd, nIDC);
    if (control == nullptr) {
        throw CUserException();
    }
    m_hWndLastControl = control;
    m_bEditLastControl = FALSE;
    return control;
}

HWND CDataExchange::PrepareEditCtrl(int nIDC) {
    const HWND control = PrepareCtrl(nIDC);
    m_bEditLastControl = TRUE;
    return control;
}

void CDataExchange::Fail() {
    if (m_bSaveAndValidate != FALSE && m_hWndLastControl != nullptr) {
        ::SetFocus(m_hWndLastControl);
        if (m_bEditLastControl != FALSE) {
            ::SendMessage(m_hWndLastControl, EM_SETSEL, 0, -1);
        }
    }
    throw CUserException();
}

void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl) {
    if (rControl.m_hWnd == nullptr) {
        rControl.SubclassWindow(pDX->PrepareCtrl(nIDC));
    }
}

void DDX_Text(CDataExchange* pDX, int nIDC, int& value) {
    exchangeNumber(*pDX, nIDC, value, "Enter an integer.");
}
void DDX_Text(CDataExchange* pDX, int nIDC, float& value) {
    exchangeNumber(*pDX, nIDC, value, "Enter a number.");
}

void DDX_Text(CDataExchange* pDX, int nIDC, CString& value) {
    const HWND control = pDX->PrepareEditCtrl(nIDC);
    if (pDX->m_bSaveAndValidate != FALSE) {
        value = textOf(control);
    } else {
        ::SetWindowText(control, value);
    }
}

void DDX_Check(CDataExchange* pDX, int nIDC, int& value) {
    const HWND control = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate != FALSE) {
        value = static_cast<int>(::SendMessage(control, BM_GETCHECK, 0, 0));
    } else {
        ::SendMessage(control, BM_SETCHECK, static_cast<WPARAM>(value), 0);
    }
}

void DDX_Radio(CDataExchange* pDX, int nIDC, int& value) {
    HWND button = pDX->PrepareCtrl(nIDC);
    const bool saving = pDX->m_bSaveAndValidate != FALSE;
    int checked = -1;
    int place = 0;
    do {
        if ((::SendMessage(button, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0) {
            if (!saving) {
                ::SendMessage(button, BM_SETCHECK, place == value ? 1 : 0, 0);
            } else if (::SendMessage(button, BM_GETCHECK, 0, 0) != 0) {
                checked = place;
            }
            ++place;
        }
        button = ::GetWindow(button, GW_HWNDNEXT);
    } while (button != nullptr && (::GetWindowStyle(button) & WS_GROUP) == 0);
    if (saving) {
        value = checked;
    }
}

void DDX_Slider(CDataExchange* pDX, int nIDC, int& value) {
    const HWND control = pDX->PrepareCtrl(nIDC);
    if (pDX->m_bSaveAndValidate != FALSE) {
        value = static_cast<int>(::SendMessage(control, TBM_GETPOS, 0, 0));
    } else {
        ::SendMessage(control, TBM_SETPOS, TRUE, value);
    }
}

void DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal) {
    if (pDX->m_bSaveAndValidate != FALSE && !(minVal <= value && value <= maxVal)) {
        CString prompt;
        prompt.Format("Enter an integer between %d and %d.", minVal, maxVal);
        refuse(*pDX, prompt);
    }
}
