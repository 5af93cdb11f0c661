#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>

/// The points x0 to x1 by z0 to z1 of a map, both ends included; empty when x1 < x0.
struct GridRect {
    int x0 = std::numeric_limits<int>::max();
    int z0 = std::numeric_limits<int>::max();
    int x1 = std::numeric_limits<int>::min();
    int z1 = std::numeric_limits<int>::min();

    bool isEmpty() const { return x1 < x0; }

    void grow(int x, int z) {
        x0 = std::min(x0, x);
        z0 = std::min(z0, z);
        x1 = std::max(x1, x);
        z1 = std::max(z1, z);
    }

    friend bool operator==(const GridRect&, const GridRect&) = default;
};

/// The points of one kind that changed since somebody last took them, and how many changes there ever were.
/// Part of a map; kept so small that it may be told of every single write.
class CGridRegion {
public:
    void add(int x, int z) {
        ++m_nChanges;
        // Nearly every write falls into what is dirty already.
        if (x < m_rect.x0 || x > m_rect.x1 || z < m_rect.z0 || z > m_rect.z1) {
            [[unlikely]] m_rect.grow(x, z);
        }
    }

    /// The smallest rectangle around the changes since the last call; it is empty afterwards.
    GridRect take() {
        const GridRect taken = m_rect;
        m_rect = GridRect();
        return taken;
    }

    std::uint64_t getChangeCount() const { return m_nChanges; }

private:
    GridRect m_rect;
    std::uint64_t m_nChanges = 0;
};
