#include "engine/qx_colour.h"
#include "engine/qx_random.h"

#include <gtest/gtest.h>

#include <bit>
#include <random>

namespace {

TEST(Colour, RowsAreTheSameColoursPixelByPixel) {
    EXPECT_EQ(interpolate({0, 100, 50, 0}, {100, 0, 50, 10}, 0.5F), qxCColour(50, 50, 50, 5));
    EXPECT_EQ(tint({200, 100, 51, 77}, {255, 51, 5, 255}), qxCColour(200, 20, 1, 77));
    constexpr std::size_t COUNT = 4099; // not a number that vectors divide
    std::mt19937 random(7);
    std::vector<qxCColour> from(COUNT), to(COUNT), out(COUNT);
    std::vector<float> t(COUNT);
    for (std::size_t i = 0; i < COUNT; ++i) {
        from[i] = std::bit_cast<qxCColour>(static_cast<std::uint32_t>(random()));
        to[i] = std::bit_cast<qxCColour>(static_cast<std::uint32_t>(random()));
        t[i] = static_cast<float>(random() % 1001) / 1000.0F;
    }
    const qxColourRows& rows = qxGetColourRows();
    const auto expectRow = [&](const auto& expected) {
        for (std::size_t i = 0; i < COUNT; ++i) {
            ASSERT_EQ(out[i], expected(i)) << i;
        }
    };
    rows.interpolate(from, to, t, out);
    expectRow([&](std::size_t i) { return interpolate(from[i], to[i], t[i]); });
    rows.ramp(from[0], to[0], t, out);
    expectRow([&](std::size_t i) { return interpolate(from[0], to[0], t[i]); });
    rows.tint(from, to, out);
    expectRow([&](std::size_t i) { return tint(from[i], to[i]); });
}

TEST(Random, IsTheStandardMersenneTwisterFromItsSeed) {
    qxCRandom random;
    for (int i = 1; i < 10000; ++i) {
        random.get(1.0F);
    }
    // The standard gives 4123659995 as the 10000th output of the generator's default seed.
    EXPECT_NEAR(random.get(16777215.0F), 4123659995U >> 8U, 1.0);
    qxCRandom again;
    random.setSeed(-345);
    again.setSeed(-345);
    float least = 0.0F;
    float most = 0.0F;
    for (int i = 0; i < 5000; ++i) {
        const float value = random.get(-2.0F, 6.0F);
        ASSERT_EQ(value, again.get(-2.0F, 6.0F)) << i;
        least = std::min(least, value);
        most = std::max(most, value);
    }
    EXPECT_TRUE(least >= -2.0F && least < -1.9F && most <= 6.0F && most > 5.9F) << least << ' ' << most;
}

} // namespace
