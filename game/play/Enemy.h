// A hostile ship as the player's weapons and the session see it: something to hit and to blow up.
// The seven ship types and their behaviour (spawning, hunting, shooting) come later.
#pragma once

#include "play/Actor.h"

class Enemy : public Actor {
public:
    // Takes a hit of amount. True while the ship survives; false when this hit killed it, in
    // which case the ship has exploded and been deleted and must not be touched again.
    virtual bool damage(float amount) = 0;
    // The death: explosion, score and drop, then the ship deletes itself and leaves the lists.
    virtual void explode() = 0;
};
