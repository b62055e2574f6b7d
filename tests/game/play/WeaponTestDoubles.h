// Test doubles for the guns of both sides: target ships that log the hits they take, one of the
// enemy side that dies like an enemy and one of the player's side that dies like the player's
// ship, a sink that keeps every quad batch a gun sends, view lists with chosen offsets, and a
// fixture with a session, the engine clock and g_rand set by the test.
#pragma once

#include "base/GameRandom.h"
#include "core/Random.h"
#include "core/Stack.h"
#include "math/mat2.h"
#include "math/vec2.h"
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
#include "scene/ParticleSystem.h"
#include "scene/SceneState.h"
#include "scene/ViewRect.h"

#include <gtest/gtest.h>

#include <initializer_list>
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

    Group world;
    std::vector<float> hits;       // by the enemy side's targets
    std::vector<float> friendHits; // by the player's side's targets
    uint32_t savedTime = 0;
    float savedSync = 0.0f;
};
