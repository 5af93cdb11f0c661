#pragma once

#include "engine/memory/map/grid_region.h"
#include "sandbox/core/height_field.h"
#include "sandbox/core/view_camera.h"

#include <array>
#include <vector>

/// The terrain cut into square chunks, each drawn at a level of detail of its own: level n keeps every 2^n-th
/// point. Keeps for each chunk the range of its heights and how far each level strays from the true ground,
/// so that a chunk is drawn as coarsely as the eye allows and no coarser. Owned by the renderer of one map.
class CChunkGrid {
public:
    static constexpr int CHUNK_CELLS = 64;
    static constexpr int LEVELS = 7; // 2^6 = CHUNK_CELLS: the coarsest level is two triangles

    /// One chunk to draw.
    struct Visible {
        int x = 0;     ///< first point
        int z = 0;     ///< first point
        int level = 0; ///< 0 to LEVELS - 1
        float skirt =
            0.0F; ///< world units the skirt hangs down to cover the gap to a neighbour's other level
    };

    /// Measure every chunk of the field.
    void rebuild(const HeightField& field);
    /// Measure again the chunks that own or border the points of `changed`; returns how many those were.
    int update(const HeightField& field, const GridRect& changed);
    /// The chunks that the camera sees, each at the coarsest level whose error stays below `tolerance` pixels
    /// in a view `viewHeight` pixels high.
    std::vector<Visible> select(const CViewCamera& camera, double aspect, int viewHeight,
                                double tolerance) const;

    int chunkCount() const { return static_cast<int>(m_chunks.size()); }
    /// Lowest and highest height unit on the map.
    std::array<int, 2> heightRange() const;
    /// Largest distance in height units between the ground and what the level draws of it.
    int error(int chunkX, int chunkZ, int level) const;

private:
    struct Chunk {
        int low = 0;
        int high = 0;
        std::array<int, LEVELS> errors{}; // height units, rising with the level
    };

    void measure(const HeightField& field, int chunkX, int chunkZ);
    Visible choose(const CViewCamera& camera, int chunkX, int chunkZ, double errorPerDistance) const;

    std::vector<Chunk> m_chunks; // row by row
    int m_nChunksPerSide = 0;
    int m_nGridDim = 0;
    double m_fHeightScale = 1.0;
};
