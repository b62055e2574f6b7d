// The game's one music track, opened once at start-up. Playing, looping and fading it out
// belong to the main loop. Audio failures are silent: without a device or the file, music
// stays null and the game runs without sound.
#pragma once

#include <SDL_mixer.h>

// The track, relative to the working directory.
constexpr const char kMusicFile[] = "sfx/music1.ogg";

// Null until loadMusic, and after it whenever the track could not be loaded.
extern Mix_Music* music;

// Starts SDL's audio, opens the mixer (44.1 kHz, signed 16-bit mono) and loads kMusicFile
// into music. Checks nothing.
void loadMusic();
