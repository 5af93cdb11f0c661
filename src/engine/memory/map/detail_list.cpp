#include "engine/memory/map/detail_list.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <iterator>
#include <limits>

namespace {

bool isFinite(const qxCVector3d& v) {
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

qxCVector3d middleOf(const qxCMapDetailRecord& detail) {
    return (detail.point1 + detail.point2) * 0.5F;
}

bool covers(const qxCMapDetailRecord& detail, float x, float z) {
    const qxCVector3d side = detail.point1 - detail.point0;
    const qxCVector3d depth = detail.point2 - detail.point0;
    const float area = side.x * depth.z - side.z * depth.x;
    if (area == 0.0F) {
        return false;
    }
    const float px = x - detail.point0.x;
    const float pz = z - detail.point0.z;
    const float along = (px * depth.z - pz * depth.x) / area;
    const float across = (side.x * pz - side.z * px) / area;
    return along >= 0.0F && along <= 1.0F && across >= 0.0F && across <= 1.0F;
}

} // namespace

CDetailList::CDetailList() = default;

CDetailList::~CDetailList() = default;

qxCMapDetailRecord* CDetailList::add(qxDetailType type, qxCTexture* texture, const qxCVector3d& p0,
                                     const qxCVector3d& p1, const qxCVector3d& p2, float scalar) {
    if (!isFinite(p0) || !isFinite(p1) || !isFinite(p2) || !std::isfinite(scalar)) {
        return nullptr;
    }
    auto record = std::make_unique<qxCMapDetailRecord>();
    record->texture = texture;
    record->point0 = p0;
    record->point1 = p1;
    record->point2 = p2;
    record->scalar = scalar;
    record->type = type;
    m_records.push_back(std::move(record));
    return m_records.back().get();
}

qxCMapDetailRecord* CDetailList::add(qxDetailType type, qxCTexture* texture, const qxCVector3d& position,
                                     float halfSize, float elevation, float scalar) {
    if (!(halfSize > 0.0F)) {
        return nullptr;
    }
    const qxCVector3d base = position + qxCVector3d(0.0F, elevation, 0.0F);
    return add(type, texture, base + qxCVector3d(-halfSize, 0.0F, -halfSize),
               base + qxCVector3d(halfSize, 0.0F, -halfSize), base + qxCVector3d(-halfSize, 0.0F, halfSize),
               scalar);
}

bool CDetailList::remove(const qxCMapDetailRecord* detail) {
    return std::erase_if(m_records, [detail](const auto& record) { return record.get() == detail; }) > 0;
}

void CDetailList::replace(int first, int count, std::span<const qxCMapDetailRecord> records) {
    const auto begin = m_records.begin() + first;
    const std::ptrdiff_t both = std::min(static_cast<std::ptrdiff_t>(records.size()), std::ptrdiff_t{count});
    for (std::ptrdiff_t i = 0; i < both; ++i) {
        *begin[i] = records[static_cast<std::size_t>(i)];
    }
    if (both < count) {
        std::move(begin + both, begin + count, std::back_inserter(m_retired));
        m_records.erase(begin + both, begin + count);
    }
    std::vector<std::unique_ptr<qxCMapDetailRecord>> more;
    for (const qxCMapDetailRecord& record : records.subspan(static_cast<std::size_t>(both))) {
        more.push_back(std::make_unique<qxCMapDetailRecord>(record));
    }
    m_records.insert(m_records.begin() + first + both, std::make_move_iterator(more.begin()),
                     std::make_move_iterator(more.end()));
}

qxCMapDetailRecord* CDetailList::find(float x, float z) const {
    const float cellX = std::floor(x);
    const float cellZ = std::floor(z);
    qxCMapDetailRecord* nearest = nullptr;
    float nearestDistance = std::numeric_limits<float>::infinity();
    for (const auto& record : m_records) {
        const qxCVector3d middle = middleOf(*record);
        const bool standsInCell = std::floor(middle.x) == cellX && std::floor(middle.z) == cellZ;
        if (!standsInCell && !covers(*record, cellX + 0.5F, cellZ + 0.5F)) {
            continue;
        }
        const float distance = std::hypot(middle.x - cellX - 0.5F, middle.z - cellZ - 0.5F);
        if (distance <= nearestDistance) {
            nearest = record.get();
            nearestDistance = distance;
        }
    }
    return nearest;
}
