#pragma once

#include "sandbox/app/edit_menu.h"
#include "sandbox/app/editor_window.h"
#include "sandbox/app/film_menu.h"
#include "sandbox/app/film_player.h"
#include "sandbox/app/map_document.h"
#include "sandbox/app/recent_files.h"
#include "sandbox/app/session_memory.h"
#include "sandbox/keys/held_keys.h"
#include "sandbox/keys/panel_focus.h"
#include "sandbox/keys/shortcut_table.h"
#include "sandbox/keys/tool_menu.h"
#include "sandbox/strip/film_strip.h"
#include "sandbox/view/map_view.h"

#include <QMainWindow>
#include <optional>

class QAction;
class QComboBox;
class QLabel;
class QMenu;
class QSpinBox;

/// The sandbox's window: the 3D view, and all that opens, saves and closes the map and its editors.
class CMainWindow : public QMainWindow {
    Q_OBJECT

public:
    CMainWindow();
    ~CMainWindow() override;

    /// Open a heightmap or a project in place of the map that is open, without asking. Returns what to tell
    /// on failure.
    QString openMap(const QString& path);
    /// Begin a person's session: offer unsaved work of an earlier one, then open the map editor.
    void startWork();
    /// Save the heights to a file. Returns what to tell on failure.
    QString saveHeightmap(const QString& path);
    /// Save all of the map to a folder. Returns what to tell on failure.
    QString saveProject(const QString& folder);

    CMapView& view() { return *m_pView; }
    CMapDocument& document() { return m_document; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makeFileMenu();
    void makeEditorMenu();
    void makeFilmMenu();
    void makeViewMenu();
    void makeHelpMenu();
    /// The keys of all menus, once they are made.
    void makeKeys();
    void editShortcuts();
    /// Show the selection from near, else what the pointer is on.
    void frame();
    void makeToolBar();
    void makeStatusBar();
    void connectView();

    // Files: main_window_files.cpp. Each save is false when it failed or was called off.
    CMapDocument::Outcome
    replaceMap(const std::function<CMapDocument::Outcome(const std::function<void()>& beforeSwap)>& open);
    /// Ask whether the unsaved work of a program that ended unasked is to be taken up, if there is any: of
    /// the map at that place, or of any.
    void offerAutosave(const QString& place = {});
    void openAbandoned(const AbandonedCopy& copy);
    void startNew();
    bool mayOpen(const QString& path);
    bool mayOverwrite(const QString& path);
    bool saveProjectTo(const QString& folder);
    void autosave();
    void chooseProject();
    void chooseHeightmap();
    void openAsked(const QString& path);
    bool save();
    bool saveProjectAs();
    bool saveHeightmapAs();
    bool saveHeightsTo(const QString& path);
    bool saveOutgrown();
    /// Ask what is to become of unsaved changes. False when the map at hand must stay.
    bool mayDropMap();
    void fillRecentMenu(QMenu& menu);
    EditorKind mapEditorKind();
    EditorKind movieEditorKind();
    void closeEditors();
    /// Keep from where the map at hand is seen, for the next time.
    void keepSight();
    void followMapPanel();
    /// The map was changed behind the panel's back.
    void followJournal(CMapJournal::Reach reach);
    void openMapEditor();
    QPoint placeForMapPanel(const QWidget& panel) const;
    /// Give the map editor's panel the right side of the window, or let it float.
    void dockMapEditor(bool docked);
    static bool wasMapEditorDocked();
    /// Where the movie editor's panel is in nobody's way: below the window, or at the bottom of the view.
    QPoint placeForMoviePanel(const QWidget& panel) const;
    void followMovieEditor(bool open);
    /// The panel hears of a film that was changed behind its back.
    void refreshMoviePanel();
    /// Leave the bottom of the window to the movie editor's panel where it stands there.
    void makeRoom();
    /// Take the cursor and the highlighted detail off the ground: without an editor they would promise a
    /// stroke.
    void clearPointing();
    /// Follow what changed behind the menus' back: the panel was closed, the map was edited.
    void followState();
    void showTitle();
    void showPosition(const std::optional<TerrainHit>& hit);
    void showControls();
    void adoptMap();
    QString settleSave(const QString& path, const CMapDocument::Outcome& outcome);
    /// Show the failure, if it is one. True when there is none.
    bool tell(const QString& failure);
    void watchTextures();

    CMapDocument m_document;
    CRecentFiles m_recentFiles;
    CMapView* m_pView;
    CFilmStrip* m_pStrip;
    int m_nWatchedTextures = 0;
    bool m_bHeightsAreEnough = false; // the person said so of this map
    bool m_bIsBusy = false;           // a file is being read or written
    QAction* m_pSaveAction = nullptr;
    CEditorWindow* m_pMapEditor = nullptr;
    CEditorWindow* m_pMovieEditor = nullptr;
    CFilmMenu* m_pFilmMenu = nullptr;
    CFilmPlayer m_filmPlayer{nullptr};
    CEditMenu* m_pEditMenu = nullptr;
    CToolMenu* m_pToolMenu = nullptr;
    CPanelFocus* m_pPanelFocus = nullptr;
    std::optional<CShortcutTable> m_shortcuts;
    std::optional<TerrainHit> m_pointed;
    sessionmemory::Hand m_hand = sessionmemory::lastHand(); // as last seen on the panel
    bool m_bDetailsShown = false;
    QAction* m_pFlyAction = nullptr;
    QSpinBox* m_pWaterLevel = nullptr;
    QComboBox* m_pUnitsPerPixel = nullptr;
    QLabel* m_pPosition = nullptr;
    QLabel* m_pFrameRate = nullptr;
};
