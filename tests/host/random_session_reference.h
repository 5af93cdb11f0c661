#pragma once

#include "engine/memory/memory_map.h"
#include "engine/qx_random.h"
#include "host/random_session_driver.h"
#include "host/random_session_reference_panel.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
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

/// A number as a field shows it.
inline std::string digits(float value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.6g", static_cast<double>(value));
    return text;
}

/// The map editor written down as plainly as can be, for comparison: whole-map copies, membership tests over
/// every point of the grid, no shortcuts. Works on maps of its own, so that after every operation they can be
/// compared value by value with those of the editor under test. Not for big maps.
class CReferenceEditor {
public:
    static constexpr int HISTORY_CAPACITY = 100'000;
    /// The ids of the buttons, in the order of tools and brush sizes.
    static const std::vector<int> TOOLS;
    static const std::vector<int> BRUSHES;

    /// What CSessionDriver's functions of these names do.
    void open(CMemoryMap& newMap, bool fullEditing);
    void destroy();
    void destroySettings();
    void start(int px, int pz, int edge, int corner);
    void update(int px, int pz, int ignored, int amount);
    void stop();
    void hover(int px, int pz, int edge, int corner);
    void closeWindow();
    void click(int id);
    void clickTab();
    Seen pickColour(int swatch, const qxCColour* colour);
    void dragColour(int from, int to);
    Seen type(int edit, const std::string& text, Leaving leaving);
    void spin(int id, bool up);
    void slide(int strength);
    Seen runDialog(int opener, const std::vector<DialogStep>& steps);
    /// What these controls show.
    Seen shown(const std::vector<int>& ids) const;

    struct Record {
        bool start;
        int x;
        int z;
        int height;
        qxCColour colour;
        int blend;
    };

    bool hasControls = false; // CSessionDriver::hasControls()
    CMemoryMap* map = nullptr;
    bool isOpen = false;
    bool isEditing = false;
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
    void recordArea(std::int64_t x0, std::int64_t z0, std::int64_t x1, std::int64_t z1);
    int heightAt(std::int64_t x, std::int64_t z) const;
    void writeHeight(const Point& point, std::int64_t height, bool direct);
    void refreshUndo();
    void copyHeights();
    int copiedHeight(const Point& point) const;
    void outline(std::int64_t x0, std::int64_t z0, std::int64_t x1, std::int64_t z1, bool on);
    void dropSelection();
    void selectAll();
    void undo();

    /// The panel reads its controls, up to the first that is refused: what they cannot show becomes what they
    /// do show.
    void readControls(int refused = 0);
    void initPanel();
    void enable(int id, bool enabled);
    bool isInReach(int id) const; // enabled and in sight
    void refreshTools();
    void refreshBrushes();
    void refreshDefinition();
    void showPreview();
    qxCMapMultiTexture* definition();
    bool clickRadio(int id);
    bool clickToggle(int id);
    void clickDefinition(int id);
    Seen leave(int edit, const std::string& text);
    void settle(int edit);
    void colourChanged(int swatch);
    Seen listTextures(int picker, const std::vector<DialogStep>& steps);
    std::string shownText(int id) const;

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
    int m_nSwatchPressed = 0; // 0: none
    qxCColour m_swatchColour;
};
