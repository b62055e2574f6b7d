#include "play/GameSession.h"

#include "base/GameRandom.h"
#include "platform/Vorlik.h"
#include "player/TextIndicator.h"
#include "scene/ParticleSlice.h"
#include "scene/ParticleSystem.h"
#include "scene/Starfield.h"
#include "scene/Text.h"

#include <gtest/gtest.h>
#include <cmath>
#include <cstring>

using vorlik::Vorlik;

namespace {

class GameSessionTest : public ::testing::Test {
protected:
    // The window size this test pretends to, put back afterwards for the tests that follow.
    const uint32_t savedWidth = Vorlik::width;
    const uint32_t savedHeight = Vorlik::height;

    GameSessionTest()
    {
        g_game = &session;
        Vorlik::currentTime = 20000;
        Vorlik::width = 1280;
        Vorlik::height = 720;
    }
    ~GameSessionTest() override
    {
        delete &session; // while g_game still names it, as in the game
        g_game = nullptr;
        Vorlik::width = savedWidth;
        Vorlik::height = savedHeight;
        Vorlik::currentTime = 0;
        g_rand.seed(kStaticRandomSeed); // the starfield and the shake drew from it
    }

    // The newest text indicator among the actors; the wave's ships are listed after it.
    const char* lastAnnouncement() const
    {
        for (uint32_t i = session.actors.count; i-- > 0;)
            if (auto* notice = dynamic_cast<TextIndicator*>(session.actors[i])) return notice->text->text.data;
        return "";
    }

    GameSession& session = *new GameSession;
};

TEST_F(GameSessionTest, StartsBeforeTheFirstWaveWithThreeLivesAndNothingListed)
{
    EXPECT_EQ(session.wave, 0);
    EXPECT_EQ(session.lives, 3);
    EXPECT_EQ(session.reserve, 0);
    EXPECT_EQ(session.toughness, 1.0f);
    for (uint32_t count : {session.actors.count, session.enemies.count, session.friends.count,
                           session.others.count, session.powerups.count})
        EXPECT_EQ(count, 0u);
    EXPECT_EQ(session.actors.capacity, 128u);
    EXPECT_STREQ(session.gameOverText->text.data, "Game Over");
}

TEST_F(GameSessionTest, HoldsItsParticleSystemsTheExplosionSliceAndFiveHundredTwelveStars)
{
    for (uint32_t capacity : {session.actors.capacity, session.enemies.capacity, session.friends.capacity,
                              session.others.capacity, session.powerups.capacity})
        EXPECT_EQ(capacity, 128u);
    EXPECT_EQ(session.sparkParticles->capacity, 1024u);
    EXPECT_EQ(session.explosionParticles->capacity, 4096u);
    EXPECT_EQ(session.explosionParticles->spareSetting, 1u);
    EXPECT_EQ(session.explosionSlice->system, session.explosionParticles);
    EXPECT_EQ(session.explosionSlice->removeWhenEmpty, 1);
    EXPECT_EQ(session.explosionSlice->deleteWhenEmpty, 0);
    EXPECT_EQ(session.starfield->count, 512u);
    EXPECT_EQ(session.gameOverText->parent, nullptr) << "shown only at game over";
}

TEST_F(GameSessionTest, AWaveLastsNinetySecondsPlusTenMillisecondsPerWavePlayed)
{
    session.wave = 4;
    session.startWave();
    EXPECT_EQ(session.wave, 5);
    EXPECT_FLOAT_EQ(session.nextWaveTime, 20000 + 90040);
}

TEST_F(GameSessionTest, TheTenthAnnouncementReadsWaveTenIncoming)
{
    for (int i = 0; i < 10; ++i) session.startWave();
    EXPECT_STREQ(lastAnnouncement(), "Wave 10 incoming");
    EXPECT_EQ(session.actors.count, 10u + session.enemies.count);
}

TEST_F(GameSessionTest, TheAnnouncementIsCentredOnTheHudAtTwoFifthsOfTheHeightAndOneAndAHalfTimesLarge)
{
    session.startWave();
    auto* announcement = static_cast<TextIndicator*>(session.actors[0]);
    EXPECT_STREQ(announcement->text->text.data, "Wave 1 incoming");
    EXPECT_EQ(announcement->position, vorlik::vec2(640, 288));
    EXPECT_EQ(announcement->scale, 1.5f);
    EXPECT_EQ(announcement->text->fontHeight, 16.0f);
    EXPECT_EQ(announcement->text->anchor.x, 0.0f); // centred
    EXPECT_EQ(announcement->startTime, 20000u);
    for (float channel : announcement->text->color) EXPECT_EQ(channel, 1.0f);
}

TEST_F(GameSessionTest, ToughnessGrowsByATenthPerWaveComputedInDoublePrecision)
{
    float expected = 1.0f;
    for (int w = 1; w <= 20; ++w) {
        session.startWave();
        expected = static_cast<float>(static_cast<double>(expected) * 1.1);
        EXPECT_EQ(session.toughness, expected) << "wave " << w;
    }
    EXPECT_NEAR(session.toughness, std::pow(1.1, 20), 1e-3);
    EXPECT_NEAR(session.speedFactor, std::pow(1.07, 20), 1e-3);
    EXPECT_NEAR(session.fireFactor, std::pow(1.002, 20), 1e-5);
}

TEST_F(GameSessionTest, TheFirstWaveWaitsForItsTimerEvenWithNoEnemy)
{
    EXPECT_FALSE(GameSession::waveIsDue(true, 0, 0, 5000, 5000));
    EXPECT_TRUE(GameSession::waveIsDue(true, 0, 0, 5001, 5000));
}

TEST_F(GameSessionTest, OnceWavesHaveBegunAnEmptyEnemyListStartsTheNext)
{
    EXPECT_TRUE(GameSession::waveIsDue(true, 4, 0, 100, 90000));
    EXPECT_FALSE(GameSession::waveIsDue(true, 4, 1, 100, 90000));
    EXPECT_TRUE(GameSession::waveIsDue(true, 4, 7, 90001, 90000));
}

TEST_F(GameSessionTest, NoWaveStartsWhileTheShipIsDown)
{
    EXPECT_FALSE(GameSession::waveIsDue(false, 4, 0, 100000, 90000));
}

TEST_F(GameSessionTest, ShakeRunsFromNowForItsDurationAndFadesLinearly)
{
    session.shake(1000, 50);
    EXPECT_EQ(session.shakeStart, 20000);
    EXPECT_EQ(session.shakeEnd, 21000);
    g_rand.seed(7);
    const float y = g_rand.range(-1.0f, 1.0f);
    const float x = g_rand.range(-1.0f, 1.0f);
    g_rand.seed(7);
    Vorlik::currentTime = 20250;
    const vorlik::vec2 offset = session.shakeOffset();
    EXPECT_FLOAT_EQ(offset.x, x * 37.5f);
    EXPECT_FLOAT_EQ(offset.y, y * 37.5f);
    Vorlik::currentTime = 21000;
    EXPECT_EQ(session.shakeOffset(), vorlik::vec2(0, 0));
}

TEST_F(GameSessionTest, DeletingTheSessionDeletesItsListedActors)
{
    auto* session2 = new GameSession;
    g_game = session2;
    session2->startWave();
    session2->startWave();
    delete session2; // each announcement leaves the list as it goes; ASan checks the rest
    g_game = &session;
}

} // namespace
