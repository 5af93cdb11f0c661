#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"
#include "engine/qx_texture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr float INFINITE = std::numeric_limits<float>::infinity();

class MapContent : public testing::Test {
protected:
    qxCMapDetailRecord* addQuad(float x, float z, float size = 1.0F) {
        return m_map.addDetail(qxDetailTypeQuad, nullptr, {x, 0, z}, {x + size, 0, z}, {x, 0, z + size},
                               1.0F);
    }

    CMemoryScene m_scene;
    CMemoryMap m_map{16, &m_scene};
};

TEST_F(MapContent, TheCurrentDefinitionAlwaysExists) {
    struct {
        int current, removed, after;
    } const cases[] = {{0, 0, 0}, {0, 2, 0}, {1, 0, 0}, {1, 1, 1}, {2, 0, 1}, {2, 2, 1}};
    for (const auto& c : cases) {
        CMemoryMap map(4, nullptr);
        for (int i = 0; i < 3; ++i) {
            map.addMultiTexture();
        }
        map.setCurrentMultiTexture(c.current);
        map.setCurrentMultiTexture(3);
        map.setCurrentMultiTexture(-1);
        ASSERT_EQ(map.getCurrentMultiTexture(), c.current);
        map.removeMultiTexture(c.removed);
        EXPECT_EQ(map.getCurrentMultiTexture(), c.after) << c.current << " with " << c.removed << " removed";
        for (const int index : {-1, 2}) {
            map.removeMultiTexture(index);
            EXPECT_EQ(map.getMultiTexture(index), nullptr);
        }
        EXPECT_EQ(map.getNumMultiTextures(), 2);
    }
}

TEST_F(MapContent, EditCursorsOfSixteenKindsAreKept) {
    for (const int kind : {0, 15, 16, -1}) {
        m_map.addEditCursor(2, 3, kind);
    }
    EXPECT_EQ(m_map.getEditCursors().size(), 2U);
}

TEST_F(MapContent, ADetailIsFoundInTheCellsItsFootprintCovers) {
    qxCMapDetailRecord* quad = addQuad(3, 4);
    qxCMapDetailRecord* point =
        m_map.addDetail(qxDetailTypePoint, nullptr, {8.5F, 0, 9.5F}, 0.5F, 0.25F, 2.0F);
    ASSERT_NE(quad, nullptr);
    ASSERT_NE(point, nullptr);
    struct {
        float x, z;
        const qxCMapDetailRecord* found;
    } const cases[] = {{3, 4, quad},    {3.9F, 4.9F, quad}, {2, 4, nullptr},        {4, 4, nullptr},
                       {3, 3, nullptr}, {3, 5, nullptr},    {8, 9, point},          {9, 9, nullptr},
                       {8, 8, nullptr}, {-1, -1, nullptr},  {INFINITE, 4, nullptr}, {NAN, NAN, nullptr}};
    for (const auto& c : cases) {
        EXPECT_EQ(m_map.findDetail(c.x, c.z), c.found) << c.x << ", " << c.z;
    }
    EXPECT_EQ(point->point0, qxCVector3d(8, 0.25F, 9));
    EXPECT_EQ(point->point1, qxCVector3d(9, 0.25F, 9));
    EXPECT_EQ(point->point2, qxCVector3d(8, 0.25F, 10));
    EXPECT_EQ(point->scalar, 2.0F);
}

TEST_F(MapContent, FootprintsMayLieAnyWay) {
    qxCMapDetailRecord* detail = addQuad(0, 0);
    struct {
        const char* what;
        qxCVector3d p0, p1, p2;
        float inX, inZ, outX, outZ;
    } const cases[] = {
        {"mirrored", {8, 0, 4}, {4, 0, 4}, {8, 0, 8}, 4, 7, 8, 7},
        {"turned by 45 degrees", {6, 0, 2}, {10, 0, 6}, {2, 0, 6}, 5, 8, 3, 3},
        {"sheared", {2, 0, 2}, {6, 0, 2}, {8, 0, 6}, 10, 5, 2, 5},
        {"tiny", {7.49F, 0, 7.49F}, {7.51F, 0, 7.49F}, {7.49F, 0, 7.51F}, 7, 7, 8, 7},
        {"tiny, off the middle", {7.1F, 0, 7.1F}, {7.2F, 0, 7.1F}, {7.1F, 0, 7.2F}, 7, 7, 6, 7},
        {"flat", {5, 0, 5}, {5, 0, 5}, {5, 0, 5}, 5, 5, 4, 5},
    };
    for (const auto& c : cases) {
        detail->point0 = c.p0;
        detail->point1 = c.p1;
        detail->point2 = c.p2;
        EXPECT_EQ(m_map.findDetail(c.inX, c.inZ), detail) << c.what;
        EXPECT_EQ(m_map.findDetail(c.outX, c.outZ), nullptr) << c.what;
    }
}

TEST_F(MapContent, OfSeveralDetailsTheNearestAndThenTheNewestIsFound) {
    qxCMapDetailRecord* meadow = addQuad(0, 0, 16);
    qxCMapDetailRecord* rock = addQuad(3, 3);
    EXPECT_EQ(m_map.findDetail(3, 3), rock);
    EXPECT_EQ(m_map.findDetail(12, 3), meadow);
    qxCMapDetailRecord* moss = addQuad(3, 3);
    EXPECT_EQ(m_map.findDetail(3, 3), moss);
    m_map.removeDetail(moss);
    EXPECT_EQ(m_map.findDetail(3, 3), rock);
    const std::uint64_t count = m_map.getChangeCount(MapChange::DETAILS);
    qxCMapDetailRecord stranger;
    m_map.removeDetail(&stranger);
    m_map.removeDetail(nullptr);
    EXPECT_EQ(m_map.getDetails().size(), 2);
    EXPECT_EQ(m_map.getChangeCount(MapChange::DETAILS), count);
}

TEST_F(MapContent, DetailsWithoutASensibleFootprintAreRefused) {
    const qxCVector3d good(1, 0, 1);
    for (const qxCVector3d& bad :
         {qxCVector3d(INFINITE, 0, 0), qxCVector3d(0, NAN, 0), qxCVector3d(0, 0, -INFINITE)}) {
        EXPECT_EQ(m_map.addDetail(qxDetailTypeQuad, nullptr, bad, good, good, 1.0F), nullptr);
        EXPECT_EQ(m_map.addDetail(qxDetailTypeQuad, nullptr, good, bad, good, 1.0F), nullptr);
        EXPECT_EQ(m_map.addDetail(qxDetailTypeQuad, nullptr, good, good, bad, 1.0F), nullptr);
    }
    EXPECT_EQ(m_map.addDetail(qxDetailTypeQuad, nullptr, good, good, good, NAN), nullptr);
    for (const float halfSize : {0.0F, -1.0F, INFINITE, NAN}) {
        EXPECT_EQ(m_map.addDetail(qxDetailTypePoint, nullptr, {1, 0, 1}, halfSize, 0.0F, 1.0F), nullptr);
    }
    EXPECT_EQ(m_map.getDetails().size(), 0);
    EXPECT_EQ(m_map.getChangeCount(MapChange::DETAILS), 0U);
}

} // namespace
