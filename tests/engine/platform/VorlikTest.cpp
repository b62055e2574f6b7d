// The facade with a real window: start-up defaults, the frame clock, the event thread and the
// handling of a window-close request. Runs under Xvfb; skipped without a display.
#include "DisplayTest.h"

#include "graphics/Color.h"
#include "platform/EventState.h"
#include "platform/Vorlik.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <gtest/gtest.h>
#include <cmath>
#include <cstring>

using vorlik::EventState;
using vorlik::Vorlik;

namespace {

constexpr Uint32 kEventWaitMs = 1000;

// Waits for the event thread to notice something; it polls every 10 ms when idle.
template <typename Pred>
bool waitFor(Pred pred)
{
    const Uint32 start = SDL_GetTicks();
    while (!pred()) {
        if (SDL_GetTicks() - start > kEventWaitMs) return false;
        SDL_Delay(5);
    }
    return true;
}

// Each push says whether SDL's queue took the event.
bool pushKey(Uint8 type, SDLKey key)
{
    SDL_Event e{};
    e.type = type;
    e.key.keysym.sym = key;
    return SDL_PushEvent(&e) == 0;
}

bool pushButton(Uint8 type, Uint8 button)
{
    SDL_Event e{};
    e.type = type;
    e.button.button = button;
    return SDL_PushEvent(&e) == 0;
}

bool pushMotion(Uint16 x, Uint16 y)
{
    SDL_Event e{};
    e.type = SDL_MOUSEMOTION;
    e.motion.x = x;
    e.motion.y = y;
    return SDL_PushEvent(&e) == 0;
}

bool pushQuit()
{
    SDL_Event e{};
    e.type = SDL_QUIT;
    return SDL_PushEvent(&e) == 0;
}

bool liveKeyDown(SDLKey key) { return (Vorlik::events->liveKeys[key / 32].load() >> (key % 32)) & 1u; }

// Tests of start-up and shutdown open and close their own windows.
class VorlikLifecycle : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (std::getenv("DISPLAY") == nullptr) GTEST_SKIP() << "no X display";
        if (Vorlik::events != nullptr) Vorlik::shutdown();
    }
    void TearDown() override
    {
        if (Vorlik::events != nullptr) Vorlik::shutdown();
    }
};

using VorlikFrame = DisplayTest;

// The facade's statics as they stand before main, read while the program is still being built.
struct StaticsBeforeMain {
    uint32_t width = Vorlik::width, height = Vorlik::height;
    const char* title = Vorlik::title;
    SDL_Surface* window = Vorlik::window;
    bool fullscreen = Vorlik::fullscreen;
    EventState* events = Vorlik::events;
    bool autoexit = Vorlik::autoexit;
    uint32_t tm_current = Vorlik::tm_current, tm_last = Vorlik::tm_last;
    uint32_t currentTime = Vorlik::currentTime, lastTime = Vorlik::lastTime;
    float sync = Vorlik::sync;
    int32_t sync16 = Vorlik::sync16;
    uint32_t framenum = Vorlik::framenum;
};
const StaticsBeforeMain kBeforeMain;

} // namespace

TEST(VorlikStatics, StartZeroedWithAutoexitOn)
{
    EXPECT_EQ(kBeforeMain.width, 0u);
    EXPECT_EQ(kBeforeMain.height, 0u);
    EXPECT_EQ(kBeforeMain.title, nullptr);
    EXPECT_EQ(kBeforeMain.window, nullptr);
    EXPECT_FALSE(kBeforeMain.fullscreen);
    EXPECT_EQ(kBeforeMain.events, nullptr);
    EXPECT_TRUE(kBeforeMain.autoexit);
    EXPECT_EQ(kBeforeMain.tm_current, 0u);
    EXPECT_EQ(kBeforeMain.tm_last, 0u);
    EXPECT_EQ(kBeforeMain.currentTime, 0u);
    EXPECT_EQ(kBeforeMain.lastTime, 0u);
    EXPECT_EQ(kBeforeMain.sync, 0.0f);
    EXPECT_EQ(kBeforeMain.sync16, 0);
    EXPECT_EQ(kBeforeMain.framenum, 0u);
}

TEST_F(VorlikLifecycle, InvalidArgumentsOpenA640By480WindowCaptionedDemo)
{
    Vorlik::init(0, -5, nullptr, Vorlik::kWindowed, Vorlik::kVsyncOff);
    EXPECT_EQ(Vorlik::getWidth(), 640u);
    EXPECT_EQ(Vorlik::getHeight(), 480u);
    ASSERT_NE(Vorlik::window, nullptr);
    EXPECT_EQ(Vorlik::window->w, 640);
    EXPECT_EQ(Vorlik::window->h, 480);
    char* caption = nullptr;
    SDL_WM_GetCaption(&caption, nullptr);
    ASSERT_NE(caption, nullptr);
    EXPECT_STREQ(caption, "Demo");
    EXPECT_STREQ(Vorlik::title, "Demo");
}

TEST_F(VorlikLifecycle, InitKeepsTheCaptionPointerAndTheFullscreenRequest)
{
    static const char caption[] = "Kelvane - Unfinished TSY '11 version";
    Vorlik::init(320, 200, caption, Vorlik::kWindowed, Vorlik::kVsyncOn);
    EXPECT_EQ(Vorlik::title, caption);
    EXPECT_FALSE(Vorlik::fullscreen);
    char* shown = nullptr;
    SDL_WM_GetCaption(&shown, nullptr);
    ASSERT_NE(shown, nullptr);
    EXPECT_STREQ(shown, caption);
}

TEST_F(VorlikLifecycle, InitHidesTheSystemCursor)
{
    Vorlik::init(320, 200, "cursor", Vorlik::kWindowed, Vorlik::kVsyncOff);
    EXPECT_EQ(SDL_ShowCursor(SDL_QUERY), SDL_DISABLE);
}

TEST_F(VorlikLifecycle, InitOpensADoubleBufferedRgba8ContextWithStencil)
{
    Vorlik::init(320, 200, "attributes", Vorlik::kWindowed, Vorlik::kVsyncOff);
    ASSERT_NE(Vorlik::window, nullptr);
    EXPECT_TRUE(Vorlik::window->flags & SDL_OPENGL);
    EXPECT_FALSE(Vorlik::window->flags & SDL_FULLSCREEN);
    int value = 0;
    SDL_GL_GetAttribute(SDL_GL_DOUBLEBUFFER, &value);
    EXPECT_EQ(value, 1);
    for (SDL_GLattr channel : {SDL_GL_RED_SIZE, SDL_GL_GREEN_SIZE, SDL_GL_BLUE_SIZE, SDL_GL_ALPHA_SIZE}) {
        SDL_GL_GetAttribute(channel, &value);
        EXPECT_EQ(value, 8) << "attribute " << channel;
    }
    SDL_GL_GetAttribute(SDL_GL_STENCIL_SIZE, &value);
    EXPECT_EQ(value, 8);
}

TEST_F(VorlikLifecycle, InitAsksForTheNicestRendering)
{
    Vorlik::init(320, 200, "hints", Vorlik::kWindowed, Vorlik::kVsyncOff);
    for (GLenum hint : {GL_LINE_SMOOTH_HINT, GL_POLYGON_SMOOTH_HINT, GL_PERSPECTIVE_CORRECTION_HINT,
                        GL_TEXTURE_COMPRESSION_HINT}) {
        GLint mode = 0;
        glGetIntegerv(hint, &mode);
        EXPECT_EQ(mode, GL_NICEST) << "hint 0x" << std::hex << hint;
    }
}

TEST_F(VorlikLifecycle, InitSetsTheRgbaColorLayout)
{
    Vorlik::init(320, 200, "layout", Vorlik::kWindowed, Vorlik::kVsyncOff);
    EXPECT_EQ(vorlik::Color::rmask, 0x000000FFu);
    EXPECT_EQ(vorlik::Color::gmask, 0x0000FF00u);
    EXPECT_EQ(vorlik::Color::bmask, 0x00FF0000u);
    EXPECT_EQ(vorlik::Color::amask, 0xFF000000u);
    EXPECT_EQ(vorlik::Color::ashift, 24);
}

TEST_F(VorlikLifecycle, InitStartsTheEventThreadAndASecondInitKeepsIt)
{
    Vorlik::init(320, 200, "first", Vorlik::kWindowed, Vorlik::kVsyncOff);
    ASSERT_NE(Vorlik::events, nullptr);
    EventState* events = Vorlik::events;
    SDL_Thread* thread = events->thread;
    EXPECT_NE(thread, nullptr);
    Vorlik::init(400, 300, "second", Vorlik::kWindowed, Vorlik::kVsyncOff);
    EXPECT_EQ(Vorlik::events, events);
    EXPECT_EQ(Vorlik::events->thread, thread);
    EXPECT_EQ(Vorlik::getWidth(), 400u);
}

TEST_F(VorlikLifecycle, FirstEndFrameMeasuresTimeSinceSdlStart)
{
    Vorlik::init(320, 200, "clock", Vorlik::kWindowed, Vorlik::kVsyncOff);
    Vorlik::endFrame();
    EXPECT_EQ(Vorlik::lastTime, 0u);
    EXPECT_EQ(Vorlik::tm_last, 0u);
    EXPECT_GT(Vorlik::currentTime, 0u);
    EXPECT_FLOAT_EQ(Vorlik::sync, static_cast<float>(Vorlik::currentTime) * 0.001f);
}

TEST_F(VorlikLifecycle, ShutdownResetsTheStaticsButNotFramenum)
{
    Vorlik::init(320, 200, "reset", Vorlik::kWindowed, Vorlik::kVsyncOff);
    Vorlik::endFrame();
    Vorlik::endFrame();
    Vorlik::setAutoexit(false);
    const uint32_t frames = Vorlik::framenum;
    Vorlik::shutdown();
    EXPECT_EQ(Vorlik::events, nullptr);
    EXPECT_EQ(Vorlik::window, nullptr);
    EXPECT_EQ(Vorlik::title, nullptr);
    EXPECT_EQ(Vorlik::getWidth(), 0u);
    EXPECT_EQ(Vorlik::getHeight(), 0u);
    EXPECT_TRUE(Vorlik::getAutoexit());
    EXPECT_EQ(Vorlik::sync, 0.0f);
    EXPECT_EQ(Vorlik::sync16, 0);
    EXPECT_EQ(Vorlik::currentTime, 0u);
    EXPECT_EQ(Vorlik::lastTime, 0u);
    EXPECT_EQ(Vorlik::tm_current, 0u);
    EXPECT_EQ(Vorlik::tm_last, 0u);
    EXPECT_EQ(Vorlik::framenum, frames);
}

TEST_F(VorlikFrame, BackToBackEndFramesNeverHaveZeroSync)
{
    for (int i = 0; i < 50; ++i) {
        Vorlik::endFrame();
        EXPECT_GT(Vorlik::sync, 0.0f);
        EXPECT_GE(Vorlik::currentTime - Vorlik::lastTime, 1u);
    }
}

TEST_F(VorlikFrame, FramenumCountsEveryEndFrame)
{
    const uint32_t before = Vorlik::framenum;
    for (int i = 0; i < 7; ++i) Vorlik::endFrame();
    EXPECT_EQ(Vorlik::framenum, before + 7);
}

TEST_F(VorlikFrame, ClockFieldsDescribeTheSameFrame)
{
    Vorlik::endFrame();
    SDL_Delay(20);
    Vorlik::endFrame();
    EXPECT_EQ(Vorlik::currentTime, Vorlik::tm_current);
    EXPECT_EQ(Vorlik::lastTime, Vorlik::tm_last);
    const uint32_t delta = Vorlik::currentTime - Vorlik::lastTime;
    EXPECT_GE(delta, 20u);
    EXPECT_FLOAT_EQ(Vorlik::sync, static_cast<float>(delta) * 0.001f);
    EXPECT_EQ(Vorlik::sync16, static_cast<int32_t>(static_cast<float>(delta) * 65.536f));
}

TEST_F(VorlikFrame, EventThreadFeedsKeysIntoTheNextSnapshot)
{
    ASSERT_TRUE(pushKey(SDL_KEYDOWN, SDLK_d));
    ASSERT_TRUE(waitFor([] { return liveKeyDown(SDLK_d); }));
    Vorlik::endFrame();
    EXPECT_TRUE(Vorlik::keyDown(SDLK_d));
    EXPECT_TRUE(Vorlik::keyPressed(SDLK_d));
    ASSERT_TRUE(pushKey(SDL_KEYUP, SDLK_d));
    ASSERT_TRUE(waitFor([] { return !liveKeyDown(SDLK_d); }));
    Vorlik::endFrame();
    EXPECT_TRUE(Vorlik::keyReleased(SDLK_d));
}

TEST_F(VorlikFrame, FramesReadTheRecordWhileTheEventThreadWritesIt)
{
    // The event thread applies a stream of input while this thread closes frames, which reads
    // every live field; the ThreadSanitizer run of this suite reports any access that races.
    Vorlik::setAutoexit(false);
    const SDLKey keys[] = {SDLK_w, SDLK_a, SDLK_s, SDLK_d};
    constexpr int kFrames = 50;
    for (int frame = 0; frame < kFrames; ++frame) {
        const bool down = frame % 2 == 0;
        for (SDLKey key : keys) ASSERT_TRUE(pushKey(down ? SDL_KEYDOWN : SDL_KEYUP, key));
        ASSERT_TRUE(pushButton(down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP, SDL_BUTTON_LEFT));
        ASSERT_TRUE(pushMotion(frame, 2 * frame));
        Vorlik::endFrame();
    }
    // The last frame let everything go; a final position and a quit close the stream.
    ASSERT_TRUE(pushMotion(100, 200));
    ASSERT_TRUE(pushQuit());
    ASSERT_TRUE(waitFor([&keys] {
        for (SDLKey key : keys)
            if (liveKeyDown(key)) return false;
        const EventState& live = *Vorlik::events;
        return live.quitRequested.load() && live.liveButtons.load() == 0 && live.liveMouseX.load() == 100 &&
               live.liveMouseY.load() == 200;
    }));
    Vorlik::endFrame();
    for (SDLKey key : keys) EXPECT_FALSE(Vorlik::keyDown(key)) << key;
    EXPECT_FALSE(Vorlik::mouseDown(SDL_BUTTON_LEFT));
    EXPECT_EQ(Vorlik::mouseX(), 100);
    EXPECT_EQ(Vorlik::mouseY(), 200);
    // The record is shared by the whole test process; later tests expect no pending quit.
    Vorlik::events->quitRequested.store(false);
    Vorlik::setAutoexit(true);
}

TEST_F(VorlikFrame, PendingQuitWithAutoexitOffIsIgnored)
{
    Vorlik::setAutoexit(false);
    ASSERT_TRUE(pushQuit());
    ASSERT_TRUE(waitFor([] { return Vorlik::events->quitRequested.load(); }));
    const uint32_t before = Vorlik::framenum;
    for (int i = 0; i < 5; ++i) Vorlik::endFrame();
    EXPECT_EQ(Vorlik::framenum, before + 5);
    EXPECT_TRUE(Vorlik::events->quitRequested.load());
    // The record is shared by the whole test process; later tests expect no pending quit.
    Vorlik::events->quitRequested.store(false);
    Vorlik::setAutoexit(true);
}

TEST_F(VorlikFrame, AutoexitTurnedBackOnEndsTheProgramAtTheNextEndFrame)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            Vorlik::setAutoexit(false);
            Vorlik::events->quitRequested.store(true);
            Vorlik::endFrame();
            Vorlik::setAutoexit(true);
            Vorlik::endFrame();
            std::fputs("endFrame returned", stderr);
            std::exit(3);
        },
        ::testing::ExitedWithCode(0), "");
}
