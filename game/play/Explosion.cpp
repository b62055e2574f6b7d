#include "play/Explosion.h"

#include "base/GameRandom.h"
#include "play/GameSession.h"
#include "scene/ParticleSystem.h"

namespace {
constexpr float kSizeStart[2] = {26.0f, 40.0f}; // half a particle's edge at birth, world units
constexpr float kSizeEnd[2] = {0.0f, 8.0f};     // and at death
constexpr float kSpeedFactor[2] = {9.0f, 12.0f}; // of the radius: distance over a life
constexpr float kSpread = 360.0f;                // degrees
} // namespace

void emitExplosion(const ExplosionBurst& burst, const vorlik::vec2& at, float radius)
{
    const float speed = g_rand.range(radius * kSpeedFactor[0], radius * kSpeedFactor[1]);
    const int32_t second = g_rand.range(burst.secondTime[0], burst.secondTime[1]);
    const int32_t first = g_rand.range(burst.firstTime[0], burst.firstTime[1]);
    // No base direction: the particles drift from their scattered start points rather than
    // fly outward, which gives the explosion its dense, slowly spreading look.
    g_game->explosionParticles->emit(g_game->explosionSlice, burst.count, first, second, at, vorlik::vec2(0.0f, 0.0f),
                                     burst.colorA, burst.colorB, radius * burst.scatterFactor, kSizeStart[0],
                                     kSizeStart[1], kSizeEnd[0], kSizeEnd[1], 0.0f, speed, kSpread);
}
