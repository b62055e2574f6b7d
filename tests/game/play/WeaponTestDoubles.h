// Test doubles for the guns of both sides: target ships that log the hits they take, one of the
// enemy side that dies like an enemy and one of the player's side that dies like the player's
// ship, a sink that keeps every quad batch a gun sends, view lists with chosen offsets, and a
// fixture with a session, the engine clock and g_rand set by the test.
#pragma once

#include "base/GameRandom.h"
#include "core/Random.h"
#include "core/Stack.h"
#include "math/mat2.h"
#include "math/scalar.h"
#include "math/vec2.h"
#include "math/vec3.h"
#include "math/vec4.h"
#include "platform/Vorlik.h"
#include "play/ActorLists.h"
#include "play/Enemy.h"
#include "play/GameSession.h"
#include "play/Gun.h"
#include "player/Friend.h"
#include "scene/Drawable.h"
#include "scene/Group.h"
#include "scene/Particle.h"
#include "scene/ParticleSlice.h"
#include "scene/ParticleSystem.h"
#include "scene/SceneState.h"
#include "scene/ViewRect.h"

#include <gtest/gtest.h>

#include <cmath>
#include <initializer_list>
#include <set>
#include <vector>

// A drawable that draws nothing: where a target ship sits in its scene.
class Hull : public Drawable {
public:
    void draw(const SceneState&) override {}
};

// A round ship of the enemy side. Its hull is added to the given scene; it lists itself in
// g_game's enemies and actors and takes itself out again when deleted. Every hit is logged in
// hits, which outlives the ship; a hit that takes hitPoints to 0 or below explodes it.
class TargetShip : public Enemy {
public:
    TargetShip(Group& scene, vorlik::vec2 at, float shipRadius, float points, std::vector<float>& hitLog)
        : hitPoints(points), hits(hitLog)
    {
        position = at;
        radius = shipRadius;
        drawable = &hull;
        scene.add(&hull);
        g_game->enemies.push(this);
        g_game->actors.push(this);
    }
    ~TargetShip() override
    {
        removeFromList(g_game->enemies, static_cast<Enemy*>(this));
        removeFromList(g_game->actors, static_cast<Actor*>(this));
    }

    bool damage(float amount) override
    {
        hits.push_back(amount);
        hitPoints -= amount;
        if (hitPoints > 0.0f) return true;
        explode();
        return false;
    }
    void explode() override { delete this; }

    Hull hull;
    float hitPoints;
    std::vector<float>& hits;
};

// A round ship of the player's side. Its body is added to the given scene; it lists itself in
// g_game's friends and actors and takes itself out again when deleted. Every hit is logged in
// hits, which outlives the ship; a hit that takes hull to 0 or below kills it, and like the
// player's ship a dead friend leaves the friends (enemies stop shooting at it) but lives on.
class TargetFriend : public Friend {
public:
    TargetFriend(Group& scene, vorlik::vec2 at, float shipRadius, float hullPoints, std::vector<float>& hitLog)
        : hits(hitLog)
    {
        position = at;
        radius = shipRadius;
        hull = hullPoints;
        drawable = &body;
        scene.add(&body);
        g_game->friends.push(this);
        g_game->actors.push(this);
    }
    ~TargetFriend() override
    {
        removeFromList(g_game->friends, static_cast<Friend*>(this));
        removeFromList(g_game->actors, static_cast<Actor*>(this));
    }

    bool damage(float amount) override
    {
        hits.push_back(amount);
        hull -= amount;
        if (hull > 0.0f) return true;
        removeFromList(g_game->friends, static_cast<Friend*>(this));
        return false;
    }

    Hull body;
    std::vector<float>& hits;
};

struct RecordedQuads {
    vorlik::Texture* texture;
    std::vector<Gun::QuadVertex> vertices;
    vorlik::mat2 modelView;
};

// Keeps a copy of every batch a gun's drawShots sends, in order.
class QuadRecorder : public Gun::QuadSink {
public:
    void drawQuads(vorlik::Texture* texture, const Gun::QuadVertex* vertices, uint32_t count,
                   const vorlik::mat2& modelView) override
    {
        batches.push_back(
            RecordedQuads{texture, std::vector<Gun::QuadVertex>(vertices, vertices + count), modelView});
    }

    std::vector<RecordedQuads> batches;
};

// A frame's state with one view rectangle per offset, in that order, under a camera transform
// that moves the world by (-100, -50).
struct ViewCopies {
    vorlik::Stack<ViewRect> rects{9};
    SceneState state{};

    explicit ViewCopies(std::initializer_list<vorlik::vec2> offsets)
    {
        for (const vorlik::vec2& offset : offsets) rects.push(ViewRect{-640, -360, 1280, 720, offset});
        state.views = &rects;
        state.transform.translate(-100.0f, -50.0f);
    }

    // The state's transform moved by view i's offset.
    vorlik::mat2 modelView(uint32_t i) const
    {
        vorlik::mat2 m = state.transform;
        m.translate(rects[i].offset);
        return m;
    }
};

// Checks one spark of a bolt's hit at `hit` whose spray points along `outward`: born within 1
// of the hit point; its own travel (its way from start to end less its scatter, which the end
// point gets once more) 5 to 85 long and within 30 degrees of outward; a life of 300 to 450 ms;
// orange; 10 to 16 wide at birth and 4 to 6 at death.
inline void expectBoltSpark(const Particle& p, vorlik::vec2 hit, vorlik::vec2 outward)
{
    const vorlik::vec2 scatter = p.start - hit;
    EXPECT_LE(scatter.length(), 1.0f + 1e-4f);
    const vorlik::vec2 travel = p.end - p.start - scatter;
    EXPECT_GE(travel.length(), 5.0f - 1e-3f);
    EXPECT_LE(travel.length(), 85.0f + 1e-3f);
    const float cosine = travel.normalized().dot(outward.normalized());
    EXPECT_GE(cosine, std::cos(vorlik::degreesToRadians(30.0f)) - 1e-4f) << "outside the 60 degree cone";
    EXPECT_GE(p.death - p.birth, 300u);
    EXPECT_LT(p.death - p.birth, 450u);
    EXPECT_GE(p.color.x, 0.6f);
    EXPECT_LE(p.color.x, 0.9f);
    EXPECT_GE(p.color.y, 0.2f);
    EXPECT_LE(p.color.y, 0.3f);
    EXPECT_GE(p.color.z, 0.05f);
    EXPECT_LE(p.color.z, 0.1f);
    EXPECT_GE(p.sizeStart, 10.0f);
    EXPECT_LE(p.sizeStart, 16.0f);
    EXPECT_GE(p.sizeEnd, 4.0f);
    EXPECT_LE(p.sizeEnd, 6.0f);
}

// A session in g_game (so the guns find their spark system and their targets), the clock at
// kStart with 10 ms frames, and g_rand seeded with kSeed once the session is made. Guns made
// by a test must be deleted before TearDown deletes the session. The world group stands in
// for g_world. Ships of either side made by a test are left to the session, which deletes them.
class WeaponTest : public ::testing::Test {
public:
    static constexpr uint32_t kStart = 100000; // ms
    static constexpr uint32_t kFrame = 10;     // ms: divides both guns' periods
    static constexpr unsigned kSeed = 1234;

protected:
    void SetUp() override
    {
        savedTime = vorlik::Vorlik::currentTime;
        savedSync = vorlik::Vorlik::sync;
        vorlik::Vorlik::currentTime = kStart;
        vorlik::Vorlik::sync = kFrame / 1000.0f;
        g_game = new GameSession;
        g_rand.seed(kSeed); // after the session, which draws its starfield from it
    }
    void TearDown() override
    {
        delete g_game;
        g_game = nullptr;
        vorlik::Vorlik::currentTime = savedTime;
        vorlik::Vorlik::sync = savedSync;
        g_rand.seed(kStaticRandomSeed);
    }

    // The clock moves on by ms, and sync with it.
    static void advance(uint32_t ms)
    {
        vorlik::Vorlik::currentTime += ms;
        vorlik::Vorlik::sync = static_cast<float>(ms) / 1000.0f;
    }
    static uint32_t now() { return vorlik::Vorlik::currentTime; }

    TargetShip* target(vorlik::vec2 at, float radius, float hitPoints)
    {
        return new TargetShip(world, at, radius, hitPoints, hits);
    }
    TargetFriend* friendShip(vorlik::vec2 at, float radius, float hull)
    {
        return new TargetFriend(world, at, radius, hull, friendHits);
    }
    ParticleSystem& sparks() { return *g_game->sparkParticles; }
    // Every particle of the spark system that a slice holds.
    uint32_t liveSparks()
    {
        uint32_t n = 0;
        for (uint32_t i = 0; i < sparks().capacity; ++i) n += sparks().particles[i].slice != nullptr ? 1 : 0;
        return n;
    }
    // The spark system's records that name slice as theirs.
    uint32_t recordsHeldBy(const ParticleSlice* slice)
    {
        uint32_t n = 0;
        for (uint32_t i = 0; i < sparks().capacity; ++i) n += sparks().particles[i].slice == slice ? 1 : 0;
        return n;
    }
    // count plain particles through the spark system's default slice, recycling the oldest records.
    void flood(uint32_t count)
    {
        const vorlik::vec4 white(1, 1, 1, 1);
        sparks().emit(nullptr, count, 1000, 1000, vorlik::vec2(), vorlik::vec2(), white, white, 0, 16, 16, 16, 16, 0,
                      0, 0);
    }

    // A plasma gun of either side as made: `slots` free slots (count == capacity), the search at
    // the first, and each slot with its own spark slice of the session's spark system, out of
    // every scene, leaving it when empty and never deleting itself.
    template <typename PlasmaGunT>
    void expectFreshRing(const PlasmaGunT& gun, uint32_t slots)
    {
        EXPECT_EQ(gun.shots.count, slots);
        EXPECT_EQ(gun.shots.capacity, slots);
        for (const auto& slot : gun.shots) EXPECT_EQ(slot.dies, 0u);
        EXPECT_EQ(gun.ringIndex, 0u);
        ASSERT_EQ(gun.sparks.count, slots);
        const std::set<ParticleSlice*> distinct(gun.sparks.begin(), gun.sparks.end());
        EXPECT_EQ(distinct.size(), slots);
        for (ParticleSlice* slice : gun.sparks) {
            EXPECT_EQ(slice->system, &sparks());
            EXPECT_EQ(slice->parent, nullptr);
            EXPECT_TRUE(slice->removeWhenEmpty);
            EXPECT_FALSE(slice->deleteWhenEmpty);
        }
    }
    // Fills every slot of a new plasma gun of either side with a bolt from (100, 200), then a
    // frame later fires one more from (300, 400). The ring must have doubled: the bolts in
    // flight and their slices kept, the new bolt in the first new slot with the search on it,
    // the other new slots free, and a new slice of the session's spark system for each new slot.
    template <typename PlasmaGunT>
    void fillTheRingAndFireOnceMore(PlasmaGunT& gun)
    {
        const uint32_t slots = gun.shots.count;
        gun.fireRate = Gun::kEveryCall;
        gun.position = vorlik::vec3(100, 200, 0);
        for (uint32_t i = 0; i < slots; ++i) gun.fire(vorlik::vec2(1, 0));
        EXPECT_EQ(gun.shots.count, slots);
        EXPECT_EQ(gun.ringIndex, slots - 1);
        const std::vector<ParticleSlice*> before(gun.sparks.begin(), gun.sparks.end());

        advance(kFrame);
        gun.position = vorlik::vec3(300, 400, 0);
        gun.fire(vorlik::vec2(1, 0));
        EXPECT_EQ(gun.shots.count, 2 * slots);
        EXPECT_EQ(gun.shots.capacity, 2 * slots);
        ASSERT_EQ(gun.sparks.count, 2 * slots);
        EXPECT_EQ(gun.ringIndex, slots);
        EXPECT_EQ(gun.shots[slots].position, vorlik::vec2(300, 400));
        EXPECT_EQ(gun.shots[slots].born, kStart + kFrame);
        for (uint32_t i = 0; i < slots; ++i) {
            EXPECT_EQ(gun.shots[i].born, kStart) << i;
            EXPECT_EQ(gun.sparks[i], before[i]) << i;
        }
        for (uint32_t i = slots + 1; i < 2 * slots; ++i) EXPECT_EQ(gun.shots[i].dies, 0u) << i;
        const std::set<ParticleSlice*> distinct(gun.sparks.begin(), gun.sparks.end());
        EXPECT_EQ(distinct.size(), 2 * slots);
        for (uint32_t i = slots; i < 2 * slots; ++i) EXPECT_EQ(gun.sparks[i]->system, &sparks()) << i;
    }

    Group world;
    std::vector<float> hits;       // by the enemy side's targets
    std::vector<float> friendHits; // by the player's side's targets
    uint32_t savedTime = 0;
    float savedSync = 0.0f;
};
