// The game's one music track, opened once at start-up. Playing, looping and fading it out
// belong to the main loop. Audio failures are silent: without a device or the file, music
// stays null and the game runs without sound.
#pragma once

#include <SDL_mixer.h>

// Null until loadMusic, and after it whenever the track could not be loaded.
extern Mix_Music* music;

// Starts SDL's audio, opens the mixer (44.1 kHz, signed 16-bit mono) and loads
// sfx/music1.ogg from the working directory into music. Checks nothing.
void loadMusic();
