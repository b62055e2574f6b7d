#include "app/Music.h"

#include <SDL.h>

Mix_Music* music = nullptr;

namespace {
// The mixer has always been asked for these decoder flags (MOD); the Ogg track plays without
// asking for Ogg, so the value stays as it has always been.
constexpr int kMixerFlags = 2;
constexpr int kSampleRate = 44100;     // Hz
constexpr int kMono = 1;               // channels
constexpr int kChunkSize = 65536;      // bytes per mixing chunk
} // namespace

void loadMusic()
{
    SDL_InitSubSystem(SDL_INIT_AUDIO);
    Mix_Init(kMixerFlags);
    Mix_OpenAudio(kSampleRate, AUDIO_S16LSB, kMono, kChunkSize);
    music = Mix_LoadMUS(kMusicFile);
}
