#pragma once

#include <QObject>
#include <functional>

class QKeyEvent;

/// The keys of film people in the 3D view while the movie editor is open: Space plays and stops, comma and
/// full stop go a frame, with Shift a keyframe, Home and End to the ends. Each presses a button of the panel.
class CFilmKeys : public QObject {
public:
    /// `panel` gives the movie editor's window, null while it is closed.
    CFilmKeys(QWidget& view, std::function<QWidget*()> panel);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::function<QWidget*()> m_panel;
};
