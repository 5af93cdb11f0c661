#include "host/random_session_reference.h"

#include "engine/qx_matrix4d.h"

#include <algorithm>
#include <cmath>
#include <utility>

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
        return;
    case 1:
        return raise(amount);
    case 2:
        return flatten();
    case 3:
        return setHeights();
    case 4:
        return readHeight();
    case 5:
        return tintPoints();
    case 6:
        return smooth();
    case 7:
        return map->addWater(panel.x, panel.z);
    case 8:
        return map->removeWater(panel.x, panel.z);
    case 9:
        return paintPoints();
    case 10:
        panel.gradient = map->getGradient(panel.x, panel.z);
        return;
    case 11:
        return magnet(amount);
    default:
        return roughen();
    }
}

void CReferenceEditor::readHeight() {
    if (panel.corner >= 0 && panel.corner <= 3) {
        const std::int64_t dx = panel.corner == 1 || panel.corner == 2 ? 1 : 0;
        const std::int64_t dz = panel.corner == 2 || panel.corner == 3 ? 1 : 0;
        panel.height = heightAt(panel.x + dx, panel.z + dz);
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
            m_workPoints = recordWork();
            copyHeights();
            m_worker = Worker::RAISE_AREA;
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
        m_workPoints = recordArea(x - r, z - r, x + r + 1, z + r + 1);
        copyHeights();
        m_worker = Worker::MAGNET;
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
    const std::vector<Point> corners = recordArea(x, z, x + 1, z + 1);
    const int level = (heightAt(x, z) + heightAt(x + 1, z) + heightAt(x, z + 1) + heightAt(x + 1, z + 1)) / 4;
    for (const Point& p : corners) {
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
    for (const Point& p : recordArea(x0, z0, x1, z1)) {
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
    const std::vector<Point> points = recordWork();
    const qxCColour target = panel.toolTint;
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
    const float w = std::min(1.0F, std::max(0.0F, static_cast<float>(panel.strength) * 0.1F));
    for (const auto& [px, pz] : recordWork()) {
        const std::int64_t fromCentre = std::abs(px - panel.x - 1) + std::abs(pz - panel.z - 1);
        const bool half = !panel.selected &&
                          ((panel.brush == 3 && fromCentre == 1) || (panel.brush == 4 && fromCentre == 2));
        map->paintMultiTexture(held(px), held(pz), half ? w * 0.5F : w);
    }
}

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
        qxCMapDetailRecord* const taken = isAnyOf(panel.tool, {0, 5, 6}) ? m_pAdded : panel.detail;
        m_dragged.record = taken;
        if (taken != nullptr) {
            m_dragged = {taken, taken->point0, taken->point1, taken->point2, px, pz};
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
