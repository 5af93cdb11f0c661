#pragma once

#include "platform/qt/controls/control_traits.h"

#include <QLineEdit>

#include <functional>
#include <utility>

namespace qtbackend {

/// A line of text to type in.
class CEditWindow : public CInputWindow {
public:
    CEditWindow(CWindow& parent, const ControlTraits& traits);

    /// Gives the up and down arrow keys to somebody, who says whether a key was used.
    void setArrowKeys(std::function<bool(Qt::Key)> arrowKeys) { m_arrowKeys = std::move(arrowKeys); }

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
    std::function<bool(Qt::Key)> m_arrowKeys;
};

} // namespace qtbackend
