#include "app/Music.h"

#include "WorkingDirectory.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <gtest/gtest.h>

namespace {

// loadMusic with the audio driver the test run sets (dummy: no sound device needed); each test
// closes the mixer and the audio subsystem again and leaves music null. Mix_Quit is not called:
// SDL_mixer 1.2.12 frees its sound font path there without forgetting it, and the next
// Mix_OpenAudio reads the freed block.
class MusicTest : public ::testing::Test {
protected:
    void TearDown() override
    {
        if (music != nullptr) Mix_FreeMusic(music);
        music = nullptr;
        Mix_CloseAudio();
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
    }
};

} // namespace

TEST_F(MusicTest, LoadsTheTrackFromTheRunDirectory)
{
    WorkingDirectory there(KELVANE_RUN_DIR);
    loadMusic();
    EXPECT_NE(music, nullptr) << Mix_GetError();
}

TEST_F(MusicTest, StartsTheAudioSubsystem)
{
    WorkingDirectory there(KELVANE_RUN_DIR);
    loadMusic();
    EXPECT_NE(SDL_WasInit(SDL_INIT_AUDIO), 0u);
}

TEST_F(MusicTest, OpensTheMixerAt44100HzSigned16BitMono)
{
    WorkingDirectory there(KELVANE_RUN_DIR);
    loadMusic();
    int frequency = 0, channels = 0;
    Uint16 format = 0;
    ASSERT_NE(Mix_QuerySpec(&frequency, &format, &channels), 0) << Mix_GetError();
    EXPECT_EQ(frequency, 44100);
    EXPECT_EQ(format, AUDIO_S16LSB);
    EXPECT_EQ(channels, 1);
}

TEST_F(MusicTest, MissingTrackLeavesMusicNull)
{
    EmptyDirectory empty;
    WorkingDirectory there(empty.path);
    loadMusic();
    EXPECT_EQ(music, nullptr);
}
