// Who owns what an enemy leaves behind, checked where a mistake would touch freed memory (run
// under AddressSanitizer): a ship deleted while its bolts fly and its sparks live, the explosion
// ring coming round onto particles of its slices, a ship that two shots reach in one frame, a
// dropped token whose catcher goes away during the glide, and the session deleted in the middle
// of a fight. Each test takes the dangerous path and then touches what would dangle.
#include "EnemyFixture.h"
#include "GameScenesTest.h"
#include "SessionFrame.h"
#include "math/vec4.h"
#include "play/Laser.h"
#include "play/Plasma.h"
#include "player/Player.h"
#include "player/Powerup.h"
#include "player/TextIndicator.h"
#include "scene/Particle.h"
#include "scene/ParticleSlice.h"
#include "scene/ParticleSystem.h"
#include "scene/Scene2D.h"
#include "scene/DirectScene2D.h"
#include "scene/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <set>

using vorlik::vec2;
using vorlik::vec3;

namespace {

// How many records of system's ring name slice as theirs.
uint32_t recordsOf(const ParticleSystem& system, const ParticleSlice* slice)
{
    uint32_t n = 0;
    for (uint32_t i = 0; i < system.capacity; ++i) n += system.particles[i].slice == slice ? 1 : 0;
    return n;
}

// Walks slice's list both ways and checks that it is whole: every particle names the slice, each
// link has its way back, and the count is right. Touches every particle it holds.
void expectWholeList(const ParticleSlice& slice)
{
    uint32_t forward = 0;
    const Particle* previous = nullptr;
    for (const Particle* p = slice.first; p != nullptr; p = p->next) {
        ASSERT_EQ(p->slice, &slice);
        ASSERT_EQ(p->prev, previous);
        previous = p;
        ++forward;
    }
    EXPECT_EQ(slice.last, previous);
    EXPECT_EQ(forward, slice.count);
}

// count short-lived particles into slice, taking the next records of system's ring.
void emitPlain(ParticleSystem& system, ParticleSlice* slice, uint32_t count)
{
    const vorlik::vec4 white(1, 1, 1, 1);
    system.emit(slice, count, 100, 200, vec2(50, 50), vec2(1, 0), white, white, 0, 4, 4, 4, 4, 0, 10, 0);
}

bool hasChild(const Container& scene, const Drawable* node)
{
    for (const Drawable* d = scene.first; d != nullptr; d = d->next)
        if (d == node) return true;
    return false;
}

// The floating texts of the session.
uint32_t indicators()
{
    uint32_t n = 0;
    for (Actor* actor : g_game->actors) n += dynamic_cast<TextIndicator*>(actor) != nullptr ? 1 : 0;
    return n;
}

class EnemyOwnershipTest : public EnemyTest {};

TEST_F(EnemyOwnershipTest, AShipDeletedWhileItsBoltsFlyAndItsSparksLiveLeavesNothingPointingAtIt)
{
    Friend* prey = friendAt(vec2(1000, 1000));
    prey->radius = 32.0f;
    Group preyHull; // where the sparks are drawn: just above it
    prey->drawable = &preyHull;
    world.add(&preyHull);
    EnemyShip* ship = shipAt(ENEMY_FIGHTER, vec2(1300, 1000));
    world.add(ship->gun); // where a wave puts it: drawn in the world
    const Drawable* gun = ship->gun;
    ship->gun->fireRate = Gun::kEveryCall; // a bolt every frame: some hit, some fly
    std::set<const ParticleSlice*> sparking;
    for (int frame = 0; frame < 60; ++frame) {
        advance(kFrame);
        ship->update();
    }
    for (const ParticleSlice* slice : ship->gun->sparks)
        if (slice->count > 0) sparking.insert(slice);
    ASSERT_FALSE(sparking.empty()) << "bolts hit the friend and it survived";
    uint32_t flying = 0;
    for (const auto& bolt : ship->gun->shots) flying += bolt.dies > vorlik::Vorlik::currentTime ? 1 : 0;
    ASSERT_GT(flying, 0u);
    ASSERT_TRUE(hasChild(world, *sparking.begin()));

    const std::vector<ParticleSlice*> slices(ship->gun->sparks.begin(), ship->gun->sparks.end());
    ship->dropChance = 0.0f;
    ship->explode(); // the ship, its gun, its bolts and its slices are gone

    EXPECT_FALSE(hasChild(world, gun)) << "the gun left the world with its bolts";
    ParticleSystem& sparks = *g_game->sparkParticles;
    for (const ParticleSlice* slice : slices) {
        EXPECT_EQ(recordsOf(sparks, slice), 0u) << "a spark still names a deleted slice";
        EXPECT_FALSE(hasChild(world, slice));
    }
    // Twice round the ring: every record that a deleted slice held is taken again.
    ParticleSlice* fresh = sparks.createSlice(ParticleSystem::kLeaveWhenEmpty, ParticleSystem::kKeepWhenEmpty);
    emitPlain(sparks, fresh, 2 * sparks.capacity);
    EXPECT_EQ(fresh->count, sparks.capacity);
    expectWholeList(*fresh);
    delete fresh;
}

TEST_F(EnemyOwnershipTest, TheExplosionRingComingRoundTakesTheOldestParticlesOfItsSlicesAndKeepsThemWhole)
{
    ParticleSystem& ring = *g_game->explosionParticles;
    ParticleSlice* const blasts = g_game->explosionSlice;
    // A slice of the same ring that holds particles and is then deleted: the ring must not
    // write to it when it takes those records again.
    ParticleSlice* gone = ring.createSlice(ParticleSystem::kLeaveWhenEmpty, ParticleSystem::kKeepWhenEmpty);
    emitPlain(ring, gone, 300);
    delete gone;

    // 192 particles a ship: 25 ships go round the 4096 records and into the explosions' own.
    for (int n = 0; n < 25; ++n) {
        EnemyShip* ship = shipAt(ENEMY_FIGHTER, vec2(200.0f + 100.0f * n, 700));
        ship->dropChance = 0.0f;
        ship->explode();
        advance(kFrame);
    }
    EXPECT_EQ(blasts->count, ring.capacity) << "every record of the ring is an explosion's";
    EXPECT_EQ(recordsOf(ring, blasts), ring.capacity);
    expectWholeList(*blasts);
    // Oldest first. Of the 300 + 25 x 192 particles made, the ring kept the last 4096: from the
    // middle of the fourth explosion on.
    EXPECT_EQ(blasts->first->birth, EnemyTest::kStart + 3 * kFrame);
    EXPECT_EQ(blasts->last->birth, vorlik::Vorlik::currentTime - kFrame);
}

class SameFrameHitsTest : public EnemyOwnershipTest {
protected:
    // A Fighter at (1100, 1000) with hitPoints left, a laser at (1000, 1000) with two live
    // beams toward it, and a plasma whose two bolts leave from inside the ship's circle, so
    // every shot would reach the ship in the next frame.
    void SetUp() override
    {
        EnemyOwnershipTest::SetUp();
        ship = shipAt(ENEMY_FIGHTER, vec2(1100, 1000));
        ship->dropChance = 0.0f;
        laser = std::make_unique<Laser>();
        laser->position = vec3(1000, 1000, 0);
        laser->fireRate = Gun::kEveryCall;
        laser->fire(vec2(1, 0));
        laser->fire(vec2(1, 0));
        plasma = std::make_unique<Plasma>();
        plasma->position = vec3(1075, 1000, 0);
        plasma->fireRate = Gun::kEveryCall;
        plasma->fire(vec2(1, 0));
        plasma->fire(vec2(1, 0));
        advance(kFrame);
    }
    void TearDown() override
    {
        laser.reset();
        plasma.reset();
        EnemyOwnershipTest::TearDown();
    }

    // So many bolts are still in flight, one frame's step on.
    void expectBoltsFlewOn(uint32_t expected)
    {
        uint32_t flying = 0;
        for (const auto& bolt : plasma->shots) {
            if (bolt.dies <= vorlik::Vorlik::currentTime) continue;
            ++flying;
            EXPECT_FLOAT_EQ(bolt.position.x, 1075.0f + 7.5f);
        }
        EXPECT_EQ(flying, expected);
    }
    // The beams from `first` on reach their full length, past where the ship was.
    void expectBeamsPassedFrom(uint32_t first)
    {
        for (uint32_t i = first; i < 2; ++i) EXPECT_FLOAT_EQ(laser->beams[i].end.x, 1000.0f + Laser::kReach) << i;
    }
    // The ship died once: one explosion, one popup, and it left the lists.
    void expectOneDeath()
    {
        EXPECT_EQ(g_game->enemies.count, 0u);
        EXPECT_EQ(g_game->explosionSlice->count, 192u);
        EXPECT_EQ(indicators(), 1u);
    }

    EnemyShip* ship = nullptr;
    std::unique_ptr<Laser> laser;
    std::unique_ptr<Plasma> plasma;
};

TEST_F(SameFrameHitsTest, ABeamThatKillsLeavesTheOtherBeamAndBothBoltsNothingToHit)
{
    ship->hitPoints = 0.5f; // one frame of one beam, at least 0.65, kills it
    // The ship's own order: the laser first, then the plasma.
    laser->updateToward(vec2(2000, 1000));
    plasma->update();
    expectOneDeath();
    EXPECT_FLOAT_EQ(laser->beams[0].end.x, 1100.0f - 32.0f) << "the first beam stopped at the ship's edge";
    expectBeamsPassedFrom(1);
    expectBoltsFlewOn(2);
}

TEST_F(SameFrameHitsTest, ABoltThatKillsLeavesTheOtherBoltAndBothBeamsNothingToHit)
{
    ship->hitPoints = 4.0f; // one bolt, at least 5, kills it; a beam's frame does not
    plasma->update();
    laser->updateToward(vec2(2000, 1000));
    expectOneDeath();
    expectBeamsPassedFrom(0);
    expectBoltsFlewOn(1); // the one that killed is used up
}

// A started session with the real scenes, the clock and g_rand set by the test, and the
// player's ship catching nothing.
class SessionOwnershipTest : public GameScenesTest {
protected:
    static constexpr uint32_t kStart = 40000; // ms
    static constexpr uint32_t kFrameMs = 16;
    static constexpr unsigned kSeed = 515;

    void SetUp() override
    {
        GameScenesTest::SetUp();
        if (IsSkipped()) return;
        vorlik::Vorlik::currentTime = kStart;
        vorlik::Vorlik::sync = kFrameMs * 0.001f;
        g_rand.seed(kSeed);
        g_game = new GameSession();
        g_game->start();
        player = g_game->player;
        player->pickupRange = 0.0f;
    }

    void frame() { playSessionFrame(*input, kFrameMs); }
    // Runs frames until the first wave is there.
    void untilTheFirstWave()
    {
        for (int i = 0; i < 400 && g_game->wave == 0; ++i) frame();
        ASSERT_EQ(g_game->wave, 1);
    }
    // Puts an enemy of the wave, with its gun, at offset from the ship, at rest and hunting.
    Enemy* enemyNearTheShip(uint32_t index, const vec2& offset)
    {
        Enemy* e = g_game->enemies[index];
        e->position = player->position + offset;
        e->gun->position = vec3(e->position.x, e->position.y, 0);
        e->velocity = vec2(0, 0);
        return e;
    }

    Player* player = nullptr;
};

TEST_F(SessionOwnershipTest, ATokenWhoseCatcherIsDeletedDuringTheGlideLandsWhereItLastSawIt)
{
    untilTheFirstWave();
    // A wingman of the player's side, far from the ship, and a wreck right beside it.
    auto* wingman = new Friend();
    wingman->position = player->position + vec2(900, 0);
    g_game->friends.push(wingman);
    Enemy* wreck = enemyNearTheShip(0, vec2(900, 40));
    wreck->dropChance = 1.0f;
    EXPECT_FALSE(wreck->damage(1e6f));
    ASSERT_EQ(g_game->powerups.count, 1u);
    Powerup* token = g_game->powerups[0];
    token->kind = POWERUP_UPGRADE;
    token->velocity = vec2(0, 0);

    frame();
    ASSERT_TRUE(token->collected);
    ASSERT_EQ(token->collector, wingman);
    wingman->position += vec2(30, 0);
    frame();
    const vec2 lastSeen = wingman->position;
    removeFromList(g_game->friends, wingman);
    delete wingman; // the sanitizer build fails on any later read of it
    for (int i = 0; i < 60 && g_game->powerups.count > 0; ++i) frame();
    EXPECT_EQ(g_game->powerups.count, 0u) << "the token landed and applied";
    EXPECT_EQ(g_game->reserve % 10, 0);
    EXPECT_GT(g_game->reserve, 0);
    // Its green message floats where the token landed: where the wingman was last seen.
    bool found = false;
    for (Actor* actor : g_game->actors) {
        auto* t = dynamic_cast<TextIndicator*>(actor);
        if (t == nullptr || t->text->color[1] != 1.0f || t->text->color[0] == 1.0f) continue;
        found = true;
        EXPECT_NEAR(t->position.x, lastSeen.x, 0.01f);
        EXPECT_NEAR(t->position.y, lastSeen.y - 35.0f, 2.0f); // it has risen a few frames
    }
    EXPECT_TRUE(found);
}

TEST_F(SessionOwnershipTest, DeletingTheSessionInTheMiddleOfAFightEmptiesBothScenes)
{
    untilTheFirstWave();
    // Three ships round the player's ship, shooting at it; one is too tough to die, and the
    // ship fires both guns at it.
    Enemy* tough = enemyNearTheShip(0, vec2(250, 0));
    tough->hitPoints = 1e6f;
    enemyNearTheShip(1, vec2(0, 300));
    enemyNearTheShip(2, vec2(-300, 0));
    // A wreck with a token and a popup.
    Enemy* wreck = enemyNearTheShip(3, vec2(0, -700));
    wreck->dropChance = 1.0f;
    EXPECT_FALSE(wreck->damage(1e6f));

    input->mouseAt(1000, 360); // to the right of the ship, at the tough one
    input->button(1, true);
    input->button(3, true);
    for (int i = 0; i < 100; ++i) frame(); // the second bolts of the ships nearby leave at 1.43 s

    // Everything is alive at once.
    uint32_t enemyBolts = 0;
    for (const Enemy* e : g_game->enemies)
        for (const auto& bolt : e->gun->shots) enemyBolts += bolt.dies > vorlik::Vorlik::currentTime ? 1 : 0;
    EXPECT_GT(enemyBolts, 0u);
    uint32_t sparks = 0;
    for (uint32_t i = 0; i < g_game->sparkParticles->capacity; ++i)
        sparks += g_game->sparkParticles->particles[i].slice != nullptr ? 1 : 0;
    EXPECT_GT(sparks, 0u);
    EXPECT_EQ(g_game->powerups.count, 1u);
    EXPECT_GT(indicators(), 0u);
    EXPECT_GT(g_game->explosionSlice->count, 0u);
    EXPECT_LT(player->hull, 125.0f) << "enemy bolts hit the ship";

    delete g_game;
    g_game = nullptr;
    // Nothing the session made is left in a scene; walking them touches every node left.
    uint32_t left = 0;
    for (const Drawable* d = g_world->first; d != nullptr; d = d->next) ++left;
    for (const Drawable* d = g_hud->first; d != nullptr; d = d->next) ++left;
    EXPECT_EQ(left, 0u);
    EXPECT_EQ(g_world->count, 0u);
    EXPECT_EQ(g_hud->count, 0u);
}

} // namespace
