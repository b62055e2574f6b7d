#include "player/ShipMotion.h"

#include "math/scalar.h"

#include <cmath>

namespace {
constexpr float kPulseRate = 0.005f;   // radians per ms: a period of about 1.26 s
constexpr float kPulseDepth = 0.1f;
constexpr float kFullAlpha = 255.0f;
constexpr int32_t kBottomGlowDimming = 100;
} // namespace

Thrust payForThrust(const vorlik::vec2& wanted, float energy, float cost)
{
    if (wanted.x == 0.0f && wanted.y == 0.0f) return Thrust{wanted, energy};
    const float left = energy - cost;
    if (left < 0.0f) return Thrust{wanted * (energy / cost), 0.0f};
    if (left > 0.0f) return Thrust{wanted, left};
    return Thrust{vorlik::vec2(0.0f, 0.0f), 0.0f};
}

float brake(float component, float step)
{
    if (component > 0.0f) return component > step ? component - step : 0.0f;
    if (component < 0.0f) return component < -step ? component + step : 0.0f;
    return 0.0f;
}

vorlik::vec2 limitLength(const vorlik::vec2& v, float max)
{
    const float length = v.length();
    if (length == 0.0f) return v;
    return v * (std::fmin(length, max) / length);
}

vorlik::vec2 nextDrift(const vorlik::vec2& drift, const vorlik::vec2& velocity, float maxSpeed, float driftLimit,
                       float sync)
{
    vorlik::vec2 d = drift + velocity / maxSpeed * velocity.length() * sync;
    d = d * (1.0f - d.length() / driftLimit * sync);
    return limitLength(d, maxSpeed);
}

int32_t topGlowAlpha(float energy, float maxEnergy, uint32_t now)
{
    const float pulse = std::sin(static_cast<float>(now) * kPulseRate) * kPulseDepth + (1.0f - kPulseDepth);
    return static_cast<int32_t>(energy / maxEnergy * (pulse * kFullAlpha));
}

int32_t bottomGlowAlpha(int32_t topAlpha)
{
    return static_cast<int32_t>(vorlik::clamp(static_cast<float>(topAlpha - kBottomGlowDimming), 0.0f, kFullAlpha));
}
