// A ship on the player's side: what enemies hunt and enemy shots hit, and what catches
// powerups. A plain Friend never dies and does nothing by itself; the Player fills it in.
#pragma once

#include "play/Actor.h"

class Friend : public Actor {
public:
    float unitFactor = 1.0f;                  // kept for layout; nothing reads it
    float unreadValues[2] = {100.0f, 100.0f}; // kept for layout; nothing reads them
    float pickupRange = 75.0f;                // world units within which a powerup is caught
    float hull = 100.0f;
    float maxHull = 100.0f;                   // what a repair restores
    float shield = 0.0f;
    float maxShield = 0.0f;

    // Does nothing: a friend that moves updates itself.
    void update() override;
    // Takes a hit of amount; true while the ship survives. A plain friend always survives.
    virtual bool damage(float amount);
    virtual void respawn();
    virtual void die();
};
