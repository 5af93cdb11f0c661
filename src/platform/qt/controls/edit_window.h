#pragma once

#include "platform/qt/controls/control_factory.h"

#include <QLineEdit>

namespace qtbackend {

class CUpDownWindow;

/// A line of text to type in.
class CEditWindow : public CWindow {
public:
    CEditWindow(CWindow& parent, const ControlTraits& traits);

    /// The up-down control that the up and down arrow keys step; null for none.
    void setArrowKeysTarget(CUpDownWindow* upDown);

    LRESULT process(UINT message, WPARAM wParam, LPARAM lParam) override;
    QString text() const override { return m_edit.text(); }
    void setText(const QString& text) override;

protected:
    LRESULT dialogCode() const override { return DLGC_WANTARROWS; }
    std::unique_ptr<CWnd> makeStandIn() const override;
    bool onEvent(QObject* watched, QEvent* event) override;

private:
    void select(int start, int end);
    void onFocusLost(QEvent* event);

    QLineEdit& m_edit;
    QPointer<QObject> m_pArrowKeysTarget;
};

} // namespace qtbackend
