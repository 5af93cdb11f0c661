#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

/// One grid point as it was before a tool changed it.
struct MapUndoRecord {
    std::uint32_t colour = 0; ///< raw value of the stored colour, layer 0
    std::uint16_t x = 0;
    std::uint16_t z = 0;
    std::uint16_t height = 0;    ///< low 16 bits of the stored height
    std::uint16_t blend = 0;     ///< low 16 bits of the stored blend, layer 1
    std::uint8_t groupStart = 0; ///< 1 on the first record of a stroke
};
static_assert(sizeof(MapUndoRecord) == 16);

/// The map editor's history, oldest record to newest; a full one drops its oldest. Every operation but
/// clear() takes constant time. A ring: the memory grows with the history up to the full capacity, as
/// separate records would cost four times the time of the strokes that fill it.
class CMapUndoList {
public:
    /// Most records kept.
    static constexpr int CAPACITY = 100'000;

    /// Append a copy of `record`; a full history drops its oldest record first.
    void push(const MapUndoRecord& record) { append() = record; }

    /// Append a record for the caller to fill in, as push() does. It holds what stood in its place. Filling
    /// it where it stays takes half the time of copying one that was just put together field by field.
    MapUndoRecord& append() {
        if (m_nCount == FULL_SIZE) {
            const std::size_t oldest =
                m_nHead; // the newest stands where the oldest was: the ring turns by one
            m_nHead = oldest + 1 == FULL_SIZE ? 0 : oldest + 1;
            return m_ring[oldest];
        }
        if (m_nCount == m_ring.size()) {
            grow();
        }
        std::size_t end = m_nHead + m_nCount;
        if (end >= m_ring.size()) {
            end -= m_ring.size();
        }
        ++m_nCount;
        return m_ring[end];
    }

    /// Take the newest record off. Only for a history that is not empty.
    MapUndoRecord pop() {
        --m_nCount;
        std::size_t end = m_nHead + m_nCount;
        if (end >= m_ring.size()) {
            end -= m_ring.size();
        }
        return m_ring[end];
    }

    /// The newest records as far as they stand together in memory, oldest of them first; empty only for an
    /// empty history. Valid until the history changes.
    std::span<const MapUndoRecord> getNewestRun() const {
        const std::size_t end = m_nHead + m_nCount;
        return end <= m_ring.size() ? std::span(m_ring).subspan(m_nHead, m_nCount)
                                    : std::span(m_ring).first(end - m_ring.size());
    }
    /// Take the newest `count` records off, as that many pops do; at most as many as there are.
    void dropNewest(std::size_t count) { m_nCount -= count; }

    bool isEmpty() const { return m_nCount == 0; }
    int getCount() const { return static_cast<int>(m_nCount); }

    /// Used share of the capacity, 0.0 to 100.0.
    double fillPercent() const;

    /// Drop every record and give the memory back.
    void clear();

private:
    static constexpr std::size_t FULL_SIZE = CAPACITY;

    void grow();

    std::vector<MapUndoRecord> m_ring;
    std::size_t m_nHead = 0; // the oldest record
    std::size_t m_nCount = 0;
};

/// The one history of the module: it outlives the panel.
extern CMapUndoList g_mapUndoList;
