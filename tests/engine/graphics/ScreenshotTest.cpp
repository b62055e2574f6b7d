#include "graphics/Screenshot.h"

#include "DisplayTest.h"
#include "PixelProbe.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <SDL.h>
#include <SDL_syswm.h>
#include <X11/Xutil.h>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

using vorlik::shownFrameBuffer;

namespace {
// Pixels as 0xRRGGBB, top row first.
using Picture = std::vector<uint32_t>;

class ScreenshotTest : public CleanWindowTest {
protected:
    // Shows a frame whose top half is red and bottom half blue, with a green top-left pixel.
    static void presentPattern()
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
        SDL_GL_SwapBuffers();
    }

    // A picture in which no two pixels of a row or a column are alike, so a shifted, flipped
    // or colour-swapped copy differs from it almost everywhere.
    static Picture gradient()
    {
        Picture picture(static_cast<size_t>(kWidth) * kHeight);
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                const uint32_t r = x & 0xFF;
                const uint32_t g = y & 0xFF;
                const uint32_t b = ((x >> 8) << 4 | (y >> 8)) * 3;
                picture[static_cast<size_t>(y) * kWidth + x] = r << 16 | g << 8 | b;
            }
        }
        return picture;
    }

    static void draw(const Picture& picture)
    {
        std::vector<uint8_t> rgba(picture.size() * 4);
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) {
                const uint32_t p = picture[static_cast<size_t>(y) * kWidth + x];
                uint8_t* out = &rgba[(static_cast<size_t>(kHeight - 1 - y) * kWidth + x) * 4];
                out[0] = p >> 16 & 0xFF;
                out[1] = p >> 8 & 0xFF;
                out[2] = p & 0xFF;
                out[3] = 255;
            }
        }
        glWindowPos2i(0, 0);
        glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
        glDrawPixels(kWidth, kHeight, GL_RGBA, GL_UNSIGNED_BYTE, rgba.data());
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

    // The BMP file at path as a picture; empty when it cannot be read.
    static Picture load(const std::string& path)
    {
        SDL_Surface* saved = SDL_LoadBMP(path.c_str());
        if (saved == nullptr) return {};
        Picture picture;
        for (int y = 0; y < saved->h; ++y) {
            for (int x = 0; x < saved->w; ++x) {
                const pixelprobe::Rgba p = pixel(saved, x, y);
                picture.push_back(static_cast<uint32_t>(p.r << 16 | p.g << 8 | p.b));
            }
        }
        SDL_FreeSurface(saved);
        return picture;
    }

    // What the X server shows in the test's window, read over a connection of our own (the
    // engine's event thread uses SDL's). Empty when the window cannot be read.
    static Picture windowOnScreen(Display* display)
    {
        SDL_SysWMinfo info;
        SDL_VERSION(&info.version);
        if (SDL_GetWMInfo(&info) != 1) return {};
        XImage* image = XGetImage(display, info.info.x11.window, 0, 0, kWidth, kHeight, AllPlanes, ZPixmap);
        if (image == nullptr) return {};
        // Xvfb's 24-bit true-colour visual holds pixels as 0xRRGGBB.
        constexpr unsigned long kRgb = 0xFFFFFF;
        Picture picture;
        for (int y = 0; y < kHeight; ++y) {
            for (int x = 0; x < kWidth; ++x) picture.push_back(static_cast<uint32_t>(XGetPixel(image, x, y) & kRgb));
        }
        XDestroyImage(image);
        return picture;
    }

    // Tests run side by side, each in its own window at the same place, so another test's
    // window may cover this one: the window is raised before each frame is shown.
    static void raiseWindow(Display* display)
    {
        SDL_SysWMinfo info;
        SDL_VERSION(&info.version);
        if (SDL_GetWMInfo(&info) != 1) return;
        XRaiseWindow(display, info.info.x11.window);
        XSync(display, False);
    }

    // How many pixels of two pictures differ, counting a size mismatch as every pixel.
    static size_t differing(const Picture& a, const Picture& b)
    {
        if (a.size() != b.size()) return a.size() > b.size() ? a.size() : b.size();
        size_t count = 0;
        for (size_t i = 0; i < a.size(); ++i) count += a[i] != b[i] ? 1 : 0;
        return count;
    }
};
} // namespace

TEST(ShownFrameBuffer, LlvmpipeIsReadFromTheBackBuffer)
{
    EXPECT_EQ(shownFrameBuffer("llvmpipe (LLVM 15.0.6, 256 bits)"), static_cast<unsigned>(GL_BACK));
    EXPECT_EQ(shownFrameBuffer("llvmpipe"), static_cast<unsigned>(GL_BACK));
}

TEST(ShownFrameBuffer, EveryOtherRendererIsReadFromTheFrontBuffer)
{
    EXPECT_EQ(shownFrameBuffer("softpipe"), static_cast<unsigned>(GL_FRONT));
    EXPECT_EQ(shownFrameBuffer("Mesa Intel(R) UHD Graphics 620 (KBL GT2)"), static_cast<unsigned>(GL_FRONT));
    EXPECT_EQ(shownFrameBuffer("AMD Radeon RX 6600 (radeonsi, navi23, LLVM 15.0.6, DRM 3.49)"),
              static_cast<unsigned>(GL_FRONT));
    EXPECT_EQ(shownFrameBuffer("llvm"), static_cast<unsigned>(GL_FRONT));
    EXPECT_EQ(shownFrameBuffer(""), static_cast<unsigned>(GL_FRONT));
    EXPECT_EQ(shownFrameBuffer(nullptr), static_cast<unsigned>(GL_FRONT));
}

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

TEST_F(ScreenshotTest, SavesExactlyTheFrameDrawnAndShownOnScreen)
{
    Display* display = XOpenDisplay(nullptr);
    ASSERT_NE(display, nullptr);
    const Picture drawn = gradient();
    const std::string path = ::testing::TempDir() + "screenshot_exact.bmp";
    constexpr int kAttempts = 20;
    size_t offScreen = 0;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        raiseWindow(display);
        draw(drawn);
        SDL_GL_SwapBuffers();
        std::remove(path.c_str());
        vorlik::screenshot(path.c_str());
        const Picture saved = load(path);
        ASSERT_EQ(differing(saved, drawn), 0u) << "the screenshot is not the frame drawn, under "
                                               << glGetString(GL_RENDERER);
        offScreen = differing(windowOnScreen(display), drawn);
        if (offScreen == 0) break;
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    EXPECT_EQ(offScreen, 0u) << "the X server never showed the frame in the test's window";
    XCloseDisplay(display);
}

TEST_F(ScreenshotTest, FrontBufferReadsGiveTheFrameShownNotTheOneBeingDrawn)
{
    if (shownFrameBuffer(reinterpret_cast<const char*>(glGetString(GL_RENDERER))) != GL_FRONT) {
        GTEST_SKIP() << "this renderer's screenshots read the back buffer";
    }
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
