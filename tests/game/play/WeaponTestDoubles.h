// Test doubles for the guns: a target ship that logs the hits it takes and dies like an enemy
// (it leaves the session's lists when deleted), a sink that keeps every quad batch a gun sends,
// view lists with chosen offsets, and a fixture with a session, the engine clock and g_rand
// set by the test.
#pragma once

#include "base/GameRandom.h"
#include "core/Random.h"
#include "core/Stack.h"
#include "math/mat2.h"
#include "math/vec2.h"
#include "platform/Vorlik.h"
#include "play/ActorLists.h"
#include "play/Enemy.h"
#include "play/GameSession.h"
#include "play/Weapon.h"
#include "scene/Drawable.h"
#include "scene/Group.h"
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

struct RecordedQuads {
    vorlik::Texture* texture;
    std::vector<Weapon::QuadVertex> vertices;
    vorlik::mat2 modelView;
};

// Keeps a copy of every batch a gun's drawShots sends, in order.
class QuadRecorder : public Weapon::QuadSink {
public:
    void drawQuads(vorlik::Texture* texture, const Weapon::QuadVertex* vertices, uint32_t count,
                   const vorlik::mat2& modelView) override
    {
        batches.push_back(
            RecordedQuads{texture, std::vector<Weapon::QuadVertex>(vertices, vertices + count), modelView});
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

// A session in g_game (so the guns find their spark system and the enemies), the clock at
// kStart with 10 ms frames, and g_rand seeded with kSeed once the session is made. Guns made
// by a test must be deleted before TearDown deletes the session. The world group stands in
// for g_world.
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
    ParticleSystem& sparks() { return *g_game->sparkParticles; }

    Group world;
    std::vector<float> hits;
    uint32_t savedTime = 0;
    float savedSync = 0.0f;
};
