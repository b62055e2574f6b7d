#include "play/Weapon.h"

#include "play/Enemy.h"
#include "play/GameSession.h"

Weapon::Weapon(Kind kind) : Gun(kind) {}

hit_struct Weapon::collide(const vorlik::vec2& from, const vorlik::vec2& to, uint32_t, float)
{
    // One set of scratch lists for the whole player side, shared by both guns.
    static HitTest playerSide;
    return playerSide.collide(g_game->enemies, from, to);
}
