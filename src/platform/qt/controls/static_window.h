#pragma once

#include "platform/qt/controls/control_traits.h"

namespace qtbackend {

/// A text, frame or rectangle. Lets the mouse through and lies below the controls it surrounds.
class CStaticWindow : public CInputWindow {
public:
    CStaticWindow(CWindow& parent, const ControlTraits& traits);

    QString text() const override { return m_strText; }
    void setText(const QString& text) override;
    bool capturesMouse() const override { return false; }

protected:
    LRESULT dialogCode() const override { return DLGC_STATIC; }
    std::unique_ptr<CWnd> makeStandIn() const override;

private:
    QString m_strText;
};

/// A titled frame around other controls.
class CGroupBoxWindow : public CInputWindow {
public:
    CGroupBoxWindow(CWindow& parent, const ControlTraits& traits);

    QString text() const override;
    void setText(const QString& text) override;
    bool capturesMouse() const override { return false; }

protected:
    LRESULT dialogCode() const override { return DLGC_STATIC; }
};

} // namespace qtbackend
