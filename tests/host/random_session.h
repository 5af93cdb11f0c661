#pragma once

#include "host/random_session_driver.h"
#include "host/random_session_reference.h"

#include "engine/memory/memory_scene.h"

#include <array>
#include <cstdint>
#include <deque>
#include <random>
#include <sstream>
#include <string>

/// A line of the log.
template <typename... Values> std::string text(const char* name, const Values&... values) {
    std::ostringstream stream;
    stream << name;
    ((stream << ' ' << values), ...);
    return stream.str();
}

/// A long session of random work on the map editor and on the reference side by side: strokes of every tool,
/// settings in and far out of range, selections, undo, tabs, colours, what the host does to its map, closing
/// and reopening on two maps, calls out of order. One seed gives one session.
class CRandomSession {
public:
    /// `closings`: how often the editor is closed, in 10,000 operations. Few of them let the history fill up.
    /// What the module remembers goes on from session to session: so does the reference.
    CRandomSession(CReferenceEditor& reference, std::uint64_t seed, int closings);
    ~CRandomSession();
    CRandomSession(const CRandomSession&) = delete;
    CRandomSession& operator=(const CRandomSession&) = delete;

    /// Do `count` operations and compare everything after each. False at the first difference, which is
    /// reported with the operations before it.
    bool run(std::int64_t count);

    /// Take back whatever the history holds, and compare.
    bool undoAll();

private:
    void operate();
    void operateOpen();
    void stroke();
    void strayCall();
    void setMembers();
    void setDetailTexture();
    void close();
    void open();
    void makeMaps();
    void workOnMap();

    /// Have the editor and the reference do the same.
    template <class Act> void both(const std::string& operation, Act act) {
        note(operation);
        act(m_driver);
        act(m_reference);
    }

    bool compare();
    bool compareMaps();
    bool compareDetails();
    bool report(const std::string& what);

    int pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_random); }
    bool chance(int percent) { return pick(1, 100) <= percent; }
    qxCColour anyColour() { return {pick(0, 255), pick(0, 255), pick(0, 255), 255}; }
    int coordinate(int near);
    void movePointer();
    int wild();
    void note(const std::string& operation);

    CSessionDriver m_driver;
    CReferenceEditor& m_reference;
    int m_nClosings;
    std::mt19937_64 m_random;
    CMemoryScene m_scene;
    std::array<CMemoryMap, 2> m_actualMaps; // the second one stands in no scene
    std::array<CMemoryMap, 2> m_expectedMaps;
    std::size_t m_nMap = 0;
    int m_nX = 0; // where the pointer is
    int m_nZ = 0;
    std::int64_t m_nDone = 0;
    std::uint64_t m_nSeed;
    std::deque<std::string> m_log; // the last operations
};
