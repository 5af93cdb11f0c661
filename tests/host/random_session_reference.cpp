#include "host/random_session_reference.h"

#include "engine/qx_matrix4d.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

constexpr std::int64_t INT_LOW = std::numeric_limits<int>::min();
constexpr std::int64_t INT_HIGH = std::numeric_limits<int>::max();

int held(std::int64_t value) {
    return static_cast<int>(std::min(std::max(value, INT_LOW), INT_HIGH));
}

bool isAnyOf(int value, std::initializer_list<int> values) {
    return std::find(values.begin(), values.end(), value) != values.end();
}

} // namespace

// --- opening and closing
// ------------------------------------------------------------------------------------

void CReferenceEditor::open(CMemoryMap* newMap) {
    if (isOpen) {
        return;
    }
    map = newMap;
    panel = Panel();
    m_worker = Worker::NONE;
    m_dragged.record = nullptr;
    if (!m_saved.valid || m_saved.map != map) {
        history.clear();
        m_saved.map = map;
        m_saved.brush = 2;
        m_saved.tool = 0;
        m_saved.height = 0;
    }
    panel.brush = m_saved.brush;
    panel.strength = m_saved.strength;
    panel.tool = m_saved.tool;
    panel.height = m_saved.height;
    m_saved.valid = true;
    isOpen = true;
}

void CReferenceEditor::closeByUser() {
    if (isOpen) {
        m_saved = {true, map, panel.tool, panel.brush, panel.strength, panel.height};
        isOpen = false;
    }
}

void CReferenceEditor::destroy() {
    isOpen = false;
}

void CReferenceEditor::destroySettings() {
    m_saved.valid = false;
    history.clear();
}

void CReferenceEditor::changeTab() {
    panel.isDetailsTab = !panel.isDetailsTab;
    std::swap(panel.tool, panel.otherTool);
}

// --- points
// -------------------------------------------------------------------------------------------------

std::vector<CReferenceEditor::Point> CReferenceEditor::gridPoints() const {
    std::vector<Point> points;
    for (int x = 0; x <= map->getGridDim(); ++x) {
        for (int z = 0; z <= map->getGridDim(); ++z) {
            points.emplace_back(x, z);
        }
    }
    return points;
}

std::vector<CReferenceEditor::Point> CReferenceEditor::pointsOf(std::int64_t x0, std::int64_t z0,
                                                                std::int64_t x1, std::int64_t z1) const {
    std::vector<Point> points = gridPoints();
    std::erase_if(points, [&](const Point& p) {
        return p.first < x0 || p.first > x1 || p.second < z0 || p.second > z1;
    });
    return points;
}

std::set<CReferenceEditor::Point> CReferenceEditor::brushPoints() const {
    const std::int64_t x = panel.x;
    const std::int64_t z = panel.z;
    const Point corners[] = {{x, z}, {x + 1, z}, {x + 1, z + 1}, {x, z + 1}};
    const int ends[][2] = {{0, 1}, {1, 2}, {3, 2}, {0, 3}, {0, 2}, {1, 3}};
    std::set<Point> points;
    if (panel.brush == 0 && panel.corner >= 0 && panel.corner < 4) {
        points.insert(corners[panel.corner]);
    }
    if (panel.brush == 1 && panel.edge >= 0 && panel.edge < 6) {
        points.insert({corners[ends[panel.edge][0]], corners[ends[panel.edge][1]]});
    }
    if (panel.brush == 2) {
        points.insert(std::begin(corners), std::end(corners));
    }
    for (std::int64_t dx = 0; dx < 5; ++dx) {
        for (std::int64_t dz = 0; dz < 5; ++dz) {
            const bool plus = std::abs(dx - 1) + std::abs(dz - 1) <= 1;
            const bool block = dx < 3 && dz < 3;
            const bool disc = !((dx == 0 || dx == 4) && (dz == 0 || dz == 4));
            if ((panel.brush == 3 && plus) || (panel.brush == 4 && block) || (panel.brush == 5 && disc)) {
                points.insert({x + dx, z + dz});
            }
        }
    }
    return points;
}

std::int64_t CReferenceEditor::blockSize() const {
    return panel.brush <= 2 ? 2 : panel.brush <= 4 ? 3 : 5;
}

int CReferenceEditor::heightAt(std::int64_t x, std::int64_t z) const {
    return map->getPointHeight(held(x), held(z));
}

void CReferenceEditor::writeHeight(const Point& point, std::int64_t height, bool direct) {
    map->setPointHeight(held(point.first), held(point.second), held(height), direct);
}

void CReferenceEditor::recordArea(std::int64_t x0, std::int64_t z0, std::int64_t x1, std::int64_t z1) {
    bool start = panel.first;
    for (const auto& [px, pz] : pointsOf(x0, z0, x1, z1)) {
        const int x = static_cast<int>(px);
        const int z = static_cast<int>(pz);
        history.push_back({start, x, z, map->getPointHeightQ(x, z), map->getPointColourQ(0, x, z),
                           map->getPointBlendQ(1, x, z)});
        start = false;
        if (history.size() > HISTORY_CAPACITY) {
            history.pop_front();
        }
    }
}

void CReferenceEditor::undo() {
    while (!history.empty()) {
        const Record record = history.back();
        history.pop_back();
        map->setPointHeight(record.x, record.z, record.height, false);
        map->setPointColour(0, record.x, record.z, record.colour);
        map->setPointBlend(1, record.x, record.z, record.blend);
        if (record.start) {
            break;
        }
    }
}

// --- marks, selection, cursor
// -------------------------------------------------------------------------------

void CReferenceEditor::outline(std::int64_t x0, std::int64_t z0, std::int64_t x1, std::int64_t z1, bool on) {
    const auto [left, right] = std::minmax(x0, x1);
    const auto [low, high] = std::minmax(z0, z1);
    for (const auto& [x, z] : pointsOf(left, low, right, high)) {
        if (x == left || x == right || z == low || z == high) {
            map->setMarkerPixel(qxMapMarkerStroke, static_cast<int>(x), static_cast<int>(z),
                                on ? qxCColour(255, 255, 255, 32) : qxCColour(0, 0, 0, 0));
        }
    }
}

void CReferenceEditor::dropSelection() {
    if (panel.selected) {
        outline(panel.x0, panel.z0, panel.x1, panel.z1, false);
        panel.selected = false;
    }
}

void CReferenceEditor::selectAll() {
    dropSelection();
    panel.x0 = panel.z0 = 0;
    panel.x1 = panel.z1 = map->getGridDim() - 1;
    panel.selected = true;
    outline(panel.x0, panel.z0, panel.x1, panel.z1, true);
}

void CReferenceEditor::deselect() {
    dropSelection();
    panel.x0 = panel.z0 = 0;
}

void CReferenceEditor::hover(int px, int pz, int edge, int corner) {
    if (isOpen) {
        cursor(px, pz, edge, corner, false);
    }
}

void CReferenceEditor::cursor(std::int64_t x, std::int64_t z, int edge, int corner, bool duringStroke) {
    map->clearEditCursors();
    if (panel.hideCursor && duringStroke) {
        return;
    }
    const auto add = [&](std::int64_t dx, std::int64_t dz, int kind) {
        map->addEditCursor(held(x + dx), held(z + dz), kind);
    };
    if (panel.isDetailsTab && panel.tool >= 0 && panel.tool <= 7) {
        add(0, 0, 15);
        qxCMapDetailRecord* const found = map->findDetail(static_cast<float>(x), static_cast<float>(z));
        if (panel.detail != nullptr) {
            panel.detail->highlighted = 0;
        }
        if (found != nullptr) {
            found->highlighted = duringStroke ? 0 : 1;
        }
        panel.detail = found;
        return;
    }
    int size = panel.brush;
    if (isAnyOf(panel.tool, {0, 6, 7, 8, 10, 11})) {
        size = 2;
    } else if (panel.tool == 4) {
        size = 0;
    }
    if (size == 0 && corner >= 0 && corner <= 3) {
        const int kinds[] = {5, 6, 8, 7};
        add(0, 0, kinds[corner]);
    }
    if (size == 1 && edge >= 0 && edge <= 5) {
        const int kinds[] = {2, 3, 4, 1, 9, 10};
        add(0, 0, kinds[edge]);
    }
    if (size == 2) {
        add(0, 0, 0);
    }
    if (size == 3) {
        add(0, 0, 13);
        add(1, 0, 14);
        add(0, 1, 12);
        add(1, 1, 11);
    }
    const int edgeCells = size == 4 ? 2 : size == 5 ? 4 : 0;
    for (int dz = 0; dz < edgeCells; ++dz) {
        for (int dx = 0; dx < edgeCells; ++dx) {
            const bool isDiscCorner = size == 5 && (dx == 0 || dx == 3) && (dz == 0 || dz == 3);
            if (!isDiscCorner) {
                add(dx, dz, 0);
            }
        }
    }
}

// --- strokes
// ------------------------------------------------------------------------------------------------

void CReferenceEditor::startEditing(int px, int pz, int edge, int corner) {
    if (!isOpen) {
        return;
    }
    isEditing = true;
    panel.x = px;
    panel.z = pz;
    panel.edge = edge;
    panel.corner = corner;
    panel.lastX = panel.lastZ = -1;
    panel.first = true;
    m_worker = Worker::NONE;
    if (!panel.isDetailsTab) {
        if (panel.tool == 0) {
            dropSelection();
            panel.x0 = px;
            panel.z0 = pz;
            return;
        }
        updateEditing(px, pz, 0);
        if (panel.tool != 1 && panel.tool != 11) {
            dropSelection();
        }
        return;
    }
    const float x = static_cast<float>(px);
    const float z = static_cast<float>(pz);
    const float nextX = static_cast<float>(px + 1.0);
    const float nextZ = static_cast<float>(pz + 1.0);
    const qxCVector3d middle(static_cast<float>(px + 0.5), 0.0F, static_cast<float>(pz + 0.5));
    if (panel.tool == 0 && panel.detailTexture != nullptr) {
        addDetail(map->addDetail(qxDetailTypeQuad, panel.detailTexture, {x, 0.0F, z}, {nextX, 0.0F, z},
                                 {x, 0.0F, nextZ}, 1.0F));
    } else if (panel.tool == 5 && panel.detailTexture != nullptr) {
        addDetail(map->addDetail(qxDetailTypePoint, panel.detailTexture, middle, 0.5F, 0.0F, 1.0F));
    } else if (panel.tool == 6 && panel.detail != nullptr) {
        const qxCMapDetailRecord copy = *panel.detail;
        addDetail(
            map->addDetail(copy.type, copy.texture, copy.point0, copy.point1, copy.point2, copy.scalar));
    } else if (isAnyOf(panel.tool, {2, 3, 4}) && panel.detail != nullptr) {
        panel.detail->highlighted = 0;
    } else if (panel.tool == 1 || panel.tool == 7) {
        updateEditing(px, pz, 0);
    }
}

void CReferenceEditor::addDetail(qxCMapDetailRecord* created) {
    if (panel.detail != nullptr) {
        panel.detail->highlighted = 0;
    }
    if (created != nullptr) {
        created->highlighted = 0;
    }
    panel.detail = created;
    updateEditing(panel.x, panel.z, 0);
}

void CReferenceEditor::updateEditing(int px, int pz, int amount) {
    if (!isOpen) {
        return;
    }
    const bool terrain = !panel.isDetailsTab;
    if (!terrain) {
        updateDetails(px, pz, amount);
    } else {
        if (panel.lastX != -1 || panel.lastZ != -1) {
            const bool band = panel.tool == 0;
            outline(band ? panel.x0 : panel.lastX, band ? panel.z0 : panel.lastZ, panel.lastX, panel.lastZ,
                    false);
        }
        updateTerrain(px, pz, amount);
    }
    cursor(panel.x, panel.z, panel.edge, panel.corner, true);
    panel.lastX = panel.x;
    panel.lastZ = panel.z;
    if (terrain && (panel.lastX != -1 || panel.lastZ != -1)) {
        if (panel.tool == 0) {
            outline(panel.x0, panel.z0, panel.x1, panel.z1, true);
        } else {
            outline(panel.x, panel.z, panel.x, panel.z, true);
        }
    }
    panel.first = false;
}

void CReferenceEditor::stopEditing() {
    if (!isOpen) {
        return;
    }
    isEditing = false;
    if (!panel.isDetailsTab) {
        if (panel.tool == 0) {
            const Panel was = panel;
            panel.x0 = std::min(was.x0, was.x1);
            panel.x1 = std::max(was.x0, was.x1);
            panel.z0 = std::min(was.z0, was.z1);
            panel.z1 = std::max(was.z0, was.z1);
            panel.selected = true;
        }
        if (panel.tool == 1) {
            dropSelection();
        }
        if ((panel.lastX != -1 || panel.lastZ != -1) && !panel.selected) {
            outline(panel.lastX, panel.lastZ, panel.lastX, panel.lastZ, false);
        }
    }
    map->clearEditCursors();
}

// --- terrain tools
// ------------------------------------------------------------------------------------------

void CReferenceEditor::updateTerrain(std::int64_t x, std::int64_t z, int amount) {
    if (panel.tool < 0 || panel.tool > 12) {
        return;
    }
    if (panel.tool != 1 && panel.tool != 11) {
        panel.x = static_cast<int>(x);
        panel.z = static_cast<int>(z);
    }
    switch (panel.tool) {
    case 0:
        panel.x1 = panel.x;
        panel.z1 = panel.z;
        break;
    case 1:
        raise(amount);
        break;
    case 2:
        flatten();
        break;
    case 3:
        setHeights();
        break;
    case 4: {
        const std::int64_t dx = panel.corner == 1 || panel.corner == 2 ? 1 : 0;
        const std::int64_t dz = panel.corner == 2 || panel.corner == 3 ? 1 : 0;
        if (panel.corner >= 0 && panel.corner <= 3) {
            panel.height = heightAt(x + dx, z + dz);
        }
        break;
    }
    case 5:
        tintPoints();
        break;
    case 6:
        smooth();
        break;
    case 7:
        map->addWater(panel.x, panel.z);
        break;
    case 8:
        map->removeWater(panel.x, panel.z);
        break;
    case 9:
        paintPoints();
        break;
    case 10:
        panel.gradient = map->getGradient(panel.x, panel.z);
        break;
    case 11:
        magnet(amount);
        break;
    default:
        roughen();
        break;
    }
}

void CReferenceEditor::copyHeights() {
    m_copy.clear();
    for (const auto& [x, z] : gridPoints()) {
        m_copy.push_back(heightAt(x, z));
    }
}

int CReferenceEditor::copiedHeight(const Point& point) const {
    const std::int64_t side = map->getGridDim() + 1;
    return m_copy[static_cast<std::size_t>(point.first * side + point.second)];
}

void CReferenceEditor::raise(int amount) {
    const std::int64_t x = panel.x;
    const std::int64_t z = panel.z;
    if (panel.selected) {
        if (panel.first) {
            const std::int64_t right = panel.x1 + std::int64_t{1};
            const std::int64_t far = panel.z1 + std::int64_t{1};
            recordArea(panel.x0, panel.z0, right, far);
            copyHeights();
            m_worker = Worker::RAISE_AREA;
            m_workPoints = pointsOf(panel.x0, panel.z0, right, far);
        }
        if (m_worker == Worker::RAISE_AREA) {
            for (const Point& p : m_workPoints) {
                writeHeight(p, std::int64_t{copiedHeight(p)} - amount, true);
            }
        }
        return;
    }
    const std::set<Point> brush = brushPoints();
    if (panel.first && !brush.empty()) {
        recordArea(x, z, x + blockSize() - 1, z + blockSize() - 1);
        copyHeights();
        m_worker = Worker::RAISE_BRUSH;
        m_workOrigin = {x, z};
        m_nWorkSize = blockSize();
    }
    if (m_worker != Worker::RAISE_BRUSH) {
        return;
    }
    for (const auto& [bx, bz] : brush) {
        const std::int64_t dx = bx - x;
        const std::int64_t dz = bz - z;
        const Point p(m_workOrigin.first + dx, m_workOrigin.second + dz);
        const auto inGrid = [this](std::int64_t c) { return c >= 0 && c <= map->getGridDim(); };
        if (dx < m_nWorkSize && dz < m_nWorkSize && inGrid(p.first) && inGrid(p.second)) {
            writeHeight(p, std::int64_t{copiedHeight(p)} - amount, true);
        }
    }
}

void CReferenceEditor::magnet(int amount) {
    if (panel.first) {
        const std::int64_t x = panel.x;
        const std::int64_t z = panel.z;
        const std::int64_t r = panel.strength;
        recordArea(x - r, z - r, x + r + 1, z + r + 1);
        copyHeights();
        m_worker = Worker::MAGNET;
        m_workPoints = pointsOf(x - r, z - r, x + r + 1, z + r + 1);
        m_workOrigin = {x, z};
        m_nWorkSize = r;
    }
    if (m_worker != Worker::MAGNET) {
        return;
    }
    for (const Point& p : m_workPoints) {
        const double dx = static_cast<double>(p.first - m_workOrigin.first) - 0.5;
        const double dz = static_cast<double>(p.second - m_workOrigin.second) - 0.5;
        const double f =
            std::min(1.0, std::sqrt(dx * dx + dz * dz) / (static_cast<double>(m_nWorkSize) + 0.5));
        const double pi = 3.1415927F;
        const double w = amount * ((1.0 + std::cos(pi * f)) * 0.5);
        writeHeight(p, copiedHeight(p) - static_cast<std::int64_t>(w), true);
    }
}

void CReferenceEditor::flatten() {
    const std::int64_t x = panel.x;
    const std::int64_t z = panel.z;
    recordArea(x, z, x + 1, z + 1);
    const int level = (heightAt(x, z) + heightAt(x + 1, z) + heightAt(x, z + 1) + heightAt(x + 1, z + 1)) / 4;
    for (const Point& p : pointsOf(x, z, x + 1, z + 1)) {
        writeHeight(p, level, true);
    }
}

void CReferenceEditor::setHeights() {
    std::int64_t x0 = panel.x;
    std::int64_t z0 = panel.z;
    std::int64_t x1 = x0 + 1;
    std::int64_t z1 = z0 + 1;
    if (panel.selected) {
        x0 = panel.x0;
        z0 = panel.z0;
        x1 = panel.x1 + std::int64_t{1};
        z1 = panel.z1 + std::int64_t{1};
    } else if (panel.brush == 4) {
        --x0, --z0, ++x1, ++z1;
    } else if (panel.brush != 2) {
        return;
    }
    recordArea(x0, z0, x1, z1);
    for (const Point& p : pointsOf(x0, z0, x1, z1)) {
        writeHeight(p, panel.height, true);
    }
}

void CReferenceEditor::smooth() {
    const std::int64_t x = panel.x;
    const std::int64_t z = panel.z;
    if (panel.x == panel.lastX && panel.z == panel.lastZ) {
        return;
    }
    recordArea(x, z, x + 1, z + 1);
    const std::vector<int> kept = std::exchange(m_copy, {}); // a raise may be under way
    copyHeights();
    const auto clamped = [this](std::int64_t c) {
        return std::min<std::int64_t>(std::max<std::int64_t>(c, 0), map->getGridDim());
    };
    for (const Point& corner : pointsOf(x, z, x + 1, z + 1)) {
        int sum = 0;
        for (int i = -1; i <= 1; ++i) {
            for (int j = -1; j <= 1; ++j) {
                sum += copiedHeight({clamped(corner.first + i), clamped(corner.second + j)});
            }
        }
        const std::int64_t h = copiedHeight(corner);
        writeHeight(corner, h + ((sum / 9 - h) * panel.strength) / 10, false);
    }
    m_copy = kept;
}

void CReferenceEditor::roughen() {
    const std::int64_t x = panel.x;
    const std::int64_t z = panel.z;
    recordArea(x, z, x + 1, z + 1);
    const float s = static_cast<float>(panel.strength);
    const Point corners[] = {{x, z}, {x + 1, z}, {x, z + 1}, {x + 1, z + 1}};
    std::vector<std::int64_t> heights;
    for (const auto& [cx, cz] : corners) {
        heights.push_back(heightAt(cx, cz) + static_cast<std::int64_t>(m_roughen.get(-s, s)));
    }
    for (std::size_t i = 0; i < heights.size(); ++i) {
        writeHeight(corners[i], heights[i], true);
    }
}

void CReferenceEditor::tintPoints() {
    const std::int64_t x = panel.x;
    const std::int64_t z = panel.z;
    std::vector<Point> points;
    if (panel.selected) {
        points = pointsOf(panel.x0, panel.z0, panel.x1 + std::int64_t{1}, panel.z1 + std::int64_t{1});
        recordArea(panel.x0, panel.z0, panel.x1 + std::int64_t{1}, panel.z1 + std::int64_t{1});
    } else {
        const std::set<Point> brush = brushPoints();
        points.assign(brush.begin(), brush.end());
        if (brush.size() == 1) {
            recordArea(points[0].first, points[0].second, points[0].first, points[0].second);
        } else if (!brush.empty()) {
            recordArea(x, z, x + blockSize() - 1, z + blockSize() - 1);
        }
    }
    const qxCColour target(tint.r, tint.g, tint.b, 255);
    const float t = std::min(1.0F, std::max(0.0F, static_cast<float>(panel.strength) * 0.01F));
    const int water = static_cast<int>(map->waterLevel / map->heightScale);
    for (const auto& [px, pz] : points) {
        const int cx = held(px);
        const int cz = held(pz);
        if (!map->getPointWater(cx, cz) || map->getPointHeight(cx, cz) > water) {
            map->setPointColour(0, cx, cz, interpolate(map->getPointColour(0, cx, cz), target, t));
        }
    }
}

void CReferenceEditor::paintPoints() {
    const std::int64_t x = panel.x;
    const std::int64_t z = panel.z;
    const float w = std::min(1.0F, std::max(0.0F, static_cast<float>(panel.strength) * 0.1F));
    if (panel.selected) {
        recordArea(panel.x0, panel.z0, panel.x1 + std::int64_t{1}, panel.z1 + std::int64_t{1});
        for (const auto& [px, pz] :
             pointsOf(panel.x0, panel.z0, panel.x1 + std::int64_t{1}, panel.z1 + std::int64_t{1})) {
            map->paintMultiTexture(static_cast<int>(px), static_cast<int>(pz), w);
        }
        return;
    }
    const std::set<Point> brush = brushPoints();
    if (brush.size() == 1) {
        recordArea(brush.begin()->first, brush.begin()->second, brush.begin()->first, brush.begin()->second);
    } else if (!brush.empty()) {
        recordArea(x, z, x + blockSize() - 1, z + blockSize() - 1);
    }
    for (const auto& [px, pz] : brush) {
        const std::int64_t fromCentre = std::abs(px - x - 1) + std::abs(pz - z - 1);
        const bool half = (panel.brush == 3 && fromCentre == 1) || (panel.brush == 4 && fromCentre == 2);
        map->paintMultiTexture(held(px), held(pz), half ? w * 0.5F : w);
    }
}

// --- detail tools
// -------------------------------------------------------------------------------------------

void CReferenceEditor::updateDetails(int px, int pz, int amount) {
    if (isAnyOf(panel.tool, {0, 2, 3, 4, 5, 6})) {
        dragDetail(px, pz, amount);
        return;
    }
    if (!panel.first || panel.detail == nullptr) {
        return;
    }
    if (panel.tool == 1) {
        map->removeDetail(panel.detail);
        panel.detail = nullptr;
        m_dragged.record = nullptr;
    } else if (panel.tool == 7) {
        const qxCMapDetailRecord was = *panel.detail;
        panel.detail->point0 = was.point1;
        panel.detail->point1 = was.point0;
        panel.detail->point2 = was.point1 + (was.point2 - was.point0);
    }
}

void CReferenceEditor::dragDetail(int px, int pz, int amount) {
    panel.x = px;
    panel.z = pz;
    if (panel.first) {
        m_dragged.record = panel.detail;
        if (panel.detail != nullptr) {
            m_dragged = {
                panel.detail, panel.detail->point0, panel.detail->point1, panel.detail->point2, px, pz};
        }
    }
    qxCMapDetailRecord* const detail = m_dragged.record;
    if (detail == nullptr) {
        return;
    }
    qxCMatrix4d change;
    const qxCVector3d middle = (m_dragged.p1 + m_dragged.p2) * 0.5F;
    if (panel.tool == 3) {
        change.rotationY(static_cast<float>(amount));
    } else if (panel.tool == 4) {
        const float s = 1.0F - static_cast<float>(amount) * 0.04F;
        const float atLeast = s < 0.1F ? 0.1F : s;
        change.scaling({atLeast, atLeast, atLeast});
    } else {
        const qxCVector3d offset(static_cast<float>(static_cast<double>(px) - m_dragged.x), 0.0F,
                                 static_cast<float>(static_cast<double>(pz) - m_dragged.z));
        detail->point0 = m_dragged.p0 + offset;
        detail->point1 = m_dragged.p1 + offset;
        detail->point2 = m_dragged.p2 + offset;
        return;
    }
    qxCMatrix4d there;
    there.translation(middle);
    qxCMatrix4d back;
    back.translation(-middle);
    const qxCMatrix4d whole = there * (change * back);
    detail->point0 = whole * m_dragged.p0;
    detail->point1 = whole * m_dragged.p1;
    detail->point2 = whole * m_dragged.p2;
}
