#include "player/Player.h"

#include "GameScenesTest.h"
#include "base/GameRandom.h"
#include "base/Resources.h"
#include "core/Random.h"
#include "platform/Vorlik.h"
#include "play/GameSession.h"
#include "play/Laser.h"
#include "play/Plasma.h"
#include "player/ShipMotion.h"
#include "player/TextIndicator.h"
#include "scene/Group.h"
#include "scene/Particle.h"
#include "scene/ParticleEmitter.h"
#include "scene/ParticleSlice.h"
#include "scene/ParticleSystem.h"
#include "scene/Scene2D.h"
#include "scene/Sprite.h"
#include "scene/Text.h"

#include <gtest/gtest.h>
#include <algorithm>
#include <cmath>

using vorlik::Vorlik;
using vorlik::vec2;

namespace {

constexpr uint32_t kFrameMs = 16;

// A session holding one ship, with the clock and the input snapshot set by the test. The guns
// aim through the world scene, so the scenes exist, and with them the window.
class PlayerTest : public GameScenesTest {
protected:
    void SetUp() override
    {
        GameScenesTest::SetUp();
        if (IsSkipped()) return;
        Vorlik::currentTime = 100000;
        Vorlik::sync = kFrameMs * 0.001f;
        g_game = new GameSession();
        player = new Player();
        g_game->player = player;
        g_game->actors.push(player);
        g_game->friends.push(player);
        player->position = vec2(2048, 2048);
    }

    void key(int k, bool down) { input->key(k, down); }
    void button(int b, bool down) { input->button(b, down); }
    void mouseAt(int x, int y) { input->mouseAt(x, y); }
    // One frame of frameMs: the snapshot, the clock, then the ship's update.
    void frame(uint32_t frameMs = kFrameMs)
    {
        input->snapshot();
        Vorlik::currentTime += frameMs;
        Vorlik::sync = frameMs * 0.001f;
        player->update();
    }

    // With the button held, a store of exactly power fires nothing; half a unit more fires one
    // shot, which leaves the half.
    void expectFiresOnlyAbove(int gunButton, float power)
    {
        player->energyRegen = 0;
        player->energy = power;
        button(gunButton, true);
        frame();
        EXPECT_EQ(player->energy, power);
        player->energy = power + 0.5f;
        frame(300);
        EXPECT_FLOAT_EQ(player->energy, 0.5f);
    }

    Player* player = nullptr;
};

TEST_F(PlayerTest, AFreshShipHasMoreHullThanARepairGivesBack)
{
    EXPECT_EQ(player->hull, 125.0f);
    EXPECT_EQ(player->maxHull, 100.0f);
    EXPECT_EQ(player->radius, 32.0f);
    EXPECT_EQ(player->pickupRange, 150.0f);
    EXPECT_EQ(player->energy, 350.0f);
    EXPECT_FLOAT_EQ(player->driftLimit, 707.1068f);
    EXPECT_EQ(player->drawable, player->shipGroup);
    EXPECT_EQ(player->shipGroup->count, 5u);
    EXPECT_EQ(player->shipGroup->first, player->hullBottom);
    EXPECT_EQ(player->glowBottom->blendMode(), BLEND_ADDITIVE);
    EXPECT_EQ(player->glowBottom->color.a, 107);
    EXPECT_EQ(player->laser->colour[3], 224);
}

TEST_F(PlayerTest, ItsLayersAreSizedAndTexturedAndItsEnergyLineSitsTopLeftOnTheHud)
{
    EXPECT_EQ(player->hullBottom->size.x, 64.0f);
    EXPECT_EQ(player->hullMiddle->size.x, 64.0f);
    EXPECT_EQ(player->hullTop->size.x, 64.0f);
    EXPECT_EQ(player->glowBottom->size.x, 60.0f);
    EXPECT_EQ(player->glowTop->size.x, 72.0f);
    EXPECT_EQ(player->glowTop->blendMode(), BLEND_ADDITIVE);
    EXPECT_EQ(player->hullBottom->texture, Resources::player_bot_tex);
    EXPECT_EQ(player->hullMiddle->texture, Resources::player_mid_tex);
    EXPECT_EQ(player->hullTop->texture, Resources::player_top_tex);
    EXPECT_EQ(player->glowBottom->texture, Resources::player_bot_glow_tex);
    EXPECT_EQ(player->glowTop->texture, Resources::player_top_glow_tex);
    // Drawn bottom hull, its glow, middle hull, top hull, top glow.
    const Drawable* order[] = {player->hullBottom, player->glowBottom, player->hullMiddle, player->hullTop,
                               player->glowTop};
    const Drawable* layer = player->shipGroup->first;
    for (const Drawable* want : order) {
        EXPECT_EQ(layer, want);
        layer = layer != nullptr ? layer->next : nullptr;
    }
    EXPECT_EQ(player->laser->colour[0], 76);
    EXPECT_EQ(player->laser->colour[1], 76);
    EXPECT_EQ(player->laser->colour[2], 255);
    EXPECT_EQ(player->exhaust->capacity, 256u);
    EXPECT_EQ(player->exhaust->spareSetting, 512u);
    EXPECT_EQ(player->exhaust->texture, Resources::proc_particle0_tex);
    EXPECT_EQ(player->thrustCost, 25.0f);
    EXPECT_EQ(player->energyRegen, 35.0f);
    EXPECT_EQ(player->energyText->font, Resources::font_big);
    EXPECT_EQ(player->energyText->fontHeight, 15.0f);
    EXPECT_EQ(player->energyText->position, vorlik::vec3(5, 25, 0));
    EXPECT_EQ(player->energyText->parent, static_cast<Container*>(g_hud));
    EXPECT_STREQ(player->energyText->text.data, "Energy: 350");
}

TEST_F(PlayerTest, TheShipIsDrawnWhereItWasAFrameAgoWithTheGlowsOfThisFrame)
{
    player->velocity = vec2(100, 0);
    player->rotation = 30;
    frame();
    // The group took the place before the move, the scale and the turn.
    EXPECT_EQ(player->shipGroup->position, vorlik::vec3(2048, 2048, 0));
    EXPECT_EQ(player->shipGroup->scale, player->scale);
    EXPECT_EQ(player->shipGroup->rotation, 30.0f);
    EXPECT_GT(player->position.x, 2048.0f);
    const int32_t top = topGlowAlpha(player->energy, player->maxEnergy, Vorlik::currentTime);
    EXPECT_EQ(player->glowTop->color.a, top);
    EXPECT_EQ(player->glowBottom->color.a, bottomGlowAlpha(top));
    EXPECT_TRUE((player->shipGroup->flags & DRAW_BOUNDS_DIRTY) != 0) << "the group is measured again";
}

TEST_F(PlayerTest, ABoltLeavesTowardTheMouseAsTheWorldCameraSeesIt)
{
    g_world->camera.x = 2048;
    g_world->camera.y = 2048;
    g_world->render(); // the camera as drawn is what the aim reads
    mouseAt(Vorlik::getWidth() / 2 + 300, Vorlik::getHeight() / 2 - 300);
    button(1, true);
    frame();
    const vec2 target = g_world->windowToWorld(static_cast<float>(Vorlik::getWidth() / 2 + 300),
                                               static_cast<float>(Vorlik::getHeight() / 2 - 300));
    const vec2 along = (target - vec2(2048, 2048)).normalized();
    const auto& bolt = player->plasma->shots[player->plasma->ringIndex];
    EXPECT_NEAR(bolt.velocity.x, along.x * 750, 1e-2);
    EXPECT_NEAR(bolt.velocity.y, along.y * 750, 1e-2);
    EXPECT_GT(along.x, 0.0f);
    EXPECT_LT(along.y, 0.0f) << "up the window is up the world";
}

TEST_F(PlayerTest, EnergyRegrowsThirtyFivePerSecondUpToItsCapAndShowsInTheText)
{
    player->energy = 100;
    frame(1000);
    EXPECT_FLOAT_EQ(player->energy, 135);
    EXPECT_STREQ(player->energyText->text.data, "Energy: 135");
    player->energy = 349;
    frame(1000);
    EXPECT_EQ(player->energy, 350);
}

TEST_F(PlayerTest, ThrustCostsTwentyFivePerSecond)
{
    player->energyRegen = 0;
    key('d', true);
    frame(1000);
    EXPECT_FLOAT_EQ(player->energy, 325);
    EXPECT_GT(player->velocity.x, 0);
    EXPECT_EQ(player->exhaustEmitter->rate, 100u);
}

TEST_F(PlayerTest, TheExhaustSitsAtTheShipAndBlowsAgainstItsVelocity)
{
    key('s', true);
    frame();
    EXPECT_EQ(player->exhaustEmitter->position, vec2(2048, 2048)); // placed before this frame's move
    EXPECT_EQ(player->exhaustEmitter->direction, -player->velocity);
    EXPECT_EQ(player->exhaustEmitter->rate, 100u);
    key('s', false);
    frame();
    EXPECT_EQ(player->exhaustEmitter->rate, 0u);
}

TEST_F(PlayerTest, HoldingAAndDTogetherGivesNoThrustCostsNothingAndBrakesTheXAxis)
{
    player->energyRegen = 0;
    player->velocity = vec2(100, 0);
    key('a', true);
    key('d', true);
    frame();
    EXPECT_EQ(player->energy, 350);
    EXPECT_FLOAT_EQ(player->velocity.x, 100 - 300 * 0.016f);
    EXPECT_EQ(player->exhaustEmitter->rate, 0u);
}

TEST_F(PlayerTest, WithEnergyBelowTheThrustCostTheShipAcceleratesLessAndEnergyEndsAtZero)
{
    player->energyRegen = 0;
    player->energy = 0.1f; // a quarter of the 0.4 a 16 ms frame of thrust costs
    key('s', true);
    frame();
    EXPECT_EQ(player->energy, 0.0f);
    EXPECT_FLOAT_EQ(player->velocity.y, 500 * 0.016f / 4);
}

TEST_F(PlayerTest, FlyingPastTheRightEdgePutsTheShipNearZero)
{
    player->position = vec2(4095, 100);
    player->velocity = vec2(300, 0);
    frame(); // the brake takes 4.8 off the speed before the move
    EXPECT_NEAR(player->position.x, 4095 + (300 - 4.8f) * 0.016f - 4096, 1e-3);
}

TEST_F(PlayerTest, HoldingTheLeftButtonFiresABoltEveryTwoHundredMillisecondsForTwoEnergyEach)
{
    player->energyRegen = 0;
    mouseAt(2100, 2048);
    button(1, true);
    int shots = 0;
    float before = player->energy;
    for (int i = 0; i < 125; ++i) { // 2 seconds
        frame();
        if (player->energy < before) ++shots;
        before = player->energy;
    }
    EXPECT_EQ(shots, 10);
    EXPECT_FLOAT_EQ(player->energy, 350 - 2 * 10);
}

TEST_F(PlayerTest, HoldingTheRightButtonFiresABeamEveryTwoHundredFiftyMillisecondsForEightEnergy)
{
    player->energyRegen = 0;
    button(3, true);
    for (int i = 0; i < 125; ++i) frame();
    EXPECT_FLOAT_EQ(player->energy, 350 - 8 * 8);
}

TEST_F(PlayerTest, FiringNeedsEnergyStrictlyAboveTheWeaponsPower)
{
    expectFiresOnlyAbove(1, 2.0f); // the plasma gun's bolts cost 2
}

TEST_F(PlayerTest, TheLaserTooNeedsEnergyStrictlyAboveItsPower)
{
    expectFiresOnlyAbove(3, 8.0f); // the laser's beams cost 8
}

TEST_F(PlayerTest, DamageThatTakesTheHullToExactlyZeroKills)
{
    EXPECT_TRUE(player->damage(100));
    EXPECT_EQ(player->hull, 25);
    EXPECT_FALSE(player->damage(25));
    EXPECT_EQ(player->hull, 0); // set to 1, then die() sets it to 0
    EXPECT_EQ(player->scale, 0);
    EXPECT_EQ(g_game->friends.count, 0u);
    EXPECT_GT(g_game->explosionSlice->count, 0u);
}

TEST_F(PlayerTest, ADeathWithLivesLeftWaitsGlidesEasedAndComesBackWithTheLivesNotice)
{
    player->position = vec2(1000, 1000);
    player->die();
    const float died = static_cast<float>(Vorlik::currentTime);
    EXPECT_EQ(player->deathTime, died + 2500);
    EXPECT_EQ(player->returnTime, died + 6000);
    EXPECT_NEAR(player->respawnPosition.length(), 1920, 0.01);

    // The wreck stays put for 2.5 s.
    while (Vorlik::currentTime + kFrameMs < died + 2500) frame();
    EXPECT_EQ(player->position, vec2(1000, 1000));
    // Halfway through the glide the cosine ease is at one half.
    Vorlik::currentTime = static_cast<uint32_t>(died) + 2500 + 1750 - kFrameMs;
    frame();
    const vec2 middle = (player->deathPosition + player->respawnPosition) * 0.5f;
    const vec2 expected = vec2(std::fmod(middle.x + 4096, 4096.0f), std::fmod(middle.y + 4096, 4096.0f));
    EXPECT_NEAR(player->position.x, expected.x, 0.5);
    EXPECT_NEAR(player->position.y, expected.y, 0.5);
    // Past the return time it respawns.
    Vorlik::currentTime = static_cast<uint32_t>(died) + 6000;
    frame();
    EXPECT_EQ(g_game->lives, 2);
    EXPECT_EQ(player->hull, 125);
    EXPECT_EQ(player->deathTime, 0);
    EXPECT_EQ(player->returnTime, 0);
    ASSERT_EQ(g_game->friends.count, 1u);
    auto* notice = static_cast<TextIndicator*>(g_game->actors[g_game->actors.count - 1]);
    EXPECT_STREQ(notice->text->text.data, "2 lives left");
    EXPECT_EQ(notice->scale, 1.5f);
}

TEST_F(PlayerTest, DamageDuringTheSecondAfterARespawnIsIgnored)
{
    player->deathTime = 1;
    player->returnTime = 2;
    player->respawn();
    EXPECT_TRUE(player->damage(1000));
    EXPECT_EQ(player->hull, 125);
    frame(500);
    EXPECT_NEAR(player->scale, 0.5f, 0.02f); // growing in
    EXPECT_TRUE(player->damage(1000));
    EXPECT_EQ(player->hull, 125);
    frame(501);
    EXPECT_FALSE(player->damage(1000));
}

TEST_F(PlayerTest, WhileGrowingInTheShipTakesNoControl)
{
    player->deathTime = 1;
    player->returnTime = 2;
    player->respawn();
    key('d', true);
    button(1, true);
    button(3, true);
    frame(500);
    EXPECT_EQ(player->velocity, vec2(0, 0));
    EXPECT_EQ(player->energy, 350.0f) << "no thrust paid, no shot fired";
    EXPECT_EQ(player->exhaustEmitter->rate, 0u);
}

TEST_F(PlayerTest, AtTheReturnTimeTheShipIsPutOnItsRespawnPoint)
{
    player->position = vec2(1000, 1000);
    player->die();
    const vec2 point = player->respawnPosition;
    Vorlik::currentTime = static_cast<uint32_t>(player->returnTime);
    frame();
    // Placed on the point (wrapped into the world), then it moves no more while growing in.
    const vec2 wrapped(std::fmod(point.x + 4096, 4096.0f), std::fmod(point.y + 4096, 4096.0f));
    EXPECT_NEAR(player->position.x, wrapped.x, 1e-3);
    EXPECT_NEAR(player->position.y, wrapped.y, 1e-3);
    EXPECT_EQ(player->deathTime, 0.0f);
}

TEST_F(PlayerTest, ARespawnWithEqualDeathAndReturnTimesOnlyRestoresTheShip)
{
    g_game->friends.count = 0;
    player->deathTime = player->returnTime = 0;
    player->respawn();
    EXPECT_EQ(player->hull, 125.0f);
    EXPECT_EQ(g_game->lives, 2);
    EXPECT_EQ(g_game->friends.count, 0u) << "not listed again";
}

TEST_F(PlayerTest, ADeathBurstsSevenHundredSixtyEightParticlesDrawnOverTheWreck)
{
    g_world->add(player->drawable);
    g_world->add(g_game->explosionSlice);
    g_world->add(player->plasma); // something drawn after the slice before the death
    player->die();
    EXPECT_EQ(g_game->explosionSlice->count, 256u + 512u);
    EXPECT_EQ(g_world->last, static_cast<Drawable*>(g_game->explosionSlice));
    EXPECT_EQ(player->scale, 0.0f);
    EXPECT_EQ(player->velocity, vec2(0, 0));
}

TEST_F(PlayerTest, ADeathIsABlueVioletFlashOf256ThenALongOrangeFireOf512)
{
    constexpr unsigned kSeed = 4242;
    const float r = player->radius;
    g_game->lives = 0; // no respawn point to draw after the bursts
    g_rand.seed(kSeed);
    vorlik::Random replay(kSeed);
    // Each burst draws its speed, then its second time, then its first.
    replay.range(9.0f * r, 12.0f * r);
    const int32_t flashLongest = replay.range(2899, 3124);
    const int32_t flashShortest = replay.range(1233, 1654);
    replay.range(9.0f * r, 12.0f * r);
    const int32_t fireLongest = replay.range(5622, 6233);
    const int32_t fireShortest = replay.range(500, 599);
    const float nextDraw = replay.range(0.0f, 1.0f);

    player->die();
    EXPECT_FLOAT_EQ(g_rand.range(0.0f, 1.0f), nextDraw) << "three draws a burst, nothing else";

    struct Burst {
        uint32_t count;
        int32_t shortest, longest;
        vorlik::vec4 colorA, colorB;
        float scatter;
    };
    const Burst bursts[2] = {
        {256, flashShortest, flashLongest, {0.1f, 0.1f, 0.7f, 0.87f}, {0.2f, 0.1f, 0.9f, 1.0f}, 1.43f * r},
        {512, fireShortest, fireLongest, {0.6f, 0.2f, 0.05f, 1.0f}, {0.9f, 0.3f, 0.1f, 1.0f}, 1.22f * r},
    };
    const Particle* p = g_game->explosionSlice->first; // oldest first: the flash, then the fire
    for (const Burst& burst : bursts) {
        for (uint32_t i = 0; i < burst.count; ++i, p = p->next) {
            ASSERT_NE(p, nullptr);
            const uint32_t life = p->death - p->birth;
            EXPECT_GE(life, static_cast<uint32_t>(burst.shortest));
            EXPECT_LT(life, static_cast<uint32_t>(burst.longest));
            for (int c = 0; c < 4; ++c) {
                EXPECT_GE(p->color[c], std::min(burst.colorA[c], burst.colorB[c]) - 1e-6f);
                EXPECT_LE(p->color[c], std::max(burst.colorA[c], burst.colorB[c]) + 1e-6f);
            }
            EXPECT_LE(vorlik::distance(p->start, vec2(2048, 2048)), burst.scatter + 1e-3f);
        }
    }
    EXPECT_EQ(p, nullptr);
}

TEST_F(PlayerTest, TheLastDeathTakesTheShipOutOfTheGame)
{
    g_game->lives = 0;
    player->die();
    EXPECT_EQ(g_game->friends.count, 0u);
    EXPECT_EQ(g_game->actors.count, 0u);
    EXPECT_EQ(player->shipGroup->parent, nullptr);
    EXPECT_EQ(player->returnTime, 0);
}

TEST_F(PlayerTest, TheHullLayersTurnAtTheirOwnRates)
{
    frame(1000);
    EXPECT_FLOAT_EQ(player->hullBottom->rotation, 360 - 165);
    EXPECT_FLOAT_EQ(player->glowBottom->rotation, 360 - 165);
    EXPECT_FLOAT_EQ(player->hullMiddle->rotation, 20);
    EXPECT_EQ(player->hullTop->rotation, 0);
}

TEST_F(PlayerTest, AVelocityOfLengthSixHundredIsCutToThreeHundredFifty)
{
    player->velocity = vec2(360, 480);
    key('d', true);
    key('s', true);
    frame(1);
    EXPECT_NEAR(player->velocity.length(), 350, 1e-3);
}

} // namespace
