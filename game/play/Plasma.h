// The plasma gun on the left mouse button of the player's ship: violet bolts of half-size 16,
// damage 5 to 15 a hit, 5 shots a second at 2 energy a shot, in a ring of 64 slots at first.
// How bolts fly, hit and are drawn is PlasmaGun's; the owner's part is set out in Weapon.h.
#pragma once

#include "play/PlasmaGun.h"

class Plasma : public PlasmaGun<Weapon> {};
