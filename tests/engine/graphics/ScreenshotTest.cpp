#include "graphics/Screenshot.h"

#include "DisplayTest.h"
#include "PixelProbe.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <SDL.h>
#include <cstdio>
#include <string>

namespace {
class ScreenshotTest : public DisplayTest {
protected:
    void SetUp() override
    {
        DisplayTest::SetUp();
        if (IsSkipped()) return;
        pixelprobe::resetWindow(kWidth, kHeight);
    }

    // Shows a frame whose top half is red and bottom half blue, with a green top-left pixel.
    // The frame is swapped to the screen and then painted into the front buffer as well: the
    // software rasteriser under Xvfb does not copy swapped frames into the front buffer that
    // GL reads back, while a hardware driver shows the same picture either way.
    static void presentPattern()
    {
        paintPattern();
        SDL_GL_SwapBuffers();
        glDrawBuffer(GL_FRONT);
        paintPattern();
        glFlush();
        glDrawBuffer(GL_BACK);
    }

    static void paintPattern()
    {
        glEnable(GL_SCISSOR_TEST);
        glScissor(0, kHeight / 2, kWidth, kHeight / 2);
        glClearColor(1.0f, 0.0f, 0.0f, 1.0f);
        glClear(GL_COLOR_BUFFER_BIT);
        glScissor(0, 0, kWidth, kHeight / 2);
        glClearColor(0.0f, 0.0f, 1.0f, 1.0f);
        glClear(GL_COLOR_BUFFER_BIT);
        glScissor(0, kHeight - 1, 1, 1);
        glClearColor(0.0f, 1.0f, 0.0f, 1.0f);
        glClear(GL_COLOR_BUFFER_BIT);
        glDisable(GL_SCISSOR_TEST);
        glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
    }

    static pixelprobe::Rgba pixel(SDL_Surface* s, int x, int y)
    {
        Uint32 value = 0;
        const Uint8* p = static_cast<const Uint8*>(s->pixels) + y * s->pitch + x * s->format->BytesPerPixel;
        for (int i = 0; i < s->format->BytesPerPixel; ++i) value |= static_cast<Uint32>(p[i]) << (8 * i);
        Uint8 r = 0, g = 0, b = 0;
        SDL_GetRGB(value, s->format, &r, &g, &b);
        return pixelprobe::Rgba{r, g, b, 255};
    }
};
} // namespace

TEST_F(ScreenshotTest, WindowOf1280x720GivesA1280x720BmpTopRowFirst)
{
    presentPattern();
    const std::string path = ::testing::TempDir() + "screenshot_1.bmp";
    std::remove(path.c_str());
    vorlik::screenshot(path.c_str());

    SDL_Surface* saved = SDL_LoadBMP(path.c_str());
    ASSERT_NE(saved, nullptr);
    EXPECT_EQ(saved->w, 1280);
    EXPECT_EQ(saved->h, 720);
    EXPECT_TRUE(pixelprobe::near(pixel(saved, 0, 0), 0, 255, 0)) << pixel(saved, 0, 0);
    EXPECT_TRUE(pixelprobe::near(pixel(saved, 1, 0), 255, 0, 0)) << pixel(saved, 1, 0);
    EXPECT_TRUE(pixelprobe::near(pixel(saved, 640, 359), 255, 0, 0));
    EXPECT_TRUE(pixelprobe::near(pixel(saved, 640, 360), 0, 0, 255));
    EXPECT_TRUE(pixelprobe::near(pixel(saved, 1279, 719), 0, 0, 255));
    SDL_FreeSurface(saved);
}

TEST_F(ScreenshotTest, ReadsTheFrameAlreadyShownNotTheOneBeingDrawn)
{
    presentPattern();
    glClearColor(1.0f, 1.0f, 1.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT); // the next frame, not yet shown
    glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
    const std::string path = ::testing::TempDir() + "screenshot_front.bmp";
    vorlik::screenshot(path.c_str());
    SDL_Surface* saved = SDL_LoadBMP(path.c_str());
    ASSERT_NE(saved, nullptr);
    EXPECT_TRUE(pixelprobe::near(pixel(saved, 640, 100), 255, 0, 0)) << pixel(saved, 640, 100);
    SDL_FreeSurface(saved);
}

TEST_F(ScreenshotTest, UnwritablePathIsIgnored)
{
    presentPattern();
    const char* path = "/nonexistent/dir/screenshot_2.bmp";
    vorlik::screenshot(path);
    EXPECT_EQ(std::fopen(path, "rb"), nullptr);
}
