// A steady source of particles: each ParticleSystem::update emits as many particles as its
// rate has made due since the last emission, with these settings, into its slice. Made by
// ParticleSystem::createEmitter and owned by that system; game code only writes the settings
// (position, direction, rate, ...) and hands it back through removeEmitter.
#pragma once

#include "math/vec2.h"
#include "math/vec4.h"

#include <cstdint>

class ParticleSlice;

struct ParticleEmitter {
    vorlik::vec4 colorA{1.0f, 1.0f, 1.0f, 1.0f}; // each particle's red, green and blue lie
    vorlik::vec4 colorB{1.0f, 1.0f, 1.0f, 1.0f}; // between these two; alpha is always 1
    vorlik::vec2 position;                   // world point particles start from
    vorlik::vec2 direction;                  // direction of travel; any length, (0, 0) for none
    float lifeMin = 1000.0f;                 // milliseconds, cut to whole ones when emitting
    float lifeMax = 1000.0f;
    float speedMin = 0.0f;                   // distance travelled over the whole life
    float speedMax = 1.0f;
    float sizeStartMin = 16.0f;              // half the quad's edge at birth
    float sizeStartMax = 16.0f;
    float sizeEndMin = 16.0f;                // half the quad's edge at death
    float sizeEndMax = 16.0f;
    float spread = 0.0f;                     // degrees, the full cone around direction
    float radius = 0.0f;                     // start points scatter up to this far from position
    uint32_t rate = 0;                       // particles per second; 0 emits nothing
    ParticleSlice* slice = nullptr;          // where the particles go; never null once created
    uint32_t spare[2] = {0, 0};              // always 0; nothing reads them
    uint32_t lastEmit = 0;                   // engine clock (ms) of the last emission
};
