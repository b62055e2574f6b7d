#include "play/EnemyWeapon.h"

#include "play/GameSession.h"
#include "player/Friend.h"

EnemyWeapon::EnemyWeapon(Kind kind) : Gun(kind) {}

hit_struct EnemyWeapon::collide(const vorlik::vec2& from, const vorlik::vec2& to, uint32_t, float)
{
    // One set of scratch lists for the whole enemy side, shared by every enemy's gun.
    static HitTest enemySide;
    return enemySide.collide(g_game->friends, from, to);
}
