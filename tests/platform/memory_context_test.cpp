#include "platform/framework.h"

#include <gtest/gtest.h>

TEST(MemoryContext, DrawsIntoItsBitmapAndBlitsFromIt) {
    constexpr COLORREF BLUE = RGB(0, 0, 255);
    CDC from;
    CDC to;
    CBitmap picture;
    CBitmap copy;
    ASSERT_TRUE(from.CreateCompatibleDC(nullptr) && to.CreateCompatibleDC(&from));
    EXPECT_FALSE(picture.CreateCompatibleBitmap(&from, 0, 4));
    ASSERT_TRUE(picture.CreateCompatibleBitmap(&from, 4, 4) && copy.CreateCompatibleBitmap(&from, 4, 4));
    from.SelectObject(&picture);
    to.SelectObject(&copy);
    from.FillSolidRect(1, 1, 2, 2, BLUE);
    ASSERT_TRUE(to.BitBlt(2, 2, 2, 2, &from, 1, 1, SRCCOPY));
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(from.GetPixel(i, i), i == 1 || i == 2 ? BLUE : RGB(0, 0, 0)) << i;
        EXPECT_EQ(to.GetPixel(i, i), i >= 2 ? BLUE : RGB(0, 0, 0)) << i;
    }
}
