// The runlevel transitions of the main loop, driven through the engine's input snapshot
// without a window.
#include "app/MainLoop.h"
#include "app/Runlevel.h"
#include "platform/EventState.h"
#include "platform/Vorlik.h"

#include <gtest/gtest.h>

using vorlik::EventState;
using vorlik::Vorlik;

namespace {

class MainLoopKeys : public ::testing::Test {
protected:
    EventState input;
    EventState* saved = nullptr;
    MainLoop loop;

    void SetUp() override
    {
        saved = Vorlik::events;
        Vorlik::events = &input;
        runlevel = RUNLEVEL_TITLE;
    }
    void TearDown() override { Vorlik::events = saved; }

    void key(SDLKey k, bool down)
    {
        SDL_Event e{};
        e.type = down ? SDL_KEYDOWN : SDL_KEYUP;
        e.key.keysym.sym = k;
        input.apply(e);
    }
    void button(Uint8 b, bool down)
    {
        SDL_Event e{};
        e.type = down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
        e.button.button = b;
        input.apply(e);
    }
    // Closes a frame the way endFrame does and lets the loop react to it.
    void frame()
    {
        input.snapshot();
        loop.handleKeys();
    }
};

} // namespace

TEST_F(MainLoopKeys, TitleWaitsWithoutInput)
{
    for (int i = 0; i < 5; ++i) frame();
    EXPECT_EQ(runlevel, RUNLEVEL_TITLE);
}

TEST_F(MainLoopKeys, EachTitleKeyStartsTheGame)
{
    for (SDLKey k : {SDLK_RETURN, SDLK_SPACE, SDLK_KP_ENTER}) {
        runlevel = RUNLEVEL_TITLE;
        key(k, true);
        frame();
        EXPECT_EQ(runlevel, RUNLEVEL_GAME) << "key " << k;
        key(k, false);
        frame();
    }
}

TEST_F(MainLoopKeys, EachMouseButtonStartsTheGame)
{
    for (Uint8 b : {SDL_BUTTON_LEFT, SDL_BUTTON_MIDDLE, SDL_BUTTON_RIGHT}) {
        runlevel = RUNLEVEL_TITLE;
        button(b, true);
        frame();
        EXPECT_EQ(runlevel, RUNLEVEL_GAME) << "button " << int(b);
        button(b, false);
        frame();
    }
}

TEST_F(MainLoopKeys, HeldReturnDoesNotStartTheGameButAHeldButtonDoes)
{
    runlevel = RUNLEVEL_GAME;
    key(SDLK_RETURN, true);
    button(SDL_BUTTON_LEFT, true);
    frame();
    runlevel = RUNLEVEL_TITLE;
    button(SDL_BUTTON_LEFT, false);
    frame();
    EXPECT_EQ(runlevel, RUNLEVEL_TITLE) << "Return was pressed frames ago";
    button(SDL_BUTTON_LEFT, true);
    frame();
    runlevel = RUNLEVEL_TITLE;
    frame();
    EXPECT_EQ(runlevel, RUNLEVEL_GAME) << "a held button counts on every frame";
}

TEST_F(MainLoopKeys, OtherKeysAndTheWheelDoNotStartTheGame)
{
    key(SDLK_w, true);
    button(SDL_BUTTON_WHEELUP, true);
    frame();
    EXPECT_EQ(runlevel, RUNLEVEL_TITLE);
}

TEST_F(MainLoopKeys, EscapeEndsTheLoopFromEveryRunlevel)
{
    for (int level : {RUNLEVEL_TITLE, RUNLEVEL_GAME, RUNLEVEL_MENU}) {
        runlevel = level;
        key(SDLK_ESCAPE, true);
        frame();
        EXPECT_EQ(runlevel, RUNLEVEL_LEAVE) << "from runlevel " << level;
        key(SDLK_ESCAPE, false);
        frame();
    }
}

TEST_F(MainLoopKeys, TheMenuRunlevelIsLeftAlone)
{
    runlevel = RUNLEVEL_MENU;
    key(SDLK_RETURN, true);
    frame();
    EXPECT_EQ(runlevel, RUNLEVEL_MENU);
}
