// One record of a ParticleSystem's ring: a particle that moves on a straight line from start to
// end over its life and fades out on the way. A record is free (no slice) or linked into exactly
// one ParticleSlice; only the system and the slices link and unlink records, and a record's
// slice, while set, is always a live slice of the same system.
#pragma once

#include "math/vec2.h"
#include "math/vec4.h"

#include <cstdint>
#include <type_traits>

class ParticleSlice;

struct Particle {
    static constexpr float kDefaultSize = 16.0f; // half the quad's edge, world units

    ParticleSlice* slice = nullptr;   // the slice that holds the record, or null when free
    Particle* prev = nullptr;         // links in that slice's list, oldest first
    Particle* next = nullptr;
    vorlik::vec4 color{1.0f, 1.0f, 1.0f, 1.0f}; // red, green, blue, alpha in [0, 1]
    vorlik::vec2 start;               // world point at birth
    vorlik::vec2 end;                 // world point at death
    float sizeStart = kDefaultSize;   // half the quad's edge at birth
    float sizeEnd = kDefaultSize;     // half the quad's edge at death
    uint32_t birth = 0;               // engine clock, milliseconds
    uint32_t death = 0;               // engine clock, milliseconds; drawn up to and including it
};

static_assert(std::is_trivially_copyable<Particle>::value, "records are plain values in one array");
