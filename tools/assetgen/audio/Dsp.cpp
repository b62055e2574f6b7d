#include "audio/Dsp.h"

#include "math/scalar.h"

#include <algorithm>
#include <cmath>

namespace assetgen {

namespace {

float polyBlep(float t, float dt)
{
    if (t < dt) {
        t /= dt;
        return t + t - t * t - 1;
    }
    if (t > 1 - dt) {
        t = (t - 1) / dt;
        return t * t + t + t + 1;
    }
    return 0;
}

} // namespace

float noteHz(float midi) { return 440.0f * std::pow(2.0f, (midi - 69) / 12.0f); }

float Saw::next(float hz)
{
    float dt = hz / kSampleRate;
    float v = 2 * phase_ - 1 - polyBlep(phase_, dt);
    phase_ += dt;
    if (phase_ >= 1)
        phase_ -= 1;
    return v;
}

float Envelope::at(float t, float held) const
{
    auto gate = [&](float u) {
        if (u < attack)
            return u / attack;
        u -= attack;
        return sustain + (1 - sustain) * std::exp(-u / std::max(decay, 1e-4f));
    };
    if (t < held)
        return gate(t);
    return gate(held) * std::exp(-(t - held) / std::max(release, 1e-4f));
}

void Svf::set(float cutoffHz, float resonance)
{
    g_ = std::tan(vorlik::kPi * std::min(cutoffHz, kSampleRate * 0.45f) / kSampleRate);
    k_ = 2 - 2 * resonance;
    a1_ = 1 / (1 + g_ * (g_ + k_));
}

Svf::Out Svf::process(float x)
{
    float v3 = x - ic2_;
    float v1 = a1_ * ic1_ + g_ * a1_ * v3;
    float v2 = ic2_ + g_ * v1;
    ic1_ = 2 * v1 - ic1_;
    ic2_ = 2 * v2 - ic2_;
    return {v2, v1, x - k_ * v1 - v2};
}

Reverb::Reverb(float roomSize, float damping) : feedback_(roomSize), damping_(damping)
{
    for (int len : {1557, 1617, 1491, 1422, 1277, 1356, 1188, 1116})
        combs_.push_back({std::vector<float>(static_cast<size_t>(len * 1.4f)), 0, 0});
    for (int len : {556, 441, 341, 225})
        allPasses_.push_back({std::vector<float>(static_cast<size_t>(len * 1.4f)), 0});
}

float Reverb::process(float x)
{
    float out = 0;
    for (Comb& c : combs_) {
        float y = c.buf[c.pos];
        c.store = y * (1 - damping_) + c.store * damping_;
        c.buf[c.pos] = x + c.store * feedback_;
        if (++c.pos == c.buf.size())
            c.pos = 0;
        out += y;
    }
    out *= 0.125f;
    for (AllPass& a : allPasses_) {
        float b = a.buf[a.pos];
        a.buf[a.pos] = out + b * 0.5f;
        if (++a.pos == a.buf.size())
            a.pos = 0;
        out = b - out;
    }
    return out;
}

} // namespace assetgen
