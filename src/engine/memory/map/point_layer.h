#pragma once

#include "engine/memory/map/grid_region.h"
#include "engine/memory/map/kept_points.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

/// One attribute of every point of a square grid in one array, rows along x. Owned by the map.
template <class T> class CPointLayer {
public:
    /// Of these values, element z * side + x; all `value` when there are none.
    CPointLayer(int side, const T& value, std::vector<T> values = {})
        : m_nSide(static_cast<unsigned>(side))
        , m_nTilesAside((m_nSide + TILE - 1) / TILE)
        , m_values(std::move(values))
        , m_toKeep(std::size_t{m_nTilesAside} * m_nTilesAside, 0) {
        m_values.resize(std::size_t{m_nSide} * m_nSide, value);
    }

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

    /// Before a point changes: if the layer keeps what was, the tile around it is copied the first time.
    void keep(int x, int z) {
        const std::size_t tile = tileOf(x, z);
        if (m_toKeep[tile] != 0) {
            [[unlikely]] copyTile(tile);
        }
    }

    /// From now on keep what was.
    void startKeeping() {
        std::ranges::fill(m_toKeep, std::uint8_t{1});
        m_kept.clear();
    }

    /// The tiles that differ from what they were at the last call, as they were then.
    std::vector<PointTile<T>> takeKept() {
        std::vector<PointTile<T>> taken = std::exchange(m_kept, {});
        m_kept.reserve(std::min(taken.size(), MANY_TILES)); // the next step may well be like this one
        for (const PointTile<T>& tile : taken) {
            m_toKeep[tileOf(tile.x, tile.z)] = 1;
        }
        std::erase_if(taken, [this](const PointTile<T>& tile) { return isAsKept(tile); });
        return taken;
    }

    /// Exchange the values with those of the tiles; that is no change to keep.
    void exchange(std::vector<PointTile<T>>& tiles, CGridRegion& changes) {
        for (PointTile<T>& tile : tiles) {
            const int rows = rowsOf(tile);
            for (int row = 0; row < rows; ++row) {
                std::swap_ranges(tileRow(tile, row), tileRow(tile, row) + tile.width,
                                 &at(tile.x, tile.z + row));
            }
            changes.add(tile.x, tile.z);
            changes.add(tile.x + tile.width - 1, tile.z + rows - 1);
        }
    }

    /// All values, element z * side + x.
    std::span<T> values() { return m_values; }
    std::span<const T> values() const { return m_values; }

private:
    static constexpr unsigned TILE = 16; // points aside
    static constexpr std::size_t MANY_TILES = 256;

    std::size_t tileOf(int x, int z) const {
        return std::size_t{static_cast<unsigned>(z) / TILE} * m_nTilesAside + static_cast<unsigned>(x) / TILE;
    }
    static int rowsOf(const PointTile<T>& tile) { return static_cast<int>(tile.values.size()) / tile.width; }
    static auto tileRow(auto& tile, int row) {
        return tile.values.begin() + static_cast<std::ptrdiff_t>(row) * tile.width;
    }

    // Apart, so that what is called before every write stays small.
    [[gnu::noinline]] void copyTile(std::size_t number) {
        m_toKeep[number] = 0;
        const auto x = static_cast<int>(number % m_nTilesAside * TILE);
        const auto z = static_cast<int>(number / m_nTilesAside * TILE);
        const int width = std::min(static_cast<int>(TILE), static_cast<int>(m_nSide) - x);
        const int rows = std::min(static_cast<int>(TILE), static_cast<int>(m_nSide) - z);
        PointTile<T>& tile = m_kept.emplace_back(PointTile<T>{x, z, width, {}});
        tile.values.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(rows));
        for (int row = 0; row < rows; ++row) {
            std::copy_n(&at(x, z + row), width, tileRow(tile, row));
        }
    }

    bool isAsKept(const PointTile<T>& tile) const {
        for (int row = 0; row < rowsOf(tile); ++row) {
            if (!std::equal(tileRow(tile, row), tileRow(tile, row) + tile.width, &at(tile.x, tile.z + row))) {
                return false;
            }
        }
        return true;
    }

    std::size_t index(int x, int z) const {
        return std::size_t{static_cast<unsigned>(z)} * m_nSide + static_cast<unsigned>(x);
    }

    unsigned m_nSide;
    unsigned m_nTilesAside;
    std::vector<T> m_values;
    std::vector<std::uint8_t> m_toKeep; // for each tile: it is to be copied before it changes
    std::vector<PointTile<T>> m_kept;
};
