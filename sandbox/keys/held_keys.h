#pragma once

#include <QObject>
#include <functional>
#include <optional>

class CMapView;

/// What Ctrl and Shift change for the length of one stroke: with Shift any tool of the terrain smooths, with
/// Ctrl Raise and Magnet work the other way round and Flood and Drain stand for each other. The panel shows
/// the tool meanwhile, and the one chosen before comes back with the release.
class CHeldKeys : public QObject {
public:
    /// `settle` is called after a tool was pressed on the panel, which takes the keyboard.
    CHeldKeys(CMapView& view, std::function<void()> settle);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void begin(Qt::KeyboardModifiers held);
    void end();
    void change(int tool);

    CMapView& m_view;
    std::function<void()> m_settle;
    std::optional<int> m_former; // the tool that comes back
};
