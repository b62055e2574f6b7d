// The game logic's random generator. It is built before main with a fixed seed and reseeded
// from the clock at start-up, so every run plays differently.
#pragma once

#include "core/Random.h"

constexpr unsigned kStaticRandomSeed = 0xD34DB33Fu;

extern vorlik::Random g_rand;
