// Dsp: the building blocks of the synthesiser: band-limited oscillators, an envelope, a
// state-variable filter and a plate-like reverb. All work on float samples at one rate and
// keep their own state; none allocates per sample.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace assetgen {

constexpr int kSampleRate = 44100;

// Frequency of a MIDI note number (69 = A4 = 440 Hz).
float noteHz(float midi);

// A sawtooth with polyBLEP edges; phase in [0, 1).
class Saw {
public:
    explicit Saw(float phase = 0) : phase_(phase) {}
    float next(float hz);

private:
    float phase_;
};

// Attack, hold-free decay to sustain, and release after the gate closes; times in seconds.
struct Envelope {
    float attack, decay, sustain, release;
    // Level at time t seconds after the note started, for a note held for `held` seconds.
    float at(float t, float held) const;
};

// Topology-preserving state-variable filter (Zavalishin): low, band and high outputs.
// Set the cutoff only when it moves: it costs a tangent.
class Svf {
public:
    struct Out {
        float low, band, high;
    };
    void set(float cutoffHz, float resonance);
    Out process(float x);

private:
    float g_ = 0.1f, k_ = 2, a1_ = 0;
    float ic1_ = 0, ic2_ = 0;
};

// Schroeder/Moorer reverb: parallel damped combs into series all-passes.
class Reverb {
public:
    Reverb(float roomSize, float damping);
    float process(float x);

private:
    struct Comb {
        std::vector<float> buf;
        size_t pos = 0;
        float store = 0;
    };
    struct AllPass {
        std::vector<float> buf;
        size_t pos = 0;
    };
    std::vector<Comb> combs_;
    std::vector<AllPass> allPasses_;
    float feedback_, damping_;
};

// A white-noise source from a 32-bit xorshift, in [-1, 1].
class WhiteNoise {
public:
    explicit WhiteNoise(uint32_t seed) : state_(seed ? seed : 1) {}
    float next()
    {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 17;
        state_ ^= state_ << 5;
        return static_cast<float>(state_) * (2.0f / 4294967295.0f) - 1.0f;
    }

private:
    uint32_t state_;
};

} // namespace assetgen
