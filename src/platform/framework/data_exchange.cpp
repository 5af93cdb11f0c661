#include "platform/framework/data_exchange.h"

#include "platform/framework/message_box.h"
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

template <class Number>
void checkLimits(CDataExchange& exchange, Number value, Number low, Number high, const char* kind) {
    if (exchange.m_bSaveAndValidate != FALSE && !(low <= value && value <= high)) {
        const std::string prompt =
            std::string("Enter ") + kind + " between " + writeNumber(low) + " and " + writeNumber(high) + ".";
        refuse(exchange, prompt.c_str());
    }
}

/// Moves an index between a member and the control's get and set messages.
void exchangeIndex(CDataExchange& exchange, int id, int& index, UINT getMessage, UINT setMessage) {
    const HWND control = exchange.PrepareCtrl(id);
    if (exchange.m_bSaveAndValidate != FALSE) {
        index = static_cast<int>(::SendMessage(control, getMessage, 0, 0));
    } else {
        ::SendMessage(control, setMessage, static_cast<WPARAM>(index), 0);
    }
}

} // namespace

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
void DDX_Text(CDataExchange* pDX, int nIDC, UINT& value) {
    exchangeNumber(*pDX, nIDC, value, "Enter a positive integer.");
}
void DDX_Text(CDataExchange* pDX, int nIDC, float& value) {
    exchangeNumber(*pDX, nIDC, value, "Enter a number.");
}
void DDX_Text(CDataExchange* pDX, int nIDC, double& value) {
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
    exchangeIndex(*pDX, nIDC, value, BM_GETCHECK, BM_SETCHECK);
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

void DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index) {
    exchangeIndex(*pDX, nIDC, index, CB_GETCURSEL, CB_SETCURSEL);
}
void DDX_LBIndex(CDataExchange* pDX, int nIDC, int& index) {
    exchangeIndex(*pDX, nIDC, index, LB_GETCURSEL, LB_SETCURSEL);
}

void DDV_MinMaxInt(CDataExchange* pDX, int value, int minVal, int maxVal) {
    checkLimits(*pDX, value, minVal, maxVal, "an integer");
}
void DDV_MinMaxUInt(CDataExchange* pDX, UINT value, UINT minVal, UINT maxVal) {
    checkLimits(*pDX, value, minVal, maxVal, "an integer");
}
void DDV_MinMaxFloat(CDataExchange* pDX, const float& value, float minVal, float maxVal) {
    checkLimits(*pDX, value, minVal, maxVal, "a number");
}
void DDV_MinMaxDouble(CDataExchange* pDX, const double& value, double minVal, double maxVal) {
    checkLimits(*pDX, value, minVal, maxVal, "a number");
}

void DDV_MaxChars(CDataExchange* pDX, const CString& value, int nChars) {
    if (pDX->m_bSaveAndValidate != FALSE && value.GetLength() > nChars) {
        CString prompt;
        prompt.Format("Enter no more than %d characters.", nChars);
        refuse(*pDX, prompt);
    }
}
