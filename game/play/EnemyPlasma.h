// The gun every enemy ship carries: the player's plasma turned round, hitting the friends with
// smaller, weaker green bolts (half-size 12, damage 2 to 7 a hit) at 0.7 shots a second, in a
// ring of 16 slots at first. How bolts fly, hit and are drawn is PlasmaGun's; the owner's part
// is set out in EnemyWeapon.h.
#pragma once

#include "play/PlasmaGun.h"

class EnemyPlasma : public PlasmaGun<EnemyWeapon> {};
