#pragma once

#include "platform/qt/controls/control_traits.h"

#include <QListWidget>

namespace qtbackend {

/// A list of texts, for one or several selected.
class CListBoxWindow : public CInputWindow {
public:
    CListBoxWindow(CWindow& parent, const ControlTraits& traits);

    LRESULT process(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    LRESULT dialogCode() const override { return DLGC_WANTARROWS; }
    std::unique_ptr<CWnd> makeStandIn() const override;

private:
    bool isMultiple() const { return (style() & (LBS_MULTIPLESEL | LBS_EXTENDEDSEL)) != 0; }
    LRESULT processItem(UINT message, int index, LPARAM lParam);
    LRESULT insert(int index, const QString& text);
    LRESULT select(int index);
    LRESULT setSelected(int index, bool selected);
    LRESULT remove(int index);
    LRESULT findPrefix(int startAfter, const QString& prefix) const;
    LRESULT copySelected(int room, int* indices) const;
    LRESULT itemAt(QPoint point) const;
    void moveCaret(int index);

    QListWidget& m_list;
    bool m_bFromProgram = false; ///< changes of the selection are not reported
};

} // namespace qtbackend
