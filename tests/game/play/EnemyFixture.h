// Fixture for enemy tests without a display: the guns' fixture (a session in g_game that is not
// started, so no player and no scenes; the clock at kStart with 10 ms frames; g_rand seeded
// with kSeed) plus plain friends the test places and real enemy ships listed as a wave lists
// them. Whatever is still listed when the test ends is deleted with the session.
#pragma once

#include "WeaponTestDoubles.h"
#include "play/EnemyPlasma.h"
#include "play/EnemyTypes.h"
#include "player/Friend.h"

#include <memory>
#include <vector>

class EnemyTest : public WeaponTest {
protected:
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

    std::vector<std::unique_ptr<Friend>> friends; // outlive the session's list of them
};
