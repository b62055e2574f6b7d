// The arithmetic of the player's flight, as plain functions of numbers so that each rule
// runs in a test without a window: paying for thrust, braking, the speed limit, the drift
// the camera leads with, and the glow that dims with the energy.
#pragma once

#include "math/vec2.h"

#include <cstdint>

// The part of a wanted change of velocity that the energy pays for, and the energy left.
struct Thrust {
    vorlik::vec2 change;
    float energy;
};

// Pays cost for the wanted change. With too little energy the change shrinks in proportion
// and the energy ends at 0; with exactly the cost the energy ends at 0 and nothing changes.
// No wanted change costs nothing.
Thrust payForThrust(const vorlik::vec2& wanted, float energy, float cost);

// A velocity component moved toward 0 by step, stopping at 0 rather than changing sign.
float brake(float component, float step);

// v at most max long, keeping its direction; a zero vector stays zero.
vorlik::vec2 limitLength(const vorlik::vec2& v, float max);

// One frame of drift: it grows with the velocity (velocity / maxSpeed x speed x sync), decays
// as it nears driftLimit, and is held to maxSpeed long.
vorlik::vec2 nextDrift(const vorlik::vec2& drift, const vorlik::vec2& velocity, float maxSpeed, float driftLimit,
                       float sync);

// The top glow's alpha: pulses between 0.8 and 1.0 of full and dims with the energy left.
int32_t topGlowAlpha(float energy, float maxEnergy, uint32_t now);
// The bottom glow: 100 below the top one, within 0 to 255.
int32_t bottomGlowAlpha(int32_t topAlpha);
