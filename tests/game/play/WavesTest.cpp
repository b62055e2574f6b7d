// The waves on a started session: what each wave spawns, that leftovers stay, when the next
// wave comes after the last kill, and where the new ships sit in the world's draw order.
#include "play/GameSession.h"

#include "GameScenesTest.h"
#include "play/Enemy.h"
#include "play/EnemyPlasma.h"
#include "play/EnemyTypes.h"
#include "play/Laser.h"
#include "play/Plasma.h"
#include "play/ActorLists.h"
#include "player/Player.h"
#include "scene/ParticleSlice.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <vector>

using vorlik::Vorlik;

namespace {

constexpr uint32_t kFrameMs = 16;
constexpr uint32_t kStart = 30000; // ms

class WavesTest : public GameScenesTest {
protected:
    void SetUp() override
    {
        GameScenesTest::SetUp();
        if (IsSkipped()) return;
        Vorlik::currentTime = kStart;
        Vorlik::sync = kFrameMs * 0.001f;
        g_game = new GameSession();
        g_game->start();
        g_rand.seed(99);
    }

    static void frame()
    {
        Vorlik::currentTime += kFrameMs;
        Vorlik::sync = kFrameMs * 0.001f;
        g_game->frame();
    }
    static float now() { return static_cast<float>(Vorlik::currentTime); }

    // Starts wave n on its own, as if waves 1 to n - 1 had been played without spawning.
    static void startWaveNumber(int32_t n)
    {
        g_game->wave = n - 1;
        g_game->toughness = static_cast<float>(std::pow(1.1, n - 1));
        g_game->startWave();
    }

    // Ships of each type among enemies[from ...], in list order of first appearance.
    static std::vector<std::pair<EnemyKind, int>> batches(uint32_t from = 0)
    {
        std::vector<std::pair<EnemyKind, int>> runs;
        for (uint32_t i = from; i < g_game->enemies.count; ++i) {
            const EnemyKind kind = kindOf(g_game->enemies[i]);
            if (runs.empty() || runs.back().first != kind) runs.emplace_back(kind, 0);
            ++runs.back().second;
        }
        return runs;
    }
    static EnemyKind kindOf(Enemy* enemy)
    {
        const EnemyType* row = &static_cast<EnemyShip*>(enemy)->type;
        return static_cast<EnemyKind>(row - kEnemyTypes);
    }
};

using Runs = std::vector<std::pair<EnemyKind, int>>;

TEST_F(WavesTest, TheFirstWaveBringsThirteenFightersAtToughnessOnePointOne)
{
    while (g_game->wave == 0) frame();
    EXPECT_EQ(batches(), Runs({{ENEMY_FIGHTER, 13}}));
    for (Enemy* enemy : g_game->enemies) {
        EXPECT_FLOAT_EQ(enemy->hitPoints, 33.0f);
        EXPECT_EQ(enemy->scoreValue, 55);
    }
    EXPECT_EQ(g_game->actors.count, 2u + 1u + 13u); // score counter, ship, announcement, ships
}

TEST_F(WavesTest, EachWaveSpawnsItsBatchesInTableOrder)
{
    const struct {
        int32_t wave;
        Runs runs;
    } cases[] = {
        {3, {{ENEMY_FIGHTER, 18}, {ENEMY_FIGHTER2, 4}}},
        {6, {{ENEMY_FIGHTER, 25}, {ENEMY_FIGHTER2, 10}, {ENEMY_HAMMERHEAD, 5}}},
        {13, {{ENEMY_FIGHTER, 42}, {ENEMY_FIGHTER2, 26}, {ENEMY_HAMMERHEAD, 23}, {ENEMY_PROBE, 35}, {ENEMY_PROBE2, 23}}},
        {15,
         {{ENEMY_FIGHTER, 47},
          {ENEMY_FIGHTER2, 30},
          {ENEMY_HAMMERHEAD, 28},
          {ENEMY_PROBE, 41},
          {ENEMY_PROBE2, 29},
          {ENEMY_HAMMERHEAD2, 3}}},
    };
    for (const auto& c : cases) {
        const uint32_t before = g_game->enemies.count;
        startWaveNumber(c.wave);
        EXPECT_EQ(batches(before), c.runs) << "wave " << c.wave;
    }
}

TEST_F(WavesTest, WavesNineSeventeenAndTwentyBringEightyFiveTwoHundredThirtyOneAndTwoHundredEightySixShips)
{
    for (const auto& [wave, ships] : {std::pair<int32_t, uint32_t>{9, 85}, {17, 231}, {20, 286}}) {
        const uint32_t before = g_game->enemies.count;
        startWaveNumber(wave);
        EXPECT_EQ(g_game->enemies.count - before, ships) << "wave " << wave;
    }
}

TEST_F(WavesTest, ANewWavesShipsHaveTheNewToughness)
{
    startWaveNumber(10);
    EXPECT_FLOAT_EQ(g_game->toughness, static_cast<float>(std::pow(1.1, 10)));
    for (Enemy* enemy : g_game->enemies) {
        const EnemyType& type = static_cast<EnemyShip*>(enemy)->type;
        EXPECT_FLOAT_EQ(enemy->hitPoints, type.hitPoints * g_game->toughness);
        EXPECT_EQ(enemy->scoreValue, static_cast<int32_t>(type.scoreValue * g_game->toughness));
    }
}

TEST_F(WavesTest, TenShipsLeftFromWaveOnePlusWaveTwosFifteenMakeTwentyFive)
{
    while (g_game->wave == 0) frame();
    for (int i = 0; i < 3; ++i) g_game->enemies[0]->explode();
    ASSERT_EQ(g_game->enemies.count, 10u);
    g_game->nextWaveTime = now(); // the timer runs out in the next frame
    frame();
    EXPECT_EQ(g_game->wave, 2);
    EXPECT_EQ(g_game->enemies.count, 25u);
}

TEST_F(WavesTest, KillingTheLastEnemyOfWaveFourBetweenFramesStartsWaveFiveInTheNextFrame)
{
    startWaveNumber(4);
    while (g_game->enemies.count > 0) g_game->enemies[0]->explode();
    frame();
    EXPECT_EQ(g_game->wave, 5);
    EXPECT_FLOAT_EQ(g_game->nextWaveTime, now() + 90040.0f);
    EXPECT_EQ(g_game->enemies.count, 31u); // 23 + 8
}

// An actor that kills a ship when the session's walk reaches it, then leaves.
class Executioner : public Actor {
public:
    explicit Executioner(Enemy* victim) : victim(victim) {}
    void update() override
    {
        removeFromList(g_game->actors, static_cast<Actor*>(this));
        victim->damage(1e9f);
        delete this;
    }
    Enemy* victim;
};

TEST_F(WavesTest, AKillDuringTheActorWalkStartsTheNextWaveInThatSameFrame)
{
    startWaveNumber(4);
    while (g_game->enemies.count > 1) g_game->enemies[0]->explode();
    g_game->actors.push(new Executioner(g_game->enemies[0]));
    frame();
    EXPECT_EQ(g_game->wave, 5) << "the wave rule runs after the walk in which the last ship died";
    EXPECT_FLOAT_EQ(g_game->nextWaveTime, now() + 90040.0f);
}

TEST_F(WavesTest, AfterAWaveStartsEveryEnemyIsDrawnAboveTheShipAndTheGunsAboveThemAll)
{
    while (g_game->wave == 0) frame();
    g_game->enemies[0]->explode();
    g_game->nextWaveTime = now();
    frame(); // wave 2: the 12 old ships and the 15 new ones are drawn again in list order
    ASSERT_EQ(g_game->wave, 2);
    const Player* player = g_game->player;
    EXPECT_EQ(g_world->last, static_cast<Drawable*>(player->laser));
    EXPECT_EQ(g_world->last->prev, static_cast<Drawable*>(player->plasma));

    std::map<const Drawable*, int> order;
    int index = 0;
    for (const Drawable* node = g_world->first; node != nullptr; node = node->next) order[node] = index++;
    int previous = order.at(player->drawable);
    for (Enemy* enemy : g_game->enemies) {
        ASSERT_EQ(order.count(enemy->drawable), 1u);
        EXPECT_GT(order.at(enemy->drawable), previous) << "ships in list order, all above the player's ship";
        previous = order.at(enemy->drawable);
        EXPECT_EQ(enemy->gun->parent, static_cast<Container*>(g_world)) << "each ship's gun draws in the world";
    }
}

TEST_F(WavesTest, AnEnemysExplosionIsDrawnAboveEveryShipAndGun)
{
    while (g_game->wave == 0) frame();
    ASSERT_EQ(g_world->last, static_cast<Drawable*>(g_game->player->laser));
    g_game->enemies[3]->explode();
    EXPECT_EQ(g_world->last, static_cast<Drawable*>(g_game->explosionSlice));
}

TEST_F(WavesTest, ADeadShipWithNoLivesEndsTheGameAndNoWaveFollowsWithEnemiesGone)
{
    while (g_game->wave == 0) frame();
    while (g_game->enemies.count > 0) g_game->enemies[0]->explode();
    g_game->lives = 0;
    g_game->player->damage(1e9f);
    frame();
    EXPECT_FALSE(g_game->playing);
    EXPECT_EQ(g_game->wave, 1);
    for (int i = 0; i < 100; ++i) frame();
    EXPECT_EQ(g_game->wave, 1);
    EXPECT_EQ(g_game->enemies.count, 0u);
}

} // namespace
