// Rng: the generator's own seeded pseudo-random source (SplitMix64).
// Every picture and the music draw from an Rng seeded with a fixed number, so the same
// source always yields byte-identical files. Not for anything that needs secrecy.
#pragma once

#include <cstdint>

namespace assetgen {

class Rng {
public:
    explicit Rng(uint64_t seed) : state_(seed) {}

    uint64_t next()
    {
        uint64_t z = (state_ += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }

    // Uniform in [0, 1).
    float unit() { return static_cast<float>(next() >> 40) * (1.0f / 16777216.0f); }
    float uniform(float lo, float hi) { return lo + (hi - lo) * unit(); }
    // Uniform integer in [lo, hi); hi itself never comes.
    int range(int lo, int hi) { return lo + static_cast<int>(next() % static_cast<uint64_t>(hi - lo)); }

private:
    uint64_t state_;
};

} // namespace assetgen
