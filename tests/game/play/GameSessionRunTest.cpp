// Two simulated minutes of a game, frame by frame through GameSession::frame, with the clock and
// the input snapshot scripted by the test: the ship's energy, its flight across all four edges
// of the world, the camera and the stars that follow it, and four ships lost until the game is
// over. The waves' ships are there but disarmed (blind, gunless, dropping nothing), so that the
// ship's deaths and energy are the test's own. Nothing is drawn; the scenes exist because the
// session builds into them.
#include "play/GameSession.h"

#include "GameScenesTest.h"
#include "base/Resources.h"
#include "math/scalar.h"
#include "platform/Vorlik.h"
#include "play/Enemy.h"
#include "play/EnemyPlasma.h"
#include "play/Laser.h"
#include "play/Plasma.h"
#include "hud/HUD_RadarBox.h"
#include "hud/HUD_ScoreBox.h"
#include "hud/HUD_WeaponBox.h"
#include "hud/Reticle.h"
#include "hud/ScoreCounter.h"
#include "player/Player.h"
#include "player/TextIndicator.h"
#include "scene/ParticleSlice.h"
#include "scene/Starfield.h"
#include "scene/Text.h"

#include <gtest/gtest.h>
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

using vorlik::Vorlik;
using vorlik::vec2;

namespace {

constexpr uint32_t kFrameMs = 16;
constexpr float kSync = kFrameMs * 0.001f;
constexpr uint32_t kStart = 50000; // ms on the clock when the game starts

class GameSessionRun : public GameScenesTest {
protected:
    void SetUp() override
    {
        GameScenesTest::SetUp();
        if (IsSkipped()) return;
        Vorlik::currentTime = kStart;
        Vorlik::sync = kSync;
        g_game = new GameSession();
        g_game->start();
        player = g_game->player;
    }

    void key(int k, bool down) { input->key(k, down); }
    void button(int b, bool down) { input->button(b, down); }
    void mouseAt(int x, int y) { input->mouseAt(x, y); }

    // One frame as the main loop runs it: the snapshot and clock of endFrame, then the session.
    // Checks what must hold after every frame: the camera leads the ship by 0.3 of its drift,
    // off by no more than a running shake's strength, and zooms out with the drift, and the
    // stars moved by the camera's step with the seam corrected.
    void frame()
    {
        const vec2 cameraBefore(g_world->camera.x, g_world->camera.y);
        const Starfield::Star star = g_game->starfield->stars[0];
        input->snapshot();
        Vorlik::currentTime += kFrameMs;
        Vorlik::sync = kSync;
        g_game->frame();
        disarmEnemies();
        ++frames;

        const vec2 lead = player->position + player->drift * 0.3f;
        shakeSeen = vec2(g_world->camera.x, g_world->camera.y) - lead;
        const float reach = shakeStrengthNow() + 1e-3f;
        ASSERT_NEAR(g_world->camera.x, lead.x, reach) << "frame " << frames;
        ASSERT_NEAR(g_world->camera.y, lead.y, reach) << "frame " << frames;
        ASSERT_FLOAT_EQ(g_world->camera.zoom, 1.0f - player->drift.length() / player->driftLimit * 0.2f);
        const vec2 cameraAfter(g_world->camera.x, g_world->camera.y);
        vec2 d = cameraAfter - cameraBefore;
        if (d.x > 1280) d.x -= 4096;
        else if (d.x < -1280) d.x += 4096;
        if (d.y > 720) d.y -= 4096;
        else if (d.y < -720) d.y += 4096;
        const Starfield& field = *g_game->starfield;
        const float x = vorlik::wrap(star.x - d.x * field.parallax / star.z, -field.margin, field.screenWidth + field.margin);
        const float y = vorlik::wrap(star.y - d.y * field.parallax / star.z, -field.margin, field.screenHeight + field.margin);
        ASSERT_NEAR(field.stars[0].x, x, 1e-2) << "frame " << frames;
        ASSERT_NEAR(field.stars[0].y, y, 1e-2) << "frame " << frames;
        // Even the wreck's glide moves the camera by less than 30 units a frame; a step across
        // the seam must not throw the stars by anything like a world.
        if (frames > 1) {
            ASSERT_LT(std::fabs(d.x), 200.0f) << "a seam crossing moved the stars by a world";
            ASSERT_LT(std::fabs(d.y), 200.0f) << "a seam crossing moved the stars by a world";
        }
    }
    // How far a running shake may move the camera off its lead on each axis now: its strength
    // falls linearly to 0 at its end.
    float shakeStrengthNow() const
    {
        const float t = static_cast<float>(Vorlik::currentTime);
        if (!(t < g_game->shakeEnd)) return 0.0f;
        const float left = (g_game->shakeEnd - t) / (g_game->shakeEnd - g_game->shakeStart);
        return g_game->shakeStrength * left;
    }
    // Every ship of the waves wanders without seeing, shooting or dropping anything.
    static void disarmEnemies()
    {
        for (Enemy* enemy : g_game->enemies) {
            enemy->sightRange = 0.0f;
            enemy->gun->fireRate = 0.0f;
            enemy->dropChance = 0.0f;
        }
    }
    void run(uint32_t ms)
    {
        for (uint32_t t = 0; t < ms; t += kFrameMs) frame();
    }
    uint32_t now() const { return Vorlik::currentTime; }
    // The newest notice whose text ends with ending.
    std::string newestNotice(const std::string& ending) const
    {
        for (uint32_t i = g_game->actors.count; i-- > 0;) {
            auto* t = dynamic_cast<TextIndicator*>(g_game->actors[i]);
            if (t == nullptr) continue;
            const std::string text = t->text->text.data;
            if (text.size() >= ending.size() && text.compare(text.size() - ending.size(), ending.size(), ending) == 0)
                return text;
        }
        return "";
    }

    // Flies with the key held until the ship has crossed the world's edge on the key's axis.
    void flyAcrossTheEdge(int k, bool horizontal)
    {
        key(k, true);
        bool crossed = false;
        for (int i = 0; i < 2500 && !crossed; ++i) {
            const vec2 before = player->position;
            frame();
            const float jump = horizontal ? player->position.x - before.x : player->position.y - before.y;
            crossed = std::fabs(jump) > 2048;
        }
        key(k, false);
        EXPECT_TRUE(crossed) << "key " << char(k);
    }

    // Kills the ship and follows it through the wait, the glide and the respawn.
    void loseAShip(int livesLeft)
    {
        const vec2 wreck = player->position;
        EXPECT_FALSE(player->damage(1000));
        const uint32_t died = now();
        EXPECT_FLOAT_EQ(player->deathTime, died + 2500.0f);
        EXPECT_FLOAT_EQ(player->returnTime, died + 6000.0f);
        EXPECT_EQ(g_game->friends.count, 0u);
        while (now() + kFrameMs < died + 2500) {
            frame();
            ASSERT_EQ(player->position, wreck) << "the wreck waits where it died";
        }
        while (now() + kFrameMs < died + 4250) frame();
        frame(); // t = 0.5 or just past it
        const float t = (now() - player->deathTime) / (player->returnTime - player->deathTime);
        const vec2 eased(vorlik::smoothLerp(t, wreck.x, player->respawnPosition.x),
                         vorlik::smoothLerp(t, wreck.y, player->respawnPosition.y));
        const vec2 wrapped(vorlik::wrap(eased.x, 0.0f, 4096.0f), vorlik::wrap(eased.y, 0.0f, 4096.0f));
        EXPECT_NEAR(player->position.x, wrapped.x, 0.5);
        EXPECT_NEAR(player->position.y, wrapped.y, 0.5);
        while (now() < died + 6000) frame();
        frame();
        EXPECT_EQ(g_game->lives, livesLeft);
        EXPECT_EQ(newestNotice(" lives left"), std::to_string(livesLeft) + " lives left");
        EXPECT_EQ(player->hull, 125.0f);
        EXPECT_EQ(g_game->friends.count, 1u);
        // A second of growing in, untouchable; then it takes damage again.
        EXPECT_TRUE(player->damage(1000));
        run(1000);
        EXPECT_EQ(player->scale, 1.0f);
        EXPECT_TRUE(player->damage(10));
        EXPECT_EQ(player->hull, 115.0f);
    }

    Player* player = nullptr;
    vec2 shakeSeen; // the camera's offset from its lead after the last frame
    int frames = 0;
};

TEST_F(GameSessionRun, TwoMinutesOfFlightFireDeathsAndGameOver)
{
    // The first wave comes 5000 ms after the start, with no enemy anywhere.
    EXPECT_EQ(player->position, vec2(2048, 2048));
    while (now() <= kStart + 5000) {
        frame();
        if (now() <= kStart + 5000) {
            ASSERT_EQ(g_game->wave, 0);
        }
    }
    EXPECT_EQ(g_game->wave, 1);
    EXPECT_EQ(newestNotice(" incoming"), "Wave 1 incoming");

    // Thrust: 25 energy a second against 35 of regeneration.
    player->energy = 100;
    key('d', true);
    for (int i = 0; i < 50; ++i) frame();
    key('d', false);
    EXPECT_NEAR(player->energy, 100 + 50 * (35 - 25) * kSync, 1e-3);

    // Bolts at 2 energy and beams at 8, each frame's change matching the shots that left.
    mouseAt(900, 300);
    button(1, true);
    button(3, true);
    int bolts = 0, beams = 0;
    for (int i = 0; i < 200; ++i) {
        const float before = player->energy;
        frame();
        const bool bolt = player->plasma->lastShot == static_cast<float>(now());
        const bool beam = player->laser->lastShot == static_cast<float>(now());
        bolts += bolt;
        beams += beam;
        const float regen = std::fmin(35 * kSync, player->maxEnergy - before);
        ASSERT_NEAR(player->energy, before + regen - 2 * bolt - 8 * beam, 1e-3) << "frame " << i;
    }
    button(1, false);
    button(3, false);
    EXPECT_EQ(bolts, 16); // one every 13 frames of 16 ms: the gate's 200 ms rounded up to 208
    EXPECT_EQ(beams, 13); // one every 16 frames: 256 ms
    // Regeneration stops at the cap.
    run(12000);
    EXPECT_EQ(player->energy, 350.0f);

    // Across all four edges of the world.
    flyAcrossTheEdge('d', true);
    flyAcrossTheEdge('a', true);
    flyAcrossTheEdge('a', true);
    flyAcrossTheEdge('s', false);
    flyAcrossTheEdge('w', false);
    flyAcrossTheEdge('w', false);

    // Three ships lost and back, then the fourth ends the game.
    loseAShip(2);
    loseAShip(1);
    loseAShip(0);
    EXPECT_FALSE(player->damage(1000));
    frame();
    EXPECT_FALSE(g_game->playing);
    const int wave = g_game->wave;
    const float over = g_game->gameOverStart;
    EXPECT_EQ(g_game->gameOverEnd, over + 1500);
    EXPECT_EQ(g_game->gameOverText->parent, static_cast<Container*>(g_hud));
    EXPECT_STREQ(g_game->gameOverText->text.data, "Game Over");
    EXPECT_EQ(g_game->gameOverText->font, Resources::font_big);
    EXPECT_EQ(g_game->gameOverText->anchor, vorlik::vec3(0, 0, 0)) << "centred on its position";
    EXPECT_EQ(g_game->gameOverText->position, vorlik::vec3(640, 288, 0));
    while (now() < over + 750) frame();
    EXPECT_NEAR(g_game->gameOverText->color[3], 0.5f, 0.02f);
    while (now() < over + 1500) frame();
    frame();
    EXPECT_EQ(g_game->gameOverText->color[3], 1.0f);

    // Past two minutes, the game stays over: no wave starts, the text stays.
    while (now() < kStart + 125000) frame();
    EXPECT_EQ(g_game->wave, wave);
    EXPECT_FALSE(g_game->playing);
    EXPECT_GE(now() - kStart, 120000u);
}

} // namespace

namespace {

TEST_F(GameSessionRun, NoLivesAndNoHullInOneFrameEndTheGameAndNoWaveFollowsEvenPastItsTime)
{
    g_game->lives = 0;
    g_game->nextWaveTime = static_cast<float>(now()) - 1; // the timer has run out
    EXPECT_FALSE(player->damage(1000));
    frame();
    EXPECT_FALSE(g_game->playing);
    EXPECT_EQ(g_game->wave, 0);
    EXPECT_EQ(g_game->gameOverText->color[3], 0.0f);
    run(3000);
    EXPECT_EQ(g_game->wave, 0);
}

TEST_F(GameSessionRun, StartPutsTheShipAtTheCentreWithItsGunsAndTheHudInTheirScenes)
{
    EXPECT_EQ(g_world->first, g_game->starfield);
    EXPECT_EQ(player->drawable->parent, static_cast<Container*>(g_world));
    EXPECT_EQ(player->plasma->parent, static_cast<Container*>(g_world));
    EXPECT_EQ(player->laser->parent, static_cast<Container*>(g_world));
    EXPECT_EQ(g_game->explosionSlice->parent, static_cast<Container*>(g_world));
    EXPECT_EQ(g_world->last, static_cast<Drawable*>(g_game->explosionSlice));
    EXPECT_EQ(g_game->actors.count, 2u); // the score counter and the ship
    EXPECT_EQ(g_game->friends.count, 1u);
    EXPECT_FLOAT_EQ(g_game->nextWaveTime, kStart + 5000.0f);
    EXPECT_EQ(g_game->lives, 3);
    // On the HUD: the three boxes, the reticle, the energy line, then the score over its panel.
    EXPECT_EQ(g_hud->count, 6u);
    EXPECT_EQ(g_hud->last, g_game->scoreCounter->drawable);
}

TEST_F(GameSessionRun, StartBuildsTheHudBoxesThenTheReticleThenTheShipsEnergyLineThenTheScore)
{
    const Drawable* expected[] = {g_game->scoreBox, g_game->weaponBox,  g_game->radarBox,
                                  g_game->reticle,  player->energyText, g_game->scoreCounter->text};
    const Drawable* child = g_hud->first;
    for (const Drawable* want : expected) {
        ASSERT_NE(child, nullptr);
        EXPECT_EQ(child, want);
        child = child->next;
    }
    EXPECT_EQ(child, nullptr);
    // The counters stay with their boxes: the score box's rolls in the actors' walk, the weapon
    // box's third is the reserve's.
    EXPECT_EQ(g_game->scoreCounter, g_game->scoreBox->counter);
    EXPECT_EQ(g_game->actors[0], static_cast<Actor*>(g_game->scoreCounter));
    EXPECT_EQ(g_game->reserveCounter, g_game->weaponBox->counters[2]);
    EXPECT_EQ(g_game->scoreCounter->position.x, 15.0f);
    EXPECT_EQ(g_game->scoreCounter->position.y, 12.0f);
    EXPECT_EQ(g_game->scoreCounter->value, 0);
    EXPECT_EQ(g_game->scoreCounter->shownFrom, 0);
    EXPECT_EQ(g_game->scoreCounter->rollStart, 0u);
    EXPECT_EQ(g_game->scoreCounter->rollEnd, 0u);
}

TEST_F(GameSessionRun, AShakeThrowsTheCameraOffItsLeadLessAndLessAndTheStarsFollowTheShakenCamera)
{
    run(200);
    g_game->shake(1000, 50);
    float early = 0, late = 0;
    // frame() checks each shaken frame: the camera within the shake's falling strength of its
    // lead, and the stars moved by the shaken camera's step.
    for (uint32_t t = 0; t < 1000; t += kFrameMs) {
        frame();
        const float off = std::max(std::fabs(shakeSeen.x), std::fabs(shakeSeen.y));
        (t < 300 ? early : late) = std::max(t < 300 ? early : late, off);
    }
    EXPECT_GT(early, 25.0f) << "a fresh shake of strength 50 throws the camera well off its lead";
    EXPECT_LT(late, early);
    frame();
    EXPECT_EQ(shakeSeen, vec2(0, 0)) << "after the shake the camera is back on its lead";
}

} // namespace

namespace {

TEST_F(GameSessionRun, AWaveStartPutsThePlayersGunsOnTopOfTheWorldsDrawOrder)
{
    ASSERT_EQ(g_world->last, static_cast<Drawable*>(g_game->explosionSlice));
    while (g_game->wave == 0) frame();
    EXPECT_EQ(g_world->last, static_cast<Drawable*>(player->laser));
    EXPECT_EQ(g_world->last->prev, static_cast<Drawable*>(player->plasma));
    EXPECT_NE(player->drawable->next, static_cast<Drawable*>(player->plasma)); // the ship stays below
}

} // namespace

namespace {

TEST_F(GameSessionRun, TheFirstWaveStartsFiveSecondsAfterStartEvenWithNoEnemy)
{
    while (now() + kFrameMs <= kStart + 5000) frame();
    Vorlik::currentTime = kStart + 5000 - kFrameMs;
    frame(); // exactly 5000 ms: not yet
    EXPECT_EQ(g_game->wave, 0);
    Vorlik::currentTime = kStart + 5001 - kFrameMs;
    frame();
    EXPECT_EQ(g_game->wave, 1);
    EXPECT_FLOAT_EQ(g_game->nextWaveTime, kStart + 5001 + 90000.0f);
    EXPECT_EQ(newestNotice(" incoming"), "Wave 1 incoming");
}

TEST_F(GameSessionRun, TheReticleFollowsTheMouseWhileTheShipIsDeadOrGrowingIn)
{
    player->die();
    input->mouseAt(100, 200);
    frame();
    EXPECT_EQ(g_game->reticle->position.x, 100);
    EXPECT_EQ(g_game->reticle->position.y, 200);
    player->respawn();
    input->mouseAt(700, 50);
    frame();
    EXPECT_GT(player->fadeEnd, static_cast<float>(now()));
    EXPECT_EQ(g_game->reticle->position.x, 700);
    EXPECT_EQ(g_game->reticle->position.y, 50);
}

} // namespace
