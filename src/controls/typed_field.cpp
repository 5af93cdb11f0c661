#include "controls/typed_field.h"

template <class Value> void CTypedField<Value>::exchange(CDataExchange* pDX, int controlId) {
    if (pDX->m_bSaveAndValidate != FALSE) {
        read(pDX, controlId);
    } else {
        show(pDX, controlId);
    }
}

template <class Value> void CTypedField<Value>::read(CDataExchange* pDX, int controlId) {
    CString text;
    pDX->m_pDlgWnd->GetDlgItemText(controlId, text);
    if (text == m_strShown) {
        return;
    }
    m_bIsShown = false;
    DDX_Text(pDX, controlId, m_value); // leaves by an exception when the text is refused
    m_bTyped = true;
}

template <class Value> void CTypedField<Value>::show(CDataExchange* pDX, int controlId) {
    const bool isOpen = ::GetDlgCtrlID(::GetFocus()) == controlId;
    if (m_bIsShown && m_value == m_shown && !isOpen) {
        return;
    }
    DDX_Text(pDX, controlId, m_value);
    pDX->m_pDlgWnd->GetDlgItemText(controlId, m_strShown);
    m_shown = m_value;
    m_bIsShown = true;
}

template class CTypedField<float>;
template class CTypedField<CString>;
