#include "sandbox/view/chunk_mesh.h"

#include "sandbox/view/gl_functions.h"

namespace {

constexpr int CELLS = CChunkGrid::CHUNK_CELLS;
constexpr int POINTS = CELLS + 1;
constexpr int SIDES = 4;

struct MeshVertex {
    std::uint8_t column = 0;
    std::uint8_t row = 0;
    std::uint8_t side = 0; // 0 ground, 1 to 4 the skirt of that side
    std::uint8_t hem = 0;  // 1 on the lower border of a skirt
};

struct ChunkInstance {
    float x = 0.0F;
    float z = 0.0F;
    float skirt = 0.0F;
};

/// Point `step` of a side: 1 runs along the first row, 2 the last column, 3 the last row, 4 the first column.
MeshVertex sidePoint(int side, int step, int hem) {
    const auto at = static_cast<std::uint8_t>(step);
    const auto mark = static_cast<std::uint8_t>(side);
    const auto low = static_cast<std::uint8_t>(hem);
    constexpr auto LAST = static_cast<std::uint8_t>(CELLS);
    switch (side) {
    case 1:
        return {at, 0, mark, low};
    case 2:
        return {LAST, at, mark, low};
    case 3:
        return {at, LAST, mark, low};
    default:
        return {0, at, mark, low};
    }
}

std::vector<MeshVertex> meshVertices() {
    std::vector<MeshVertex> vertices;
    for (int row = 0; row < POINTS; ++row) {
        for (int column = 0; column < POINTS; ++column) {
            vertices.push_back({static_cast<std::uint8_t>(column), static_cast<std::uint8_t>(row), 0, 0});
        }
    }
    for (int side = 1; side <= SIDES; ++side) {
        for (int step = 0; step < POINTS; ++step) {
            vertices.push_back(sidePoint(side, step, 0));
            vertices.push_back(sidePoint(side, step, 1));
        }
    }
    return vertices;
}

void addLevel(std::vector<std::uint16_t>& indices, int step) {
    const auto add = [&](int a, int b, int c) {
        for (const int index : {a, b, c}) {
            indices.push_back(static_cast<std::uint16_t>(index));
        }
    };
    for (int row = 0; row < CELLS; row += step) {
        for (int column = 0; column < CELLS; column += step) {
            const int low = row * POINTS + column;
            const int high = low + step * POINTS + step;
            add(low, low + step, high);
            add(low, high, low + step * POINTS);
        }
    }
    for (int side = 0; side < SIDES; ++side) {
        const int first = POINTS * POINTS + side * POINTS * 2;
        for (int at = 0; at < CELLS; at += step) {
            const int here = first + at * 2;
            const int next = here + step * 2;
            add(here, next, here + 1);
            add(next, next + 1, here + 1);
        }
    }
}

const void* bufferOffset(std::size_t bytes) {
    return reinterpret_cast<const void*>(bytes);
}

} // namespace

void CChunkMesh::create() {
    m_arrays.create();
    const QOpenGLVertexArrayObject::Binder bound(&m_arrays);
    const std::vector<MeshVertex> vertices = meshVertices();
    m_vertices.create();
    m_vertices.bind();
    m_vertices.allocate(vertices.data(), static_cast<int>(vertices.size() * sizeof(MeshVertex)));
    QOpenGLFunctions_3_3_Core* gl = glFunctions();
    gl->glEnableVertexAttribArray(0);
    gl->glVertexAttribIPointer(0, 4, GL_UNSIGNED_BYTE, sizeof(MeshVertex), nullptr);

    std::vector<std::uint16_t> indices;
    for (int level = 0; level < CChunkGrid::LEVELS; ++level) {
        const auto first = static_cast<int>(indices.size());
        addLevel(indices, 1 << level);
        m_levels[static_cast<std::size_t>(level)] = {first, static_cast<int>(indices.size()) - first};
    }
    m_indices.create();
    m_indices.bind();
    m_indices.allocate(indices.data(), static_cast<int>(indices.size() * sizeof(std::uint16_t)));

    m_chunks.create();
    m_chunks.setUsagePattern(QOpenGLBuffer::StreamDraw);
    gl->glEnableVertexAttribArray(1);
    gl->glVertexAttribDivisor(1, 1);
}

void CChunkMesh::destroy() {
    m_vertices.destroy();
    m_indices.destroy();
    m_chunks.destroy();
    m_arrays.destroy();
}

void CChunkMesh::draw(const std::vector<CChunkGrid::Visible>& chunks) {
    std::array<std::vector<ChunkInstance>, CChunkGrid::LEVELS> byLevel;
    for (const CChunkGrid::Visible& chunk : chunks) {
        byLevel[static_cast<std::size_t>(chunk.level)].push_back(
            {static_cast<float>(chunk.x), static_cast<float>(chunk.z), chunk.skirt});
    }
    const QOpenGLVertexArrayObject::Binder bound(&m_arrays);
    QOpenGLFunctions_3_3_Core* gl = glFunctions();
    m_nTriangles = 0;
    for (std::size_t i = 0; i < byLevel.size(); ++i) {
        if (byLevel[i].empty()) {
            continue;
        }
        const auto count = static_cast<int>(byLevel[i].size());
        m_chunks.bind();
        m_chunks.allocate(byLevel[i].data(), count * static_cast<int>(sizeof(ChunkInstance)));
        gl->glVertexAttribPointer(1, 3, GL_FLOAT, GL_FALSE, sizeof(ChunkInstance), nullptr);
        const Level& level = m_levels[i];
        gl->glDrawElementsInstanced(
            GL_TRIANGLES, level.indexCount, GL_UNSIGNED_SHORT,
            bufferOffset(static_cast<std::size_t>(level.firstIndex) * sizeof(std::uint16_t)), count);
        m_nTriangles += level.indexCount / 3 * count;
    }
}
