// The MegaNuke token with real enemy ships: the blast around the player's ship (wrap-aware,
// with the walk's one escape), the score without popups, the white flash on g_fader and the
// camera shake of the same length.
#include "player/Powerup.h"

#include "PowerupFixture.h"
#include "base/GameRandom.h"
#include "core/Random.h"
#include "hud/ScoreCounter.h"
#include "play/EnemyTypes.h"

#include <gtest/gtest.h>
#include <set>

using vorlik::Vorlik;
using vorlik::vec2;

namespace {

constexpr unsigned kSeed = 4242;

class MegaNukeTest : public PowerupFixture {
protected:
    void SetUp() override
    {
        PowerupFixture::SetUp();
        if (IsSkipped()) return;
        g_fader = &fader;
        player->position = kShipAt;
        // The blast's radius is the effect's first draw.
        g_rand.seed(kSeed);
        radius = g_rand.range(720.0f, 820.0f);
    }

    // A ship of kind at at, listed as a wave lists it.
    EnemyShip* enemyAt(EnemyKind kind, vec2 at)
    {
        EnemyShip* ship = makeEnemy(kind);
        ship->position = at;
        g_world->add(ship->drawable);
        g_game->enemies.push(ship);
        g_game->actors.push(ship);
        return ship;
    }

    // Applies a MegaNuke token lying beside the ship, g_rand at the seed that gave radius.
    void nuke()
    {
        Powerup* token = drop(POWERUP_MEGANUKE, kShipAt + vec2(10, 0));
        g_rand.seed(kSeed);
        token->apply();
        delete token;
    }

    static bool alive(const Enemy* ship)
    {
        for (Enemy* e : g_game->enemies)
            if (e == ship) return true;
        return false;
    }

    const vec2 kShipAt = vec2(300, 2048);
    Fader fader;
    float radius = 0.0f;
};

TEST_F(MegaNukeTest, TheBlastRadiusIsDrawnBetween720And820)
{
    EXPECT_GE(radius, 720.0f);
    EXPECT_LT(radius, 820.0f);
}

TEST_F(MegaNukeTest, DestroysTheShipsWithAnImageInsideTheDrawnRadiusAroundThePlayer)
{
    EnemyShip* inside = enemyAt(ENEMY_FIGHTER, kShipAt + vec2(0, radius - 1));
    EnemyShip* outside = enemyAt(ENEMY_FIGHTER, kShipAt + vec2(0, radius + 1));
    // radius - 2 to the left of the ship: across the world's left edge, far off in plain numbers.
    EnemyShip* acrossTheSeam = enemyAt(ENEMY_HAMMERHEAD, vec2(4096 + kShipAt.x - (radius - 2), 2048));
    EnemyShip* justBeyondTheSeam = enemyAt(ENEMY_PROBE, vec2(4096 + kShipAt.x - (radius + 2), 2048));
    EnemyShip* far = enemyAt(ENEMY_FIGHTER2, vec2(2500, 500));
    nuke();
    EXPECT_FALSE(alive(inside));
    EXPECT_FALSE(alive(acrossTheSeam));
    EXPECT_TRUE(alive(outside));
    EXPECT_TRUE(alive(justBeyondTheSeam));
    EXPECT_TRUE(alive(far));
    EXPECT_EQ(g_game->enemies.count, 3u);
}

TEST_F(MegaNukeTest, TheShipMovedIntoAnExplodedShipsSlotEscapesTheBlast)
{
    EnemyShip* first = enemyAt(ENEMY_FIGHTER, kShipAt + vec2(100, 0));
    EnemyShip* outside = enemyAt(ENEMY_FIGHTER, kShipAt + vec2(1500, 0));
    EnemyShip* last = enemyAt(ENEMY_FIGHTER, kShipAt + vec2(0, 100)); // inside too
    nuke();
    EXPECT_FALSE(alive(first));
    EXPECT_TRUE(alive(outside));
    EXPECT_TRUE(alive(last)); // moved into slot 0 after the walk had passed it
    ASSERT_EQ(g_game->enemies.count, 2u);
    EXPECT_EQ(g_game->enemies[0], last);
}

TEST_F(MegaNukeTest, ScoresEveryDestroyedShipWithoutAScorePopup)
{
    EnemyShip* a = enemyAt(ENEMY_HAMMERHEAD2, kShipAt + vec2(200, 0));
    EnemyShip* b = enemyAt(ENEMY_PROBE3, kShipAt + vec2(-200, 0));
    enemyAt(ENEMY_FIGHTER, kShipAt + vec2(0, 1000));
    const int expected = a->scoreValue + b->scoreValue;
    ASSERT_GT(expected, 0);
    const int before = g_game->scoreCounter->value;
    nuke();
    EXPECT_EQ(g_game->enemies.count, 1u);
    EXPECT_EQ(g_game->scoreCounter->value - before, expected);
    TextIndicator* message = onlyWorldMessage(); // the nuke's own, and no score of a wreck
    ASSERT_NE(message, nullptr);
    EXPECT_STREQ(message->text->text.data, "Free MegaNuke");
}

TEST_F(MegaNukeTest, FlashesTheWindowWhiteAndShakesTheCameraForTheSameTime)
{
    enemyAt(ENEMY_FIGHTER, kShipAt + vec2(50, 0));
    const uint32_t start = Vorlik::currentTime;
    nuke();
    EXPECT_EQ(fader.red, 1.0f);
    EXPECT_EQ(fader.green, 1.0f);
    EXPECT_EQ(fader.blue, 1.0f);
    EXPECT_EQ(fader.opacity, 1.0f);
    EXPECT_EQ(fader.startTime, start);
    const uint32_t flash = fader.endTime - fader.startTime;
    EXPECT_GE(flash, 950u);
    EXPECT_LT(flash, 1250u);

    EXPECT_EQ(g_game->shakeStart, static_cast<float>(start));
    EXPECT_EQ(g_game->shakeEnd - g_game->shakeStart, static_cast<float>(flash));
    EXPECT_FLOAT_EQ(g_game->shakeStrength, flash / 5.0f);

    fader.updateAlpha();
    EXPECT_EQ(fader.alpha, 1.0f);
    Vorlik::currentTime = start + flash / 2;
    fader.updateAlpha();
    EXPECT_NEAR(fader.alpha, 0.5f, 0.001f);
    Vorlik::currentTime = start + flash;
    fader.updateAlpha();
    EXPECT_EQ(fader.alpha, 0.0f);
}

TEST_F(MegaNukeTest, TheFlashLengthIsDrawnAfterTheBlastRadiusAndTheExplosionsDraws)
{
    EnemyShip* ship = enemyAt(ENEMY_FIGHTER, kShipAt + vec2(50, 0));
    ship->dropChance = 0.0f; // its draw is still made, but no token's draws follow it
    const float r = ship->radius;
    vorlik::Random replay(kSeed);
    replay.range(720.0f, 820.0f);        // the radius
    replay.range(9.0f * r, 12.0f * r);   // the explosion: speed, second time, first time
    replay.range(1000, 1199);
    replay.range(500, 599);
    replay.range(0.0f, 1.0f);            // the drop's draw
    const uint32_t flash = static_cast<uint32_t>(replay.range(950.0f, 1250.0f));
    nuke();
    EXPECT_EQ(fader.endTime - fader.startTime, flash);
}

TEST_F(MegaNukeTest, TheFlashLengthVariesOverSeedsWithinItsRange)
{
    std::set<uint32_t> lengths;
    for (unsigned s = 1; s <= 40; ++s) {
        Powerup* token = drop(POWERUP_MEGANUKE, kShipAt);
        g_rand.seed(s);
        token->apply();
        delete token;
        const uint32_t flash = fader.endTime - fader.startTime;
        EXPECT_GE(flash, 950u);
        EXPECT_LT(flash, 1250u);
        EXPECT_EQ(g_game->shakeEnd - g_game->shakeStart, static_cast<float>(flash));
        lengths.insert(flash);
        for (TextIndicator* message : worldMessages()) delete message;
    }
    EXPECT_GT(lengths.size(), 30u);
}

TEST_F(MegaNukeTest, WithoutAFaderTheBlastAndShakeStillHappen)
{
    g_fader = nullptr;
    EnemyShip* inside = enemyAt(ENEMY_FIGHTER, kShipAt + vec2(100, 0));
    nuke();
    EXPECT_FALSE(alive(inside));
    EXPECT_GT(g_game->shakeEnd, g_game->shakeStart);
}

} // namespace
