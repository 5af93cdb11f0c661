#include "sandbox/core/cursor_shape.h"
#include "sandbox/core/detail_mesh.h"
#include "sandbox/core/height_field.h"
#include "sandbox/core/view_camera.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

namespace {

using Vector = CViewCamera::Vector;

double distanceBetween(const Vector& a, const Vector& b) {
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

/// Picking and drawing must agree: a point on the ray through a place of the view is drawn at that place.
TEST(ViewCamera, RaysGoThroughThePlacesWherePointsAreDrawn) {
    for (const double yaw : {0.0, 0.7, -2.4, 3.0}) {
        for (const double pitch : {-1.4, -0.3, 0.5}) {
            CViewCamera camera;
            camera.lookFrom({10.0, 20.0, 30.0}, {10.0, 20.0, 10.0});
            camera.look(yaw, pitch);
            const QMatrix4x4 matrix = camera.viewProjection(1.6);
            for (const auto& [x, y] : {std::pair{0.0, 0.0}, {0.9, -0.8}, {-0.5, 0.95}}) {
                const Ray ray = camera.ray(x, y, 1.6);
                const QVector3D drawn =
                    matrix.map(QVector3D(static_cast<float>(ray.origin[0] + ray.direction[0] * 25.0),
                                         static_cast<float>(ray.origin[1] + ray.direction[1] * 25.0),
                                         static_cast<float>(ray.origin[2] + ray.direction[2] * 25.0)));
                EXPECT_NEAR(drawn.x(), x, 1e-4) << yaw << ", " << pitch;
                EXPECT_NEAR(drawn.y(), y, 1e-4) << yaw << ", " << pitch;
            }
        }
    }
}

TEST(ViewCamera, OrbitingKeepsThePivotAndLookingThePlace) {
    CViewCamera camera;
    camera.frameMap(256.0, 10.0);
    const Vector pivot = camera.pivot();
    const double distance = camera.pivotDistance();
    const Vector start = camera.eye();
    for (int i = 0; i < 50; ++i) {
        camera.orbit(0.13, -0.07);
    }
    EXPECT_LT(distanceBetween(camera.pivot(), pivot), 1e-6);
    EXPECT_NEAR(distanceBetween(camera.eye(), pivot), distance, 1e-6);
    EXPECT_GT(distanceBetween(camera.eye(), start), 1.0);
    camera.approach(0.5);
    EXPECT_LT(distanceBetween(camera.pivot(), pivot), 1e-6);
    const Vector eye = camera.eye();
    EXPECT_NEAR(distanceBetween(eye, pivot), distance / 2.0, 1e-6);
    camera.look(1.0, 40.0);
    EXPECT_EQ(camera.eye(), eye);
    EXPECT_LT(camera.forward()[1], 1.0) << "never over the top";
    EXPECT_GT(camera.up()[1], 0.0);
}

TEST(ViewCamera, AFramedMapIsSeenWhole) {
    for (const double width : {2.0, 64.0, 320.0, 8192.0}) {
        CViewCamera camera;
        camera.frameMap(width, 0.0);
        const QMatrix4x4 matrix = camera.viewProjection(1.5);
        for (const auto& [x, z] : {std::pair{0.0, 0.0}, {1.0, 0.0}, {0.0, 1.0}, {1.0, 1.0}}) {
            const QVector4D corner =
                matrix * QVector4D(static_cast<float>(x * width), 0.0F, static_cast<float>(z * width), 1.0F);
            EXPECT_LE(std::abs(corner.x()), corner.w()) << width;
            EXPECT_LE(std::abs(corner.y()), corner.w()) << width;
            EXPECT_LE(std::abs(corner.z()), corner.w()) << width;
        }
    }
}

/// The four quarters of the plus brush, each drawn in its cell, close one ring through the plus's outer
/// points.
TEST(CursorShape, QuartersOfThePlusCloseARing) {
    struct Piece {
        int kind, cellX, cellZ;
    };
    std::multiset<std::pair<double, double>> ends;
    for (const Piece& piece : {Piece{13, 0, 0}, Piece{14, 1, 0}, Piece{12, 0, 1}, Piece{11, 1, 1}}) {
        for (const CursorShape::Line& line : cursorShape(piece.kind).lines) {
            ends.insert({line.from.u + piece.cellX, line.from.v + piece.cellZ});
            ends.insert({line.to.u + piece.cellX, line.to.v + piece.cellZ});
        }
    }
    const std::multiset<std::pair<double, double>> outerPointsTwice{{1, 0}, {1, 0}, {0, 1}, {0, 1},
                                                                    {2, 1}, {2, 1}, {1, 2}, {1, 2}};
    EXPECT_EQ(ends, outerPointsTwice);
    for (int kind = 0; kind < 16; ++kind) {
        EXPECT_FALSE(cursorShape(kind).lines.empty()) << kind;
    }
    EXPECT_TRUE(cursorShape(16).lines.empty());
    EXPECT_TRUE(cursorShape(-1).lines.empty());
}

/// A point detail of half size 0.5 and scalar 2 is a cell wide and two high, and faces whoever looks; a quad
/// follows the ground between its corners and its lift.
TEST(DetailMesh, DetailsStandAndLieOnTheGround) {
    const std::vector<std::uint16_t> heights{0, 10, 20, 0, 10, 20, 0, 10, 20}; // rises along x
    const HeightField field{2, 0.5, heights.data()};
    qxCMapDetailRecord detail;
    detail.point0 = {0.5F, 0.25F, 0.5F};
    detail.point1 = {1.5F, 0.25F, 0.5F};
    detail.point2 = {0.5F, 0.25F, 1.5F};
    detail.highlighted = 1;
    for (const DetailVertex& vertex : detailMesh(field, detail, {1, 0, 0})) {
        EXPECT_FLOAT_EQ(vertex.place[1], vertex.place[0] * 5.0F + 0.25F);
        EXPECT_EQ(vertex.highlight, 1.0F);
    }
    detail.type = qxDetailTypePoint;
    detail.scalar = 2.0F;
    float widest = 0.0F;
    float highest = 0.0F;
    for (const DetailVertex& vertex : detailMesh(field, detail, {0, 0, 1})) {
        EXPECT_FLOAT_EQ(vertex.place[0], 1.0F) << "it faces along x";
        widest = std::max(widest, std::abs(vertex.place[2] - 1.0F));
        highest = std::max(highest, vertex.place[1]);
    }
    EXPECT_FLOAT_EQ(widest, 0.5F);
    EXPECT_FLOAT_EQ(highest, 5.0F + 0.25F + 2.0F);
    detail.point1.x = std::nanf("");
    EXPECT_TRUE(detailMesh(field, detail, {1, 0, 0}).empty());
}

TEST(HeightField, GroundBetweenPointsFoldsAlongTheDrawnDiagonal) {
    const std::vector<std::uint16_t> heights{0, 10, 20, 0}; // (0, 0), (1, 0), (0, 1), (1, 1)
    const HeightField field{1, 0.5, heights.data()};
    EXPECT_DOUBLE_EQ(groundHeight(field, 0.5, 0.5), 0.0);   // on the fold
    EXPECT_DOUBLE_EQ(groundHeight(field, 0.75, 0.25), 2.5); // half way from the fold to (1, 0)
    EXPECT_DOUBLE_EQ(groundHeight(field, 0.25, 0.75), 5.0);
    EXPECT_DOUBLE_EQ(groundHeight(field, -3.0, 7.0), 10.0); // beside the map: its nearest point
}

} // namespace
