#pragma once

#include "engine/memory/memory_map.h"
#include "engine/qx_random.h"
#include "host/random_session_driver.h"
#include "host/random_session_reference_panel.h"

#include <algorithm>
#include <cstdint>
#include <deque>
#include <initializer_list>
#include <limits>
#include <set>
#include <utility>
#include <vector>

/// The int nearest to `value`.
inline int held(std::int64_t value) {
    constexpr std::int64_t LOW = std::numeric_limits<int>::min();
    constexpr std::int64_t HIGH = std::numeric_limits<int>::max();
    return static_cast<int>(std::min(std::max(value, LOW), HIGH));
}

inline bool isAnyOf(int value, std::initializer_list<int> values) {
    return std::find(values.begin(), values.end(), value) != values.end();
}

/// The map editor written down as plainly as can be, for comparison: whole-map copies, membership tests over
/// every point of the grid, no shortcuts. Works on maps of its own, so that after every operation they can be
/// compared value by value with those of the editor under test. Not for big maps.
class CReferenceEditor {
public:
    static constexpr int HISTORY_CAPACITY = 100'000;

    /// What CSessionDriver's functions of these names do.
    void open(CMemoryMap& newMap);
    void destroy();
    void destroySettings();
    void start(int px, int pz, int edge, int corner);
    void update(int px, int pz, int amount);
    void stop();
    void hover(int px, int pz, int edge, int corner);
    void close();
    void undo();
    void selectAll();
    void deselect();
    void clickTab();

    struct Record {
        bool start;
        int x;
        int z;
        int height;
        qxCColour colour;
        int blend;
    };

    CMemoryMap* map = nullptr;
    bool isOpen = false;
    ReferencePanel panel;
    std::deque<Record> history;

private:
    using Point = std::pair<std::int64_t, std::int64_t>;
    enum class Worker { NONE, RAISE_AREA, RAISE_BRUSH, MAGNET };

    void updateTerrain(std::int64_t x, std::int64_t z, int amount);
    void updateDetails(int px, int pz, int amount);
    void raise(int amount);
    void magnet(int amount);
    void flatten();
    void setHeights();
    void readHeight();
    void smooth();
    void roughen();
    void tintPoints();
    void paintPoints();
    void dragDetail(int px, int pz, int amount);
    void addDetail(qxCMapDetailRecord* created);
    void cursor(std::int64_t x, std::int64_t z, int edge, int corner, bool duringStroke);

    std::vector<Point> gridPoints() const;
    std::vector<Point> pointsOf(std::int64_t x0, std::int64_t z0, std::int64_t x1, std::int64_t z1) const;
    std::set<Point> brushPoints() const;
    std::int64_t blockSize() const;
    /// The points of the area, which go into the history.
    std::vector<Point> recordArea(std::int64_t x0, std::int64_t z0, std::int64_t x1, std::int64_t z1);
    /// Those of the selection, else of the brush.
    std::vector<Point> recordWork();
    int heightAt(std::int64_t x, std::int64_t z) const;
    void writeHeight(const Point& point, std::int64_t height, bool direct);
    void copyHeights();
    int copiedHeight(const Point& point) const;
    void outline(std::int64_t x0, std::int64_t z0, std::int64_t x1, std::int64_t z1, bool on);
    void dropSelection();

    struct {
        bool valid = false;
        const CMemoryMap* map = nullptr;
        int tool = 0;
        int brush = 0;
        int strength = 0;
        int height = 0;
    } m_saved;
    qxCRandom m_roughen;
    bool m_bHasRecorded = false;            // in this stroke
    qxCMapDetailRecord* m_pAdded = nullptr; // by the start of this stroke
    std::vector<int> m_copy;                // the whole map's heights at the first update
    Worker m_worker = Worker::NONE;
    std::vector<Point> m_workPoints;
    Point m_workOrigin;
    std::int64_t m_nWorkSize = 0;
    struct {
        qxCMapDetailRecord* record = nullptr;
        qxCVector3d p0, p1, p2;
        int x = 0;
        int z = 0;
    } m_dragged;
};
