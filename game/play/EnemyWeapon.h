// A gun of an enemy ship (EnemyPlasma): a Gun whose shots hit the session's friends, the
// player's ship among them, through the enemy side's one hit test. The enemy-side twin of
// Weapon, with the same defaults; not for the player's guns, which hit the enemies.
#pragma once

#include "play/Gun.h"

class Friend;

// What the owner of a gun (an enemy ship) does:
//  - makes it once g_game is set, since the gun takes its spark slices from g_game->sparkParticles;
//  - adds it to g_world when the ship spawns, where it draws its shots;
//  - every frame places it at the ship's position, calls fire(direction) when a friend is in
//    range (the gun's own rate decides whether a shot leaves; what fire returns is not paid by
//    anyone), and then calls update();
//  - deletes it with the ship, which ends its shots in flight and their sparks.
class EnemyWeapon : public Gun {
public:
    using Target = Friend; // what collide finds
    static constexpr Team kTeam = TEAM_ENEMY;

    explicit EnemyWeapon(Kind kind);

    // The first friend of g_game->friends that the step from `from` to `to` runs into, and where.
    hit_struct collide(const vorlik::vec2& from, const vorlik::vec2& to, uint32_t shotIndex,
                       float shotRadius) override;
};
