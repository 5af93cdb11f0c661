#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

/// One attribute of every point of a square grid in one array, rows along x. Owned by the map.
template <class T> class CPointLayer {
public:
    CPointLayer(int side, const T& value)
        : m_nSide(static_cast<unsigned>(side)), m_values(std::size_t{m_nSide} * m_nSide, value) {}

    bool contains(int x, int z) const {
        return static_cast<unsigned>(x) < m_nSide && static_cast<unsigned>(z) < m_nSide;
    }

    /// Only for points that the layer contains.
    T& at(int x, int z) { return m_values[index(x, z)]; }
    const T& at(int x, int z) const { return m_values[index(x, z)]; }

    /// The value of the point, or of the edge point nearest to it.
    const T& nearest(int x, int z) const {
        if (contains(x, z)) {
            [[likely]] return at(x, z);
        }
        const int last = static_cast<int>(m_nSide) - 1;
        return at(std::clamp(x, 0, last), std::clamp(z, 0, last));
    }

    /// All values, element z * side + x.
    std::span<T> values() { return m_values; }
    std::span<const T> values() const { return m_values; }

private:
    std::size_t index(int x, int z) const {
        return std::size_t{static_cast<unsigned>(z)} * m_nSide + static_cast<unsigned>(x);
    }

    unsigned m_nSide;
    std::vector<T> m_values;
};
