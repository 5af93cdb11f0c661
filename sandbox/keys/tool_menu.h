#pragma once

#include <QMainWindow>

#include <functional>
#include <vector>

class QAction;

/// The menu of what the map editor's panel offers the hand while it works: tools, brush, strength, selection.
/// Each entry presses the panel's own control, then calls `done`.
class CToolMenu : public QObject {
    Q_OBJECT

public:
    CToolMenu(QMainWindow& window, std::function<void()> done);

    /// Show the entries as the panel stands. To be called when the application is idle.
    void follow();

private:
    QAction* add(const QString& text, const QString& name, const QKeySequence& key,
                 std::function<void()> press);

    QMenu* m_pMenu;
    std::function<void()> m_done;
    std::vector<QAction*> m_tools;
    bool m_bOpen = true;
    bool m_bDetails = false;
};
