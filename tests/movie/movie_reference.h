#pragma once

#include "engine/memory/movie/memory_movie.h"

#include <optional>
#include <string>
#include <vector>

/// The movie editor as its rules tell it, done plainly on a movie of its own, which may lie at 25 frames a
/// second only. Knows nothing of the toolkit.
class CReferenceMovieEditor {
public:
    static constexpr int WIDTH = 450; ///< of the panel's timeline, pixels

    /// The panel as it is seen, as far as that is known.
    struct Shown {
        std::vector<std::string> numbers;
        std::string time;
        std::optional<bool> editable;
    };

    void open(CMemoryMovie& movie);
    void step(int button);
    void command(int button);
    void zoom(int button);
    void undo();
    /// A press, a move and a release in pixels of the timeline.
    void drag(bool rightButton, bool ctrl, int from, int to, bool cancelled);
    /// No value: the field is only visited.
    void typeNumber(int field, std::optional<float> value);
    void spin(int field, bool up);
    void ease(int way);
    void setAnim(const std::string& name);
    void toggleTarget();
    /// In the list of cameras, interpolations or fades.
    void choose(int list, int item);
    void cameraAltered(int camera, bool finished);
    /// Play so many and a half frames, then stop.
    void play(int frames, bool loops);
    /// Take all sounds out, add the long one (1) or the short one (2) in front, extend the film if asked.
    /// Whether the person is asked.
    bool setUpSounds(bool removes, int added, bool extends);
    /// What differs in the other movie and its history, or nothing.
    std::string compare(CMemoryMovie& other, int historyCount);
    Shown shown();
    int firstFrame() const { return m_nFirst; }
    int frameWidth() const { return m_nWidth; }

private:
    struct Record {
        char kind; ///< changed, inserted, deleted
        int index;
        qxCMovieFrame frame;
    };
    struct Move {
        int index;
        qxCMovieFrame before;
        bool changed = false;
    };

    qxCMovieFrame& current() { return *m_pMovie->getFrame(m_pMovie->getRangeStart()); }
    template <class Edit> void change(bool recorded, Edit edit);
    void settle();
    void tweenAndShow();
    void show(int frame);
    int frameAt(int x) const { return x / m_nWidth + m_nFirst; }

    CMemoryMovie* m_pMovie = nullptr;
    std::vector<Record> m_history;
    std::vector<Move> m_moves; ///< under way, in the order of their first reports
    bool m_bOutdated = false;  // what the panel shows of the frame is older than the last camera move
    int m_nFirst = 0;
    int m_nWidth = 1;
};
