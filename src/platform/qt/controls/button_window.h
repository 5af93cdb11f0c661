#pragma once

#include "platform/qt/controls/control_traits.h"

#include <QAbstractButton>

namespace qtbackend {

/// A push button, check box or radio button, also those that look like push buttons and stay in.
class CButtonWindow : public CInputWindow {
public:
    CButtonWindow(CWindow& parent, const ControlTraits& traits);

    LRESULT process(UINT message, WPARAM wParam, LPARAM lParam) override;
    QString text() const override { return m_strText; }
    void setText(const QString& text) override;

protected:
    LRESULT dialogCode() const override;
    std::unique_ptr<CWnd> makeStandIn() const override;

private:
    DWORD type() const { return style() & BS_TYPEMASK; }
    bool isRadio() const { return type() == BS_RADIOBUTTON || type() == BS_AUTORADIOBUTTON; }
    void setCheck(bool checked);
    void setIcon(HICON icon);
    bool isIconic() const;
    void onClicked();
    void uncheckGroup();

    QAbstractButton& m_button;
    QString m_strText;
    HICON m_icon = nullptr;
};

} // namespace qtbackend
