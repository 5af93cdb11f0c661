#pragma once

#include "platform/framework.h"

/// A value behind an edit. The edit shows fewer digits than a number has, and the value may have become
/// another one since it was shown: so only what a person typed is taken over, never what merely stands there.
/// And an edit that shows its value already is not written again.
template <class Value> class CTypedField {
public:
    const Value& value() const { return m_value; }
    void set(const Value& value) { m_value = value; }

    /// Whether the last exchange took over what a person had typed.
    bool isTyped() const { return m_bTyped; }
    void forgetTyped() { m_bTyped = false; }

    /// DDX_Text, with the framework's prompt for what is not a number.
    void exchange(CDataExchange* pDX, int controlId);

private:
    void read(CDataExchange* pDX, int controlId);
    void show(CDataExchange* pDX, int controlId);

    Value m_value{};
    Value m_shown{};
    CString m_strShown;      ///< the edit's text for m_shown
    bool m_bIsShown = false; ///< the edit is known to show m_shown, unless somebody is typing in it
    bool m_bTyped = false;
};

extern template class CTypedField<float>;
extern template class CTypedField<CString>;
