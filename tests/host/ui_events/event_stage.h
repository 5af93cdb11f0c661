#pragma once

#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"
#include "host/ui_events/event_dice.h"
#include "host/ui_events/event_tally.h"
#include "host/ui_events/movie_stage.h"
#include "host/ui_events/panel_invariants.h"
#include "platform/window_handle.h"

#include <QByteArray>
#include <QMap>
#include <QTemporaryDir>
#include <QWidget>

#include <memory>

/// The host of a session: its window, its map with scene, textures, definitions and details, its film, and
/// what it calls. Everything on disk lies in a temporary directory of its own.
class CEventStage {
public:
    CEventStage(CEventDice& dice, EventTally& tally);
    ~CEventStage();
    CEventStage(const CEventStage&) = delete;
    CEventStage& operator=(const CEventStage&) = delete;

    void openEditor();
    void openMovieEditor();
    /// Both editors.
    void destroyEditor();
    /// Closes the editor and frees its map and scene, as the contract allows, for new ones.
    void replaceWorld();
    /// Deletes the host's window, and with it what belongs to it, and makes a new one, when it may.
    void replaceWindow();
    /// One call for a stroke: a start, an update or a stop, at any cell of the map or beyond.
    void stroke();
    void hover();
    void callMovie() { m_movie.call(); }
    /// The host changes of its map what the panel shows: definitions, base textures, the tiling.
    void editMap();
    /// Tells the user's ways to close the panel from the host's own.
    void observe();
    /// What holds of the panel at rest: between two events, with no dialog over it. False when a rule is
    /// broken.
    bool checkPanel();
    const std::string& brokenRule() const { return m_invariants.getBroken(); }
    /// Closes and frees everything.
    void end();

    QWidget* window() const { return m_pWindow.get(); }
    QString directory() const { return m_directory.path(); }
    /// The directory holds the files it was given, unchanged, and no others.
    bool isDirectoryIntact() const;

private:
    void writeFiles();
    void writeTga(const QString& name, int width, int height, int bits, int missing = 0);
    void write(const QString& name, const QByteArray& content);
    void makeWorld();
    void addDefinitions();
    void addDetails();
    void makeWindow();
    void countImports();
    HWND anyHostHandle();
    int coordinate();

    CEventDice& m_dice;
    EventTally& m_tally;
    CPanelInvariants m_invariants;
    QTemporaryDir m_directory;
    QMap<QString, QByteArray> m_files;
    std::unique_ptr<QWidget> m_pWindow; // with the view that shows the map
    std::unique_ptr<CMemoryScene> m_pScene;
    std::unique_ptr<CMemoryMap> m_pMap;
    CMovieStage m_movie;
    int m_nOwnTextures = 0;
    bool m_bOpen = false; // as far as the host knows
};
