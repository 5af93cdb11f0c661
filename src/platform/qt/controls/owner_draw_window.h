#pragma once

#include "platform/qt/controls/control_traits.h"

class QPainter;

namespace qtbackend {

/// A button that its object paints.
class COwnerDrawWindow : public CInputWindow {
public:
    COwnerDrawWindow(CWindow& parent, const ControlTraits& traits);

    LRESULT process(UINT message, WPARAM wParam, LPARAM lParam) override;
    QString text() const override { return m_strText; }
    void setText(const QString& text) override;

    bool hearsMouse() const override { return true; }

    void paint(QPainter& painter);

protected:
    LRESULT dialogCode() const override { return DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON; }
    std::unique_ptr<CWnd> makeStandIn() const override;

private:
    UINT itemState() const;

    QString m_strText;
};

} // namespace qtbackend
