// A ship's explosion: a cloud of fiery particles emitted into the session's explosion slice
// round the wreck. An enemy blows up in one burst, the player's ship in two. Needs g_game.
#pragma once

#include "math/vec2.h"
#include "math/vec4.h"

#include <cstdint>

struct ExplosionBurst {
    uint32_t count;        // particles
    int32_t firstTime[2];  // ms, drawn from [lo, hi): the particles' shortest life
    int32_t secondTime[2]; // ms, drawn from [lo, hi): their longest life
    vorlik::vec4 colorA;   // each particle's colour lies between these two
    vorlik::vec4 colorB;
    float scatterFactor;   // of the ship's radius: how far the particles' start points scatter
};

// Emits burst at `at` for a ship of the given radius. The random draws come from g_rand in the
// order: speed (9 to 12 radii over a particle's life), second time, first time.
void emitExplosion(const ExplosionBurst& burst, const vorlik::vec2& at, float radius);
