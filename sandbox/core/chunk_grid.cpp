#include "sandbox/core/chunk_grid.h"

#include <algorithm>
#include <cmath>

namespace {

/// Ground of one level of detail: every step-th point, and the map's last row and column, which close the
/// last cells early where the grid is not a whole number of steps.
class CCoarseGround {
public:
    CCoarseGround(const HeightField& field, int step) : m_field(field), m_nStep(step) {}

    double height(int x, int z) const {
        const auto [x0, x1] = cellOf(x);
        const auto [z0, z1] = cellOf(z);
        const double u = fraction(x, x0, x1);
        const double v = fraction(z, z0, z1);
        const double low = m_field.height(x0, z0);
        const double high = m_field.height(x1, z1);
        if (u >= v) {
            const double side = m_field.height(x1, z0);
            return low + (side - low) * u + (high - side) * v;
        }
        const double side = m_field.height(x0, z1);
        return low + (high - side) * u + (side - low) * v;
    }

private:
    std::array<int, 2> cellOf(int position) const {
        const int start = position / m_nStep * m_nStep;
        return {start, std::min(start + m_nStep, m_field.gridDim)};
    }
    static double fraction(int position, int start, int end) {
        return end > start ? static_cast<double>(position - start) / (end - start) : 0.0;
    }

    const HeightField& m_field;
    int m_nStep;
};

int chunkOf(int position, int chunksPerSide) {
    return std::clamp(position / CChunkGrid::CHUNK_CELLS, 0, chunksPerSide - 1);
}

} // namespace

void CChunkGrid::rebuild(const HeightField& field) {
    m_nGridDim = field.gridDim;
    m_fHeightScale = field.heightScale;
    m_nChunksPerSide = (field.gridDim + CHUNK_CELLS - 1) / CHUNK_CELLS;
    m_chunks.assign(static_cast<std::size_t>(m_nChunksPerSide) * static_cast<std::size_t>(m_nChunksPerSide),
                    Chunk{});
    update(field, {0, 0, field.gridDim, field.gridDim});
}

int CChunkGrid::update(const HeightField& field, const GridRect& changed) {
    if (changed.isEmpty()) {
        return 0;
    }
    m_fHeightScale = field.heightScale;
    // A point on the border belongs to the chunks on both sides of it, hence the minus one.
    const int firstX = chunkOf(changed.x0 - 1, m_nChunksPerSide);
    const int firstZ = chunkOf(changed.z0 - 1, m_nChunksPerSide);
    const int lastX = chunkOf(changed.x1, m_nChunksPerSide);
    const int lastZ = chunkOf(changed.z1, m_nChunksPerSide);
    for (int chunkZ = firstZ; chunkZ <= lastZ; ++chunkZ) {
        for (int chunkX = firstX; chunkX <= lastX; ++chunkX) {
            measure(field, chunkX, chunkZ);
        }
    }
    return (lastX - firstX + 1) * (lastZ - firstZ + 1);
}

void CChunkGrid::measure(const HeightField& field, int chunkX, int chunkZ) {
    const int x0 = chunkX * CHUNK_CELLS;
    const int z0 = chunkZ * CHUNK_CELLS;
    const int x1 = std::min(x0 + CHUNK_CELLS, field.gridDim);
    const int z1 = std::min(z0 + CHUNK_CELLS, field.gridDim);
    Chunk chunk;
    chunk.low = chunk.high = field.height(x0, z0);
    for (int z = z0; z <= z1; ++z) {
        const auto [low, high] = std::minmax_element(
            &field.heights[0] + static_cast<std::ptrdiff_t>(z) * (field.gridDim + 1) + x0,
            &field.heights[0] + static_cast<std::ptrdiff_t>(z) * (field.gridDim + 1) + x1 + 1);
        chunk.low = std::min<int>(chunk.low, *low);
        chunk.high = std::max<int>(chunk.high, *high);
    }
    for (int level = 1; level < LEVELS && chunk.high > chunk.low; ++level) {
        const CCoarseGround ground(field, 1 << level);
        double worst = chunk.errors[static_cast<std::size_t>(level) - 1];
        for (int z = z0; z <= z1; ++z) {
            for (int x = x0; x <= x1; ++x) {
                worst = std::max(worst, std::abs(ground.height(x, z) - field.height(x, z)));
            }
        }
        chunk.errors[static_cast<std::size_t>(level)] = static_cast<int>(std::ceil(worst));
    }
    m_chunks[static_cast<std::size_t>(chunkZ * m_nChunksPerSide + chunkX)] = chunk;
}

std::vector<CChunkGrid::Visible> CChunkGrid::select(const CViewCamera& camera, double aspect, int viewHeight,
                                                    double tolerance) const {
    const CFrustum frustum = camera.frustum(aspect);
    const double errorPerDistance = tolerance * 2.0 * camera.tanHalfFov() / std::max(viewHeight, 1);
    std::vector<Visible> visible;
    for (int chunkZ = 0; chunkZ < m_nChunksPerSide; ++chunkZ) {
        for (int chunkX = 0; chunkX < m_nChunksPerSide; ++chunkX) {
            const Chunk& chunk = m_chunks[static_cast<std::size_t>(chunkZ * m_nChunksPerSide + chunkX)];
            const double x0 = chunkX * CHUNK_CELLS;
            const double z0 = chunkZ * CHUNK_CELLS;
            const std::array<double, 3> low{x0, chunk.low * m_fHeightScale, z0};
            const std::array<double, 3> high{std::min<double>(x0 + CHUNK_CELLS, m_nGridDim),
                                             chunk.high * m_fHeightScale,
                                             std::min<double>(z0 + CHUNK_CELLS, m_nGridDim)};
            if (frustum.mayContain(low, high)) {
                visible.push_back(choose(camera, chunkX, chunkZ, errorPerDistance));
            }
        }
    }
    return visible;
}

CChunkGrid::Visible CChunkGrid::choose(const CViewCamera& camera, int chunkX, int chunkZ,
                                       double errorPerDistance) const {
    const Chunk& chunk = m_chunks[static_cast<std::size_t>(chunkZ * m_nChunksPerSide + chunkX)];
    const std::array<double, 3> eye = camera.eye();
    const auto reach = [](double position, double low, double high) {
        return std::array<double, 2>{std::max({low - position, 0.0, position - high}),
                                     std::max(std::abs(position - low), std::abs(position - high))};
    };
    const double x0 = chunkX * CHUNK_CELLS;
    const double z0 = chunkZ * CHUNK_CELLS;
    const auto alongX = reach(eye[0], x0, x0 + CHUNK_CELLS);
    const auto alongY = reach(eye[1], chunk.low * m_fHeightScale, chunk.high * m_fHeightScale);
    const auto alongZ = reach(eye[2], z0, z0 + CHUNK_CELLS);
    const double nearest = std::hypot(alongX[0], alongY[0], alongZ[0]);
    const double farthest = std::hypot(alongX[1], alongY[1], alongZ[1]);
    Visible visible{chunkX * CHUNK_CELLS, chunkZ * CHUNK_CELLS, 0, 0.0F};
    while (visible.level + 1 < LEVELS &&
           chunk.errors[static_cast<std::size_t>(visible.level) + 1] * m_fHeightScale <=
               errorPerDistance * nearest) {
        ++visible.level;
    }
    // A neighbour shares a border that is at most `farthest` away, so its own error there is at most this.
    const double own = chunk.errors[static_cast<std::size_t>(visible.level)] * m_fHeightScale;
    visible.skirt = static_cast<float>(own + errorPerDistance * farthest + m_fHeightScale);
    return visible;
}

std::array<int, 2> CChunkGrid::heightRange() const {
    std::array<int, 2> range{0, 0};
    if (!m_chunks.empty()) {
        range = {m_chunks.front().low, m_chunks.front().high};
    }
    for (const Chunk& chunk : m_chunks) {
        range = {std::min(range[0], chunk.low), std::max(range[1], chunk.high)};
    }
    return range;
}

int CChunkGrid::error(int chunkX, int chunkZ, int level) const {
    return m_chunks[static_cast<std::size_t>(chunkZ * m_nChunksPerSide + chunkX)]
        .errors[static_cast<std::size_t>(level)];
}
