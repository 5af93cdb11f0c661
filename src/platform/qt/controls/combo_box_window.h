#pragma once

#include "platform/qt/controls/control_traits.h"

#include <QComboBox>

namespace qtbackend {

/// A drop-down list, with or without a text to type in.
class CComboBoxWindow : public CInputWindow {
public:
    CComboBoxWindow(CWindow& parent, const ControlTraits& traits);

    LRESULT process(UINT message, WPARAM wParam, LPARAM lParam) override;
    QString text() const override { return m_combo.currentText(); }
    void setText(const QString& text) override;
    /// The template's height is that of the list dropped down.
    void setGeometry(const QRect& rect) override;

protected:
    LRESULT dialogCode() const override { return DLGC_WANTARROWS; }
    std::unique_ptr<CWnd> makeStandIn() const override;
    bool onEvent(QObject* watched, QEvent* event) override;

private:
    LRESULT processItem(UINT message, int index, LPARAM lParam);
    LRESULT add(const QString& text);
    LRESULT select(int index);

    QComboBox& m_combo;
};

} // namespace qtbackend
