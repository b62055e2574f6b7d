#include "graphics/WindowSize.h"

#include "DisplayTest.h"
#include "platform/Vorlik.h"

#include <SDL.h>
#include <cstdlib>

using vorlik::Vorlik;
using vorlik::windowSize;

namespace {
using WindowSizeTest = DisplayTest;
} // namespace

TEST(WindowSizeWithoutWindow, IsZeroByZero)
{
    // A fresh process, since the window of another test in this one would stay open.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            const vorlik::WindowSize size = windowSize();
            std::exit(size.width == 0 && size.height == 0 ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "");
}

TEST_F(WindowSizeTest, IsTheSizeThePlatformOpenedTheWindowAt)
{
    const vorlik::WindowSize size = windowSize();
    EXPECT_EQ(size.width, 1280);
    EXPECT_EQ(size.height, 720);
    EXPECT_EQ(static_cast<uint32_t>(size.width), Vorlik::getWidth());
    EXPECT_EQ(static_cast<uint32_t>(size.height), Vorlik::getHeight());
}
