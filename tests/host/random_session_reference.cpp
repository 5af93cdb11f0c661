#include "host/random_session_reference.h"

#include <algorithm>
#include <utility>

void CReferenceEditor::open(CMemoryMap& newMap) {
    map = &newMap;
    panel = ReferencePanel();
    m_worker = Worker::NONE;
    m_dragged.record = nullptr;
    m_bHasRecorded = false;
    m_pAdded = nullptr;
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

void CReferenceEditor::close() {
    m_saved = {true, map, panel.tool, panel.brush, panel.strength, panel.height};
    destroy();
}

void CReferenceEditor::destroy() {
    isOpen = false;
}

void CReferenceEditor::destroySettings() {
    m_saved.valid = false;
    history.clear();
}

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

std::vector<CReferenceEditor::Point> CReferenceEditor::recordArea(std::int64_t x0, std::int64_t z0,
                                                                  std::int64_t x1, std::int64_t z1) {
    std::vector<Point> points = pointsOf(x0, z0, x1, z1);
    for (const auto& [px, pz] : points) {
        const int x = static_cast<int>(px);
        const int z = static_cast<int>(pz);
        history.push_back({!m_bHasRecorded, x, z, map->getPointHeightQ(x, z), map->getPointColourQ(0, x, z),
                           map->getPointBlendQ(1, x, z)});
        m_bHasRecorded = true;
        if (history.size() > HISTORY_CAPACITY) {
            history.pop_front();
        }
    }
    return points;
}

std::vector<CReferenceEditor::Point> CReferenceEditor::recordWork() {
    if (panel.selected) {
        return recordArea(panel.x0, panel.z0, panel.x1 + std::int64_t{1}, panel.z1 + std::int64_t{1});
    }
    const std::set<Point> brush = brushPoints();
    if (!brush.empty()) {
        const auto [x, z] = brush.size() == 1 ? *brush.begin() : Point(panel.x, panel.z);
        const std::int64_t more = brush.size() == 1 ? 0 : blockSize() - 1;
        recordArea(x, z, x + more, z + more);
    }
    return {brush.begin(), brush.end()};
}

void CReferenceEditor::undo() {
    m_bHasRecorded = false;
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

void CReferenceEditor::clickTab() {
    panel.isDetailsTab = !panel.isDetailsTab;
    std::swap(panel.tool, panel.otherTool);
}

void CReferenceEditor::hover(int px, int pz, int edge, int corner) {
    cursor(px, pz, edge, corner, false);
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

void CReferenceEditor::start(int px, int pz, int edge, int corner) {
    panel.x = px;
    panel.z = pz;
    panel.edge = edge;
    panel.corner = corner;
    panel.lastX = panel.lastZ = -1;
    panel.first = true;
    m_worker = Worker::NONE;
    m_bHasRecorded = false;
    m_pAdded = nullptr;
    if (!panel.isDetailsTab) {
        if (panel.tool == 0) {
            dropSelection();
            panel.x0 = px;
            panel.z0 = pz;
            return;
        }
        update(px, pz, 0);
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
        update(px, pz, 0);
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
    m_pAdded = created;
    update(panel.x, panel.z, 0);
}

void CReferenceEditor::update(int px, int pz, int amount) {
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

void CReferenceEditor::stop() {
    if (!panel.isDetailsTab) {
        if (panel.tool == 0) {
            const ReferencePanel was = panel;
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
