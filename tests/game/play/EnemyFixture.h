// Fixture for enemy tests without a display: a session in g_game (not started, so no player and
// no scenes unless the test adds them), the engine clock at kStart with 10 ms frames, g_rand
// seeded with kSeed after the session is made, and plain friends the test places. Enemies made
// here are listed in the session, which deletes whatever is still listed in TearDown.
#pragma once

#include "base/GameRandom.h"
#include "platform/Vorlik.h"
#include "play/ActorLists.h"
#include "play/EnemyPlasma.h"
#include "play/EnemyTypes.h"
#include "play/GameSession.h"
#include "player/Friend.h"
#include "scene/Group.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

class EnemyTest : public ::testing::Test {
public:
    static constexpr uint32_t kStart = 100000; // ms
    static constexpr uint32_t kFrame = 10;     // ms: divides the enemy gun's period closely
    static constexpr unsigned kSeed = 4242;

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
    static float now() { return static_cast<float>(vorlik::Vorlik::currentTime); }

    // A friend at `at`, listed in the session's friends (never damaged: a plain Friend).
    Friend* friendAt(vorlik::vec2 at)
    {
        friends.push_back(std::make_unique<Friend>());
        Friend* f = friends.back().get();
        f->position = at;
        g_game->friends.push(f);
        return f;
    }

    // A new ship of kind, listed as a wave lists it, its group in the test's world, then put at
    // `at` (gun too) with its fade-in over.
    EnemyShip* shipAt(EnemyKind kind, vorlik::vec2 at)
    {
        EnemyShip* ship = makeEnemy(kind);
        g_game->enemies.push(ship);
        g_game->actors.push(ship);
        world.add(ship->drawable);
        ship->position = at;
        ship->gun->position = vorlik::vec3(at.x, at.y, 0.0f);
        ship->fadeStart = ship->fadeEnd = 0.0f;
        ship->scale = 1.0f;
        return ship;
    }

    // Whether ship is still listed as an enemy.
    static bool listed(const Enemy* ship)
    {
        for (const Enemy* e : g_game->enemies)
            if (e == ship) return true;
        return false;
    }

    Group world; // stands in for g_world: where the ships' groups sit
    std::vector<std::unique_ptr<Friend>> friends;
    uint32_t savedTime = 0;
    float savedSync = 0.0f;
};
