// A gun of the player's ship (Plasma, Laser): a Gun whose shots hit the session's enemies,
// through the player side's one hit test. Not for the enemies' guns, which are EnemyWeapons and
// hit the friends.
#pragma once

#include "play/Gun.h"

class Enemy;

// What the owner of a gun (the player's ship) does:
//  - makes it once g_game is set, since the gun takes its spark slices from g_game->sparkParticles;
//  - has it added to g_world (the session does that), where it draws its shots;
//  - every frame sets position to the ship's, calls fire(aim) when it wants a shot and can pay
//    more than power, pays what fire returns, and then calls update() (the laser before the plasma);
//  - deletes it before the session deletes sparkParticles, which owns the laser's emitters.
class Weapon : public Gun {
public:
    using Target = Enemy; // what collide finds
    static constexpr Team kTeam = TEAM_PLAYER;

    explicit Weapon(Kind kind);

    // The first enemy of g_game->enemies that the step from `from` to `to` runs into, and where.
    hit_struct collide(const vorlik::vec2& from, const vorlik::vec2& to, uint32_t shotIndex,
                       float shotRadius) override;
};
