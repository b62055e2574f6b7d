// One frame of a started game session as the main loop runs it, for tests that drive the game
// frame by frame: endFrame's part (the input snapshot, the clock moved on by the frame and
// sync set to it), then GameSession::frame. No window or timing is read.
#pragma once

#include "ScriptedInput.h"
#include "platform/Vorlik.h"
#include "play/GameSession.h"

#include <cstdint>

inline void playSessionFrame(ScriptedInput& input, uint32_t frameMs)
{
    input.snapshot();
    vorlik::Vorlik::currentTime += frameMs;
    vorlik::Vorlik::sync = static_cast<float>(frameMs) / 1000.0f;
    g_game->frame();
}
