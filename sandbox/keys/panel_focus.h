#pragma once

#include <QObject>

class CMapView;
class QKeyEvent;
class QWidget;

/// Keeps the keyboard with the view while the hand works with the panels: after a click on a tool or a brush
/// the view has it again, and flying works whichever window has it. Letters stay with a control that takes
/// text or looks for an entry by its first letter, and the film's keys with the panel of the film.
class CPanelFocus : public QObject {
public:
    explicit CPanelFocus(CMapView& view);

    /// Give the view the keyboard.
    void giveBack();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void giveBackNow();
    bool claimForControl(QKeyEvent& key);
    bool passToView(QWidget& focused, QKeyEvent& key);
    void noticeRelease(const QWidget& pressed);
    bool showTip(QWidget& widget, const QPoint& place);

    CMapView& m_view;
};
