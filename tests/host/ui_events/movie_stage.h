#pragma once

#include "engine/memory/memory_scene.h"
#include "engine/memory/movie/memory_movie.h"
#include "host/ui_events/event_dice.h"
#include "platform/window_handle.h"

#include <memory>

/// The film of a session, and what its host does with it while a person uses the movie editor.
class CMovieStage {
public:
    explicit CMovieStage(CEventDice& dice) : m_dice(dice) { makeMovie(); }
    ~CMovieStage() { end(); }
    CMovieStage(const CMovieStage&) = delete;
    CMovieStage& operator=(const CMovieStage&) = delete;

    void open(HWND parent);
    /// Closes the editor and frees the movie for a new one.
    void replaceMovie();
    /// A host frame, a camera move, or a change behind the panel's back.
    void call();
    void end();

private:
    void makeMovie();

    CEventDice& m_dice;
    CMemoryScene m_scene;
    std::unique_ptr<CMemoryMovie> m_pMovie;
};
