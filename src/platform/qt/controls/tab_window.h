#pragma once

#include "platform/qt/controls/control_traits.h"

#include <QTabBar>

namespace qtbackend {

/// A row of tabs over an empty page, on which the dialog's other controls stand.
class CTabWindow : public CInputWindow {
public:
    CTabWindow(CWindow& parent, const ControlTraits& traits);

    LRESULT process(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    LRESULT dialogCode() const override { return DLGC_WANTARROWS; }
    std::unique_ptr<CWnd> makeStandIn() const override;
    bool onEvent(QObject* watched, QEvent* event) override;

private:
    LRESULT insert(int index, const QString& text);
    LRESULT select(int index);
    void onChanged();

    QTabBar& m_tabs;
    bool m_bFromProgram = false; ///< changes of the selection are not reported
};

} // namespace qtbackend
