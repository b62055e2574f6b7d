#include "play/PlasmaGun.h"

#include "base/GameRandom.h"
#include "base/Resources.h"
#include "math/vec4.h"
#include "platform/Vorlik.h"
#include "play/Enemy.h"
#include "play/WorldGeometry.h"
#include "player/Friend.h"
#include "scene/ParticleSlice.h"
#include "scene/ParticleSystem.h"

namespace {

constexpr float kFullByte = 255.0f;

// The spray of a hit on a ship that survives it.
constexpr uint32_t kSparkCount = 52;
constexpr int32_t kSparkLifeMin = 300; // ms
constexpr int32_t kSparkLifeMax = 450; // ms
const vorlik::vec4 kSparkColourA(0.6f, 0.2f, 0.05f, 1.0f);
const vorlik::vec4 kSparkColourB(0.9f, 0.3f, 0.1f, 1.0f);
constexpr float kSparkScatter = 1.0f;       // world units round the hit point
constexpr float kSparkSizeStartMin = 10.0f; // half a spark's edge, world units
constexpr float kSparkSizeStartMax = 16.0f;
constexpr float kSparkSizeEndMin = 4.0f;
constexpr float kSparkSizeEndMax = 6.0f;
constexpr float kSparkTravelMin = 5.0f; // world units over a spark's life
constexpr float kSparkTravelMax = 85.0f;
constexpr float kSparkSpread = 60.0f; // degrees, the whole cone

// The image of a ship (WorldGeometry.h) nearest to point.
vorlik::vec2 nearestImage(const vorlik::vec2& ship, const vorlik::vec2& point)
{
    vorlik::vec2 images[kWrapImageCount];
    wrapImages(ship, images);
    vorlik::vec2 nearest = images[0];
    for (const vorlik::vec2& image : images)
        if ((image - point).lengthSquared() < (nearest - point).lengthSquared()) nearest = image;
    return nearest;
}

} // namespace

template <typename Side>
PlasmaGun<Side>::PlasmaGun()
    : Side(kPlasmaTeams[Side::kTeam].kind), texture(Resources::plasmabullet_tex),
      shotRadius(kPlasmaTeams[Side::kTeam].shotRadius)
{
    for (int i = 0; i < 4; ++i) colour[i] = kPlasmaTeams[Side::kTeam].colour[i];
    for (uint32_t i = 0; i < kInitialSlots; ++i) {
        shots.push(Vertex{});
        sparks.push(this->newSparkSlice());
    }
}

template <typename Side>
PlasmaGun<Side>::~PlasmaGun()
{
    for (ParticleSlice* slice : sparks) delete slice;
}

template <typename Side>
float PlasmaGun<Side>::fire(const vorlik::vec2& direction)
{
    const float paid = Side::fire(direction);
    if (paid == 0.0f) return 0.0f;
    const uint32_t now = vorlik::Vorlik::currentTime;
    Vertex& bolt = shots[takeFreeSlot(now)];
    bolt.velocity = direction.normalized() * speed;
    bolt.position = this->origin();
    bolt.born = now;
    bolt.dies = now + lifetime;
    return paid;
}

template <typename Side>
void PlasmaGun<Side>::update()
{
    using Target = typename Side::Target;
    const uint32_t now = vorlik::Vorlik::currentTime;
    for (uint32_t i = 0; i < shots.count; ++i) {
        Vertex& bolt = shots[i];
        if (bolt.dies <= now) continue;
        const vorlik::vec2 step = bolt.velocity * vorlik::Vorlik::sync;
        const hit_struct hit = this->collide(bolt.position, bolt.position + step, i, shotRadius);
        if (hit.target != nullptr) {
            bolt.born = bolt.dies = 0;
            Target* target = static_cast<Target*>(hit.target); // collide only finds the side's targets
            // A killing hit makes no sparks: the ship's own explosion covers it, and an enemy
            // is gone.
            if (target->damage(g_rand.range(this->damageMin, this->damageMax))) sparkBurst(i, *target, hit.point);
        }
        // A freed slot moves on too; it is not drawn any more.
        bolt.position += step;
    }
}

template <typename Side>
void PlasmaGun<Side>::drawShots(const SceneState& state, Gun::QuadSink& sink) const
{
    const uint32_t now = vorlik::Vorlik::currentTime;
    vorlik::Stack<Gun::QuadVertex>& list = Gun::quadList();
    list.clear();
    for (const Vertex& bolt : shots)
        if (bolt.dies > now) Gun::append(list, boltQuad(bolt, now));
    Gun::sendToViews(state, texture, list, passes, sink);
}

template <typename Side>
Gun::Quad PlasmaGun<Side>::boltQuad(const Vertex& bolt, uint32_t now) const
{
    // The age is a fraction in floating point: whole-number division would keep it at 0 and
    // the bolt would never fade.
    const float age = static_cast<float>(now - bolt.born) / static_cast<float>(lifetime);
    const uint8_t faded[4] = {colour[0], colour[1], colour[2],
                              static_cast<uint8_t>(kFullByte - age * kFullByte)};
    return Gun::square(bolt.position, shotRadius, faded);
}

template <typename Side>
uint32_t PlasmaGun<Side>::takeFreeSlot(uint32_t now)
{
    const uint32_t start = ringIndex;
    while (shots[ringIndex].dies > now) {
        ringIndex = (ringIndex + 1) % shots.count;
        if (ringIndex == start) grow();
    }
    return ringIndex;
}

template <typename Side>
void PlasmaGun<Side>::grow()
{
    const uint32_t slots = shots.count;
    for (uint32_t i = 0; i < slots; ++i) sparks.push(this->newSparkSlice());
    shots.reserve(2 * slots);
    for (uint32_t i = 0; i < slots; ++i) shots.push(Vertex{});
}

template <typename Side>
void PlasmaGun<Side>::sparkBurst(uint32_t slot, const Actor& target, const vorlik::vec2& point)
{
    ParticleSlice* slice = sparks[slot];
    // Drawn just above the ship that was hit.
    slice->placeAfter(target.drawable);
    // The sparks fly outward, away from the ship's centre. The hit point is in the coordinates
    // of the ship's image that the bolt ran into, which across the world's seam lies a world
    // size away from the ship's own position: the centre is taken from that same image, so
    // sparks of a hit across the seam fly outward too instead of back over the seam.
    const vorlik::vec2 outward = point - nearestImage(target.position, point);
    this->sparkSystem->emit(slice, kSparkCount, kSparkLifeMin, kSparkLifeMax, point, outward, kSparkColourA,
                            kSparkColourB, kSparkScatter, kSparkSizeStartMin, kSparkSizeStartMax, kSparkSizeEndMin,
                            kSparkSizeEndMax, kSparkTravelMin, kSparkTravelMax, kSparkSpread);
}

template class PlasmaGun<Weapon>;
template class PlasmaGun<EnemyWeapon>;

static_assert(std::is_trivially_copyable<PlasmaGun<Weapon>::Vertex>::value, "kept in a Stack, copied bytewise");
static_assert(std::is_trivially_copyable<PlasmaGun<EnemyWeapon>::Vertex>::value, "kept in a Stack, copied bytewise");
