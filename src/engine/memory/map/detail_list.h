#pragma once

#include "engine/qx_api.h"
#include "engine/qx_map_records.h"

#include <memory>
#include <span>
#include <vector>

/// The details of one map, in the order they were added. Owns the records; a record stays where it is until
/// it is removed.
///
/// Each detail has a footprint on the ground: the parallelogram of point0, point1, point2 and
/// point1 + point2 - point0, in map units. A quad lies in it. A point detail stands upright over its middle
/// as wide as its side, `scalar` times as high as wide, and turns towards the viewer.
class QX_API CDetailList {
public:
    CDetailList();
    ~CDetailList();
    CDetailList(const CDetailList&) = delete;
    CDetailList& operator=(const CDetailList&) = delete;

    /// Null when a coordinate or the scalar is not finite. `texture` may be null.
    qxCMapDetailRecord* add(qxDetailType type, qxCTexture* texture, const qxCVector3d& p0,
                            const qxCVector3d& p1, const qxCVector3d& p2, float scalar);

    /// A square footprint around `position`: `halfSize` from the middle to each side in map units,
    /// `elevation` above the position. Null when a value is not finite or halfSize not positive.
    qxCMapDetailRecord* add(qxDetailType type, qxCTexture* texture, const qxCVector3d& position,
                            float halfSize, float elevation, float scalar);

    /// False, with nothing done, when the list has no such record.
    bool remove(const qxCMapDetailRecord* detail);

    /// Put `records` in the place of `count` details from `first` on, all within the list. Records that go
    /// are kept in memory as long as the list.
    void replace(int first, int count, std::span<const qxCMapDetailRecord> records);

    /// The detail whose footprint covers the middle of the cell that (x, z) lies in, or whose own middle lies
    /// in that cell, however small it is. Of several, the one whose middle is nearest to the cell's middle,
    /// and of equally near ones the newest. Null when there is none.
    qxCMapDetailRecord* find(float x, float z) const;

    int size() const { return static_cast<int>(m_records.size()); }
    /// By index, 0 to size() - 1.
    const qxCMapDetailRecord& operator[](int index) const {
        return *m_records[static_cast<std::size_t>(index)];
    }
    qxCMapDetailRecord& operator[](int index) { return *m_records[static_cast<std::size_t>(index)]; }

private:
    std::vector<std::unique_ptr<qxCMapDetailRecord>> m_records;
    std::vector<std::unique_ptr<qxCMapDetailRecord>> m_retired;
};
