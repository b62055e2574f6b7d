// Input for tests: an event record of the test's own that Vorlik's queries read while it lives,
// fed with the events a player's keys, buttons and mouse would make and closed into snapshots
// the way endFrame does, so that no result depends on a window or on timing.
#pragma once

#include "platform/EventState.h"
#include "platform/Vorlik.h"

#include <SDL.h>

class ScriptedInput {
public:
    ScriptedInput() : saved(vorlik::Vorlik::events) { vorlik::Vorlik::events = &state; }
    ~ScriptedInput() { vorlik::Vorlik::events = saved; }
    ScriptedInput(const ScriptedInput&) = delete;
    ScriptedInput& operator=(const ScriptedInput&) = delete;

    void key(int symbol, bool down)
    {
        SDL_Event e{};
        e.type = down ? SDL_KEYDOWN : SDL_KEYUP;
        e.key.keysym.sym = static_cast<SDLKey>(symbol);
        state.apply(e);
    }
    void button(int number, bool down)
    {
        SDL_Event e{};
        e.type = down ? SDL_MOUSEBUTTONDOWN : SDL_MOUSEBUTTONUP;
        e.button.button = static_cast<Uint8>(number);
        state.apply(e);
    }
    void mouseAt(int x, int y)
    {
        SDL_Event e{};
        e.type = SDL_MOUSEMOTION;
        e.motion.x = static_cast<Uint16>(x);
        e.motion.y = static_cast<Uint16>(y);
        state.apply(e);
    }
    // What endFrame does with the input: the live state becomes this frame's snapshot.
    void snapshot() { state.snapshot(); }

    vorlik::EventState state;

private:
    vorlik::EventState* saved;
};
