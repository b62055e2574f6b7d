// Input semantics without a window: events are applied to the live fields and frames are
// closed by taking snapshots, exactly as the event thread and endFrame do.
#include "platform/EventState.h"
#include "platform/Vorlik.h"

#include <gtest/gtest.h>

using vorlik::EventState;
using vorlik::Vorlik;

namespace {

SDL_Event keyEvent(Uint8 type, SDLKey key)
{
    SDL_Event e{};
    e.type = type;
    e.key.keysym.sym = key;
    return e;
}

SDL_Event buttonEvent(Uint8 type, Uint8 button)
{
    SDL_Event e{};
    e.type = type;
    e.button.button = button;
    return e;
}

// Routes the facade's queries to a record owned by the test.
class FacadeInput : public ::testing::Test {
protected:
    EventState state;
    EventState* saved = nullptr;
    void SetUp() override { saved = Vorlik::events; Vorlik::events = &state; }
    void TearDown() override { Vorlik::events = saved; }
};

} // namespace

TEST(EventState, ConstructionClearsEverything)
{
    EventState s;
    EXPECT_EQ(s.thread, nullptr);
    EXPECT_TRUE(s.running.load());
    EXPECT_FALSE(s.quitRequested.load());
    for (int w = 0; w < EventState::kKeyWords; ++w) {
        EXPECT_EQ(s.liveKeys[w].load(), 0u);
        EXPECT_EQ(s.currentKeys[w], 0u);
        EXPECT_EQ(s.previousKeys[w], 0u);
    }
    EXPECT_EQ(s.liveMouseX.load() | s.liveMouseY.load() | s.currentMouseX | s.currentMouseY, 0);
    EXPECT_EQ(s.previousMouseX | s.previousMouseY, 0);
    EXPECT_EQ(s.liveButtons.load() | s.currentButtons | s.previousButtons, 0u);
}

TEST(EventState, KeyBitLivesInWordKeyDiv32AtBitKeyMod32)
{
    EventState s;
    s.apply(keyEvent(SDL_KEYDOWN, SDLK_F1)); // 282 = 8 * 32 + 26
    EXPECT_EQ(s.liveKeys[8].load(), 1u << 26);
    s.apply(keyEvent(SDL_KEYUP, SDLK_F1));
    EXPECT_EQ(s.liveKeys[8].load(), 0u);
}

TEST(EventState, LiveChangesAreInvisibleUntilSnapshot)
{
    EventState s;
    s.apply(keyEvent(SDL_KEYDOWN, SDLK_w));
    EXPECT_FALSE(s.keyDown(SDLK_w));
    s.snapshot();
    EXPECT_TRUE(s.keyDown(SDLK_w));
}

TEST(EventState, HeldKeyIsPressedOnExactlyOneFrame)
{
    EventState s;
    s.apply(keyEvent(SDL_KEYDOWN, SDLK_RETURN));
    int pressedFrames = 0;
    for (int frame = 0; frame < 10; ++frame) {
        s.snapshot();
        EXPECT_TRUE(s.keyDown(SDLK_RETURN));
        EXPECT_FALSE(s.keyReleased(SDLK_RETURN));
        pressedFrames += s.keyPressed(SDLK_RETURN);
        if (frame == 0) {
            EXPECT_TRUE(s.keyPressed(SDLK_RETURN));
        }
    }
    EXPECT_EQ(pressedFrames, 1);
}

TEST(EventState, KeyIsReleasedOnTheFrameAfterItIsLetGo)
{
    EventState s;
    s.apply(keyEvent(SDL_KEYDOWN, SDLK_a));
    s.snapshot();
    s.snapshot();
    s.apply(keyEvent(SDL_KEYUP, SDLK_a));
    s.snapshot();
    EXPECT_TRUE(s.keyReleased(SDLK_a));
    EXPECT_FALSE(s.keyDown(SDLK_a));
    EXPECT_FALSE(s.keyPressed(SDLK_a));
    s.snapshot();
    EXPECT_FALSE(s.keyReleased(SDLK_a));
}

TEST(EventState, PressAndReleaseBetweenSnapshotsIsNeverSeen)
{
    EventState s;
    s.snapshot();
    s.apply(keyEvent(SDL_KEYDOWN, SDLK_SPACE));
    s.apply(keyEvent(SDL_KEYUP, SDLK_SPACE));
    for (int frame = 0; frame < 3; ++frame) {
        s.snapshot();
        EXPECT_FALSE(s.keyDown(SDLK_SPACE));
        EXPECT_FALSE(s.keyPressed(SDLK_SPACE));
        EXPECT_FALSE(s.keyReleased(SDLK_SPACE));
    }
}

TEST(EventState, OutOfRangeKeysAreFalse)
{
    EventState s;
    for (int w = 0; w < EventState::kKeyWords; ++w) s.liveKeys[w].store(~0u);
    s.snapshot();
    EXPECT_TRUE(s.keyDown(511));
    EXPECT_FALSE(s.keyDown(512));
    EXPECT_FALSE(s.keyPressed(512));
    EXPECT_FALSE(s.keyDown(-1));
    EXPECT_FALSE(s.keyPressed(-1));
    s.snapshot();
    for (int w = 0; w < EventState::kKeyWords; ++w) s.liveKeys[w].store(0);
    s.snapshot();
    EXPECT_FALSE(s.keyReleased(512));
    EXPECT_FALSE(s.keyReleased(-1));
}

TEST(EventState, OutOfRangeButtonsAreFalse)
{
    EventState s;
    s.liveButtons.store(~0u);
    s.snapshot();
    EXPECT_TRUE(s.mouseDown(31));
    EXPECT_FALSE(s.mouseDown(32));
    EXPECT_FALSE(s.mousePressed(32));
    EXPECT_FALSE(s.mouseDown(-1));
    s.liveButtons.store(0);
    s.snapshot();
    EXPECT_FALSE(s.mouseReleased(32));
    EXPECT_FALSE(s.mouseReleased(-1));
}

TEST(EventState, ButtonZeroIsNeverDown)
{
    EventState s;
    for (Uint8 b = SDL_BUTTON_LEFT; b <= SDL_BUTTON_WHEELDOWN; ++b) s.apply(buttonEvent(SDL_MOUSEBUTTONDOWN, b));
    s.snapshot();
    EXPECT_TRUE(s.mouseDown(SDL_BUTTON_LEFT));
    EXPECT_TRUE(s.mouseDown(SDL_BUTTON_WHEELDOWN));
    EXPECT_FALSE(s.mouseDown(0));
    EXPECT_EQ(s.currentButtons & 1u, 0u);
}

TEST(EventState, MouseButtonEdgesFollowSnapshots)
{
    EventState s;
    s.apply(buttonEvent(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_RIGHT));
    s.snapshot();
    EXPECT_TRUE(s.mousePressed(SDL_BUTTON_RIGHT));
    s.snapshot();
    EXPECT_FALSE(s.mousePressed(SDL_BUTTON_RIGHT));
    EXPECT_TRUE(s.mouseDown(SDL_BUTTON_RIGHT));
    s.apply(buttonEvent(SDL_MOUSEBUTTONUP, SDL_BUTTON_RIGHT));
    s.snapshot();
    EXPECT_TRUE(s.mouseReleased(SDL_BUTTON_RIGHT));
    EXPECT_FALSE(s.mouseDown(SDL_BUTTON_RIGHT));
}

TEST(EventState, MouseMotionIsSnapshotWithPreviousPosition)
{
    EventState s;
    SDL_Event motion{};
    motion.type = SDL_MOUSEMOTION;
    motion.motion.x = 1200;
    motion.motion.y = 700;
    s.apply(motion);
    s.snapshot();
    EXPECT_EQ(s.currentMouseX, 1200);
    EXPECT_EQ(s.currentMouseY, 700);
    motion.motion.x = 3;
    motion.motion.y = 4;
    s.apply(motion);
    s.snapshot();
    EXPECT_EQ(s.previousMouseX, 1200);
    EXPECT_EQ(s.previousMouseY, 700);
    EXPECT_EQ(s.currentMouseX, 3);
    EXPECT_EQ(s.currentMouseY, 4);
}

TEST(EventState, QuitEventSetsQuitRequested)
{
    EventState s;
    SDL_Event quit{};
    quit.type = SDL_QUIT;
    s.apply(quit);
    EXPECT_TRUE(s.quitRequested.load());
}

TEST(EventState, OtherEventsAreIgnored)
{
    EventState s;
    SDL_Event e{};
    e.type = SDL_VIDEORESIZE;
    e.resize.w = 99;
    s.apply(e);
    s.snapshot();
    EXPECT_FALSE(s.quitRequested.load());
    EXPECT_EQ(s.currentMouseX, 0);
    EXPECT_EQ(s.currentButtons, 0u);
}

TEST(EventState, StopWithoutThreadIsHarmless)
{
    EventState s;
    s.stop();
    EXPECT_EQ(s.thread, nullptr);
    EXPECT_TRUE(s.running.load());
}

TEST(EventState, EventLoopReturnsAtOnceWhenNotRunning)
{
    EventState s;
    s.running.store(false);
    EXPECT_EQ(vorlik::__vorlik_event_loop(&s), 0);
}

TEST(EventState, ThreadStartsOnceAndStops)
{
    EventState s;
    s.start();
    SDL_Thread* first = s.thread;
    ASSERT_NE(first, nullptr);
    s.start();
    EXPECT_EQ(s.thread, first);
    s.stop();
    EXPECT_EQ(s.thread, nullptr);
    EXPECT_FALSE(s.running.load());
}

TEST_F(FacadeInput, VorlikQueriesReadTheSnapshot)
{
    state.apply(keyEvent(SDL_KEYDOWN, SDLK_ESCAPE));
    state.apply(buttonEvent(SDL_MOUSEBUTTONDOWN, SDL_BUTTON_LEFT));
    SDL_Event motion{};
    motion.type = SDL_MOUSEMOTION;
    motion.motion.x = 640;
    motion.motion.y = 360;
    state.apply(motion);
    EXPECT_FALSE(Vorlik::keyDown(SDLK_ESCAPE));
    state.snapshot();
    EXPECT_TRUE(Vorlik::keyDown(SDLK_ESCAPE));
    EXPECT_TRUE(Vorlik::keyPressed(SDLK_ESCAPE));
    EXPECT_FALSE(Vorlik::keyReleased(SDLK_ESCAPE));
    EXPECT_TRUE(Vorlik::mouseDown(SDL_BUTTON_LEFT));
    EXPECT_TRUE(Vorlik::mousePressed(SDL_BUTTON_LEFT));
    EXPECT_FALSE(Vorlik::mouseReleased(SDL_BUTTON_LEFT));
    EXPECT_EQ(Vorlik::mouseX(), 640);
    EXPECT_EQ(Vorlik::mouseY(), 360);
    EXPECT_FALSE(Vorlik::keyDown(512));
    EXPECT_FALSE(Vorlik::mouseDown(32));
    EXPECT_FALSE(Vorlik::mouseDown(0));
}
