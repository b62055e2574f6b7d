// The notice on the HUD before a game starts: the game's name, an underline and a message to
// the players, every line in the medium font and centred on the window. It owns its texts;
// the program entry destroys it, after clearing the scenes, when the game begins.
#pragma once

#include "core/Stack.h"

class Text;

class TitleScreen {
public:
    static constexpr uint32_t kInitialCapacity = 128; // texts the list holds before growing

    vorlik::Stack<Text*> texts; // in the order they were added to g_hud

    // Clears g_hud and fills it with the notice, using Resources::font_medium.
    TitleScreen();
    // Deletes every text; the scenes must not hold them any more.
    ~TitleScreen();

    TitleScreen(const TitleScreen&) = delete;
    TitleScreen& operator=(const TitleScreen&) = delete;
};
