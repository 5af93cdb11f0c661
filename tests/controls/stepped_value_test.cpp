#include "controls/stepped_value.h"

#include <gtest/gtest.h>

#include <cmath>

TEST(SteppedValue, LandsOnItsGrid) {
    struct {
        float from, step, to;
    } const steps[] = {
        {0.27F, TENTH_STEP, 0.4F},   {0.27F, -TENTH_STEP, 0.2F}, {0.25F, TENTH_STEP, 0.3F},
        {0.25F, -TENTH_STEP, 0.1F},  {-0.04F, TENTH_STEP, 0.1F}, {0.06F, -TENTH_STEP, 0.0F},
        {1e9F, TENTH_STEP, 1e9F},    {12.5F, WHOLE_STEP, 14.0F}, {-0.5F, WHOLE_STEP, 1.0F},
        {-0.5F, -WHOLE_STEP, -2.0F}, {-1.25F, WHOLE_STEP, 0.0F},
    };
    for (const auto& each : steps) {
        const float stepped = steppedValue(each.from, each.step);
        EXPECT_FLOAT_EQ(stepped, each.to) << each.from << " by " << each.step;
        EXPECT_FALSE(stepped == 0.0F && std::signbit(stepped)) << each.from << " by " << each.step;
    }
}
