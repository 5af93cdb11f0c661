#include "engine/qx_colour.h"
#include "engine/qx_matrix4d.h"
#include "engine/qx_name.h"
#include "engine/qx_random.h"
#include "engine/qx_texture.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

void expectNear(const qxCVector3d& actual, const qxCVector3d& expected) {
    EXPECT_NEAR(actual.x, expected.x, 1e-4F);
    EXPECT_NEAR(actual.y, expected.y, 1e-4F);
    EXPECT_NEAR(actual.z, expected.z, 1e-4F);
}

TEST(Colour, LiesInMemoryAsBlueGreenRedAlpha) {
    const qxCColour colour(1, 2, 3, 4);
    unsigned char bytes[4];
    std::memcpy(bytes, &colour, 4);
    EXPECT_EQ(std::vector<int>(bytes, bytes + 4), (std::vector<int>{3, 2, 1, 4}));
}

TEST(Colour, InterpolateMeetsBothEndsAndNeverStalls) {
    const qxCColour dark(0, 17, 200, 255);
    const qxCColour light(255, 18, 3, 0);
    EXPECT_EQ(interpolate(dark, light, 0.0F), dark);
    EXPECT_EQ(interpolate(dark, light, 1.0F), light);
    EXPECT_EQ(interpolate(qxCColour(0, 100, 50, 0), qxCColour(100, 0, 50, 10), 0.5F),
              qxCColour(50, 50, 50, 5));
    qxCColour colour = dark;
    for (int i = 0; i < 1000; ++i) {
        colour = interpolate(colour, light, 0.01F);
    }
    EXPECT_EQ(colour, light);
}

TEST(Colour, TintMultipliesTheColourAndKeepsItsAlpha) {
    const qxCColour colour(200, 100, 51, 77);
    EXPECT_EQ(tint(colour, qxCColour(255, 255, 255, 0)), colour);
    EXPECT_EQ(tint(colour, qxCColour(0, 0, 0, 255)), qxCColour(0, 0, 0, 77));
    EXPECT_EQ(tint(colour, qxCColour(255, 51, 5, 255)), qxCColour(200, 20, 1, 77));
}

TEST(Matrix, TransformsPointsAsNamed) {
    qxCMatrix4d matrix;
    const qxCVector3d point(1, 2, 3);
    expectNear(matrix * point, point);
    matrix.translation({10, 20, 30});
    expectNear(matrix * point, {11, 22, 33});
    matrix.scaling({2, 3, 4});
    expectNear(matrix * point, {2, 6, 12});
    matrix.rotationY(90.0F);
    expectNear(matrix * qxCVector3d(0, 5, 1), {1, 5, 0});
    expectNear(matrix * qxCVector3d(1, 5, 0), {0, 5, -1});
    matrix.rotationY(-30.0F);
    expectNear(matrix * qxCVector3d(0, 0, 2), {-1, 0, 1.7320508F});
}

TEST(Matrix, TheRightFactorOfAProductIsAppliedFirst) {
    qxCMatrix4d move;
    qxCMatrix4d grow;
    move.translation({1, 0, 0});
    grow.scaling({3, 3, 3});
    expectNear((move * grow) * qxCVector3d(2, 0, 0), {7, 0, 0});
    expectNear((grow * move) * qxCVector3d(2, 0, 0), {9, 0, 0});
}

TEST(Matrix, TurningAboutACentreLeavesTheCentre) {
    const qxCVector3d centre(12.5F, 3, -7.5F);
    qxCMatrix4d there;
    qxCMatrix4d turn;
    qxCMatrix4d back;
    there.translation(centre);
    turn.rotationY(123.0F);
    back.translation(-centre);
    const qxCMatrix4d about = there * (turn * back);
    expectNear(about * centre, centre);
    turn.rotationY(0.0F);
    EXPECT_EQ((there * (turn * back)) * qxCVector3d(1, 2, 3), qxCVector3d(1, 2, 3));
}

TEST(Random, IsTheStandardMersenneTwister) {
    qxCRandom random;
    for (int i = 1; i < 10000; ++i) {
        random.get(1.0F);
    }
    // The standard gives 4123659995 as the 10000th output of the generator's default seed.
    EXPECT_NEAR(random.get(16777215.0F), 4123659995U >> 8U, 1.0);
}

TEST(Random, SeedsDecideTheSequenceAndRangesHold) {
    qxCRandom a;
    qxCRandom b;
    a.setSeed(-345);
    b.get(1.0F);
    b.setSeed(-345);
    float least = 0.0F;
    float most = 0.0F;
    for (int i = 0; i < 5000; ++i) {
        const float value = a.get(-2.0F, 6.0F);
        ASSERT_EQ(value, b.get(-2.0F, 6.0F)) << i;
        least = std::min(least, value);
        most = std::max(most, value);
    }
    EXPECT_GE(least, -2.0F);
    EXPECT_LT(least, -1.9F);
    EXPECT_LE(most, 6.0F);
    EXPECT_GT(most, 5.9F);
    a.setSeed(345);
    b.setSeed(346);
    EXPECT_NE(a.get(1.0F), b.get(1.0F));
}

TEST(Name, OwnsItsTextAndNeverGivesNull) {
    EXPECT_STREQ(qxCName().getString(), "");
    EXPECT_STREQ(qxCName(nullptr).getString(), "");
    char text[] = "rock";
    qxCName name(text);
    text[0] = 'R';
    qxCName copy;
    copy = name;
    name.setString(name.getString() + 1);
    EXPECT_STREQ(name.getString(), "ock");
    EXPECT_STREQ(copy.getString(), "rock");
    name.setString(nullptr);
    EXPECT_STREQ(name.getString(), "");
}

TEST(Texture, StartsAsTheLargestSizeWithoutAFile) {
    qxCTexture texture;
    EXPECT_STREQ(texture.getFilename(), "");
    EXPECT_EQ(texture.getSize(), qxTextureSize256);
    EXPECT_EQ(texture.getPixelFormat(), qxPixelFormatAuto);
    texture.setFilename("a.tga");
    texture.setFilename(nullptr);
    EXPECT_STREQ(texture.getFilename(), "");
}

} // namespace
