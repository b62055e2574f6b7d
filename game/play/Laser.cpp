#include "play/Laser.h"

#include "base/GameRandom.h"
#include "base/Resources.h"
#include "math/vec4.h"
#include "platform/Vorlik.h"
#include "play/Enemy.h"
#include "scene/ParticleEmitter.h"
#include "scene/ParticleSlice.h"
#include "scene/ParticleSystem.h"
#include "scene/Scene2D.h"

using vorlik::Vorlik;

namespace {

// The sparks where a beam burns a ship, set on each emitter once: travel 5 to 90, start size
// 5 to 8, end size anywhere from 4 to 40. Cone and scatter stay 0, so the sparks leave in one
// line back along the beam.
const vorlik::vec4 kSparkColourA(0.6f, 0.2f, 0.05f, 0.0f); // the alpha is not used: sparks start opaque
const vorlik::vec4 kSparkColourB(0.9f, 0.3f, 0.1f, 0.0f);
constexpr float kSparkLifeMin = 300.0f; // ms
constexpr float kSparkLifeMax = 450.0f;
constexpr float kSparkTravelMin = 5.0f; // world units over a spark's life
constexpr float kSparkTravelMax = 90.0f;
constexpr float kSparkSizeStartMin = 5.0f; // half a spark's edge, world units; a hit resizes these
constexpr float kSparkSizeStartMax = 8.0f;
constexpr float kSparkSizeEndMin = 40.0f;
constexpr float kSparkSizeEndMax = 4.0f;
constexpr uint32_t kSparksPerSecond = 300; // while a beam burns a surviving ship
// A hit sets the start size from the beam's width this frame.
constexpr float kSparkSizePerWidthMin = 5.0f;
constexpr float kSparkSizePerWidthMax = 6.0f;

} // namespace

Laser::Laser()
    : Weapon(KIND_LASER), glowTexture(Resources::proc_particle1_tex),
      endTexture(Resources::proc_particle1_tex), beamTexture(Resources::laser_tex)
{
    for (uint32_t i = 0; i < kSlots; ++i) {
        beams.push(Vertex{});
        ParticleSlice* slice = newSparkSlice();
        ParticleEmitter* e = sparkSystem->createEmitter(slice);
        e->colorA = kSparkColourA;
        e->colorB = kSparkColourB;
        e->lifeMin = kSparkLifeMin;
        e->lifeMax = kSparkLifeMax;
        e->speedMin = kSparkTravelMin;
        e->speedMax = kSparkTravelMax;
        e->sizeStartMin = kSparkSizeStartMin;
        e->sizeStartMax = kSparkSizeStartMax;
        e->sizeEndMin = kSparkSizeEndMin;
        e->sizeEndMax = kSparkSizeEndMax;
        e->rate = 0;
        sparkSlices.push(slice);
        sparkEmitters.push(e);
    }
}

Laser::~Laser()
{
    for (ParticleEmitter* e : sparkEmitters) sparkSystem->removeEmitter(e);
    for (ParticleSlice* slice : sparkSlices) delete slice;
}

float Laser::fire(const vorlik::vec2& direction)
{
    const float paid = Weapon::fire(direction);
    if (paid == 0.0f) return 0.0f;
    Vertex& beam = beams[ringIndex];
    ringIndex = (ringIndex + 1) % beams.count;
    for (int i = 0; i < 4; ++i) beam.colour[i] = colour[i];
    beam.width = width;
    beam.born = static_cast<float>(Vorlik::currentTime);
    beam.dies = beam.born + lifetime;
    return paid;
}

void Laser::update()
{
    updateToward(
        g_world->windowToWorld(static_cast<float>(Vorlik::mouseX()), static_cast<float>(Vorlik::mouseY())));
}

void Laser::updateToward(const vorlik::vec2& aimPoint)
{
    const float now = static_cast<float>(Vorlik::currentTime);
    const vorlik::vec2 from = origin();
    const vorlik::vec2 to = from + (aimPoint - from).normalized() * kReach;
    for (uint32_t i = 0; i < beams.count; ++i) {
        Vertex& beam = beams[i];
        if (beam.dies <= now) {
            beam.end = to;
            sparkEmitters[i]->rate = 0;
            continue;
        }
        // The slot stands for the shot and the beam's width for its size; the test reads neither.
        const hit_struct hit = collide(from, to, i, beam.width);
        beam.end = hit.target != nullptr ? hit.point : to;
        if (hit.target != nullptr)
            burn(i, *static_cast<Enemy*>(hit.target), hit.point, from); // collide only finds enemies
        else
            sparkEmitters[i]->rate = 0;
        const float left = 1.0f - (now - beam.born) / (beam.dies - beam.born);
        beam.width = width * left;
        beam.colour[3] = static_cast<uint8_t>(static_cast<float>(colour[3]) * left);
    }
}

void Laser::burn(uint32_t slot, Enemy& target, const vorlik::vec2& point, const vorlik::vec2& from)
{
    // Damage is per second of contact, applied every frame: overlapping beams each burn.
    const float amount = g_rand.range(damageMin, damageMax) * Vorlik::sync;
    // A ship this burn killed is gone; its sparks are left as they were this frame.
    if (!target.damage(amount)) return;
    sparkSlices[slot]->placeAfter(target.drawable); // drawn just above the ship
    ParticleEmitter& sparks = *sparkEmitters[slot];
    sparks.rate = kSparksPerSecond;
    sparks.position = point;
    sparks.direction = from - point; // back toward the ship that fires
    sparks.sizeStartMin = beams[slot].width * kSparkSizePerWidthMin;
    sparks.sizeStartMax = beams[slot].width * kSparkSizePerWidthMax;
}

void Laser::drawShots(const SceneState& state, QuadSink& sink) const
{
    vorlik::Texture* const textures[PASS_COUNT] = {glowTexture, beamTexture, endTexture};
    const float now = static_cast<float>(Vorlik::currentTime);
    vorlik::Stack<QuadVertex>& list = quadList();
    for (uint32_t pass = 0; pass < PASS_COUNT; ++pass) {
        list.clear();
        for (const Vertex& beam : beams)
            if (beam.dies > now) append(list, passQuad(static_cast<Pass>(pass), beam));
        sendToViews(state, textures[pass], list, 1, sink);
    }
}

Weapon::Quad Laser::passQuad(Pass pass, const Vertex& beam) const
{
    const vorlik::vec2 from = origin();
    if (pass == PASS_GUN_GLOW) return square(from, kGlowPerWidth * beam.width, beam.colour);
    if (pass == PASS_END_GLOW) return square(beam.end, kGlowPerWidth * beam.width, beam.colour);
    // The beam's direction turned a quarter turn, as long as the beam is wide on each side.
    const vorlik::vec2 along = (beam.end - from).normalized();
    const vorlik::vec2 side = vorlik::vec2(-along.y, along.x) * beam.width;
    const uint8_t r = beam.colour[0], g = beam.colour[1], b = beam.colour[2], a = beam.colour[3];
    const vorlik::vec2 corners[4] = {from - side, beam.end - side, beam.end + side, from + side};
    const float u[4] = {0.0f, kTextureRepeats, kTextureRepeats, 0.0f};
    const float v[4] = {0.0f, 0.0f, 1.0f, 1.0f};
    Quad quad;
    for (int i = 0; i < 4; ++i)
        quad.corners[i] = QuadVertex{corners[i].x, corners[i].y, u[i], v[i], r, g, b, a};
    return quad;
}
