// Noise: seeded 3D gradient noise and fractal sums of it.
// Values of noise() lie roughly in [-1, 1]; the same seed always gives the same field.
// Smooth everywhere, so a field sampled along directions has no seams of its own.
#pragma once

#include <array>
#include <cstdint>

#include "core/Vec.h"

namespace assetgen {

class Noise {
public:
    explicit Noise(uint64_t seed);

    float noise(V3 p) const;
    // Sum of octaves, each at lacunarity times the frequency and gain times the amplitude;
    // normalised so the result stays in about [-1, 1].
    float fbm(V3 p, int octaves, float lacunarity = 2.03f, float gain = 0.5f) const;
    // Like fbm but of 1 - |noise|: sharp bright ridges, in about [0, 1].
    float ridged(V3 p, int octaves, float lacunarity = 2.03f, float gain = 0.5f) const;

private:
    std::array<uint8_t, 512> perm_;
};

} // namespace assetgen
