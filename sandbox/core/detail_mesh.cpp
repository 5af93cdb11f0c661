#include "sandbox/core/detail_mesh.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int MOST_PIECES = 32; // along one side of a quad

bool isFinite(const qxCVector3d& point) {
    return std::isfinite(point.x) && std::isfinite(point.y) && std::isfinite(point.z);
}

double lengthOf(const qxCVector3d& way) {
    return std::hypot(way.x, way.z);
}

int piecesFor(const qxCVector3d& side) {
    return static_cast<int>(std::clamp(std::ceil(lengthOf(side) * 2.0), 1.0, double{MOST_PIECES}));
}

/// Add the four corners a, b, c, d of a piece, in the order around it, as two triangles.
void addPiece(std::vector<DetailVertex>& mesh, const std::array<DetailVertex, 4>& corners) {
    for (const std::size_t corner : {0U, 1U, 2U, 0U, 2U, 3U}) {
        mesh.push_back(corners[corner]);
    }
}

std::vector<DetailVertex> drapedQuad(const HeightField& field, const qxCMapDetailRecord& detail) {
    const qxCVector3d sideU = detail.point1 - detail.point0;
    const qxCVector3d sideV = detail.point2 - detail.point0;
    const int piecesU = piecesFor(sideU);
    const int piecesV = piecesFor(sideV);
    const auto vertexAt = [&](int pieceU, int pieceV) {
        const float u = static_cast<float>(pieceU) / static_cast<float>(piecesU);
        const float v = static_cast<float>(pieceV) / static_cast<float>(piecesV);
        const qxCVector3d place = detail.point0 + sideU * u + sideV * v;
        const auto height = static_cast<float>(groundHeight(field, place.x, place.z));
        return DetailVertex{
            {place.x, height + place.y, place.z}, {u, v}, detail.highlighted != 0 ? 1.0F : 0.0F};
    };
    std::vector<DetailVertex> mesh;
    for (int v = 0; v < piecesV; ++v) {
        for (int u = 0; u < piecesU; ++u) {
            addPiece(mesh, {vertexAt(u, v), vertexAt(u + 1, v), vertexAt(u + 1, v + 1), vertexAt(u, v + 1)});
        }
    }
    return mesh;
}

std::vector<DetailVertex> uprightPoint(const HeightField& field, const qxCMapDetailRecord& detail,
                                       const std::array<double, 3>& right) {
    const qxCVector3d middle = (detail.point1 + detail.point2) * 0.5F;
    const double width = lengthOf(detail.point1 - detail.point0);
    const double height = width * std::max(static_cast<double>(detail.scalar), 0.0);
    const double foot = groundHeight(field, middle.x, middle.z) + static_cast<double>(middle.y);
    const auto vertexAt = [&](float u, float v) {
        const double sideways = (static_cast<double>(u) - 0.5) * width;
        return DetailVertex{{static_cast<float>(middle.x + right[0] * sideways),
                             static_cast<float>(foot + (1.0 - static_cast<double>(v)) * height),
                             static_cast<float>(middle.z + right[2] * sideways)},
                            {u, v},
                            detail.highlighted != 0 ? 1.0F : 0.0F};
    };
    std::vector<DetailVertex> mesh;
    addPiece(mesh, {vertexAt(0.0F, 0.0F), vertexAt(1.0F, 0.0F), vertexAt(1.0F, 1.0F), vertexAt(0.0F, 1.0F)});
    return mesh;
}

} // namespace

std::vector<DetailVertex> detailMesh(const HeightField& field, const qxCMapDetailRecord& detail,
                                     const std::array<double, 3>& right) {
    if (!isFinite(detail.point0) || !isFinite(detail.point1) || !isFinite(detail.point2) ||
        !std::isfinite(detail.scalar)) {
        return {};
    }
    return detail.type == qxDetailTypePoint ? uprightPoint(field, detail, right) : drapedQuad(field, detail);
}
