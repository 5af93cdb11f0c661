#pragma once

#include <QElapsedTimer>
#include <QKeySequence>
#include <QMainWindow>
#include <QStyle>
#include <functional>
#include <optional>

class QAction;

/// What there is to say of one of the toolkit's editors.
struct EditorKind {
    QString text;           ///< of the menu entry
    const char* actionName; ///< object name of the menu entry
    QKeySequence key;
    QStyle::StandardPixmap icon;
    const char* panelName; ///< object name of the panel's window
    bool (*isOpen)();
    std::function<void()> create;
    std::function<void()> destroy;
    /// Where the panel's window goes, on the screen, before a person has put it anywhere and while it is
    /// docked.
    std::function<QPoint(const QWidget& panel)> firstPlace;
    /// The editor was opened or closed, by whichever way.
    std::function<void(bool open)> changed;
};

/// One of the toolkit's editors as the host window sees it: a menu entry with a key, a panel with a place,
/// open or not. A panel closes without a word to its host, so the state is followed. The place where a person
/// puts the panel is kept from session to session.
class CEditorWindow : public QObject {
public:
    CEditorWindow(QMainWindow& host, EditorKind kind);

    QAction& action() { return *m_pAction; }
    bool isOpen() const { return m_kind.isOpen(); }
    void open();
    void close();
    /// Follow what happened to the panel: it was moved or closed. To be called when the application is idle.
    void follow();
    /// Keep the panel at its first place, or where the person puts it.
    void setDocked(bool docked);
    bool isDocked() const { return m_bDocked; }
    /// The panel's window, or null.
    QWidget* panel() const;

private:
    void noteState();
    void notePlace(QWidget& window);
    QPoint placeFor(const QWidget& window) const;

    QMainWindow& m_host;
    EditorKind m_kind;
    QAction* m_pAction;
    std::optional<QPoint>
        m_place;     // where the person put the panel, from the window's corner; kept in the settings
    QPoint m_wanted; // on the screen, where the panel was last seen or sent
    QElapsedTimer m_sinceFramed;
    int m_nTries = 0;
    bool m_bFramed = false; // by a window manager, since it was opened
    bool m_bDocked = false;
    bool m_bWasOpen = false;
};
