#include "scene/ParticleSystem.h"

#include "base/GameRandom.h"
#include "math/scalar.h"
#include "platform/Vorlik.h"
#include "scene/ParticleEmitter.h"
#include "scene/ParticleSlice.h"

namespace {
constexpr double kSecondsPerMillisecond = 0.001;
constexpr bool kKeepWhenEmpty = false;

// Each channel into [0, 1].
vorlik::vec4 clampedColor(const vorlik::vec4& c)
{
    return vorlik::vec4(vorlik::clamp(c.x, 0.0f, 1.0f), vorlik::clamp(c.y, 0.0f, 1.0f),
                        vorlik::clamp(c.z, 0.0f, 1.0f), vorlik::clamp(c.w, 0.0f, 1.0f));
}
} // namespace

vorlik::Random ParticleSystem::random(kStaticRandomSeed);

ParticleSystem::ParticleSystem(uint32_t ringCapacity, uint32_t spare)
    : particles(new Particle[ringCapacity + 1]), capacity(ringCapacity), spareSetting(spare)
{
    // Made here rather than beside the fields, so it takes blendMode's additive value.
    defaultSlice = new ParticleSlice(this, kKeepWhenEmpty, kKeepWhenEmpty);
}

ParticleSystem::~ParticleSystem()
{
    for (ParticleEmitter* emitter : emitters) delete emitter;
    // Slices made by createSlice may outlive the system: leave none of them pointing at the ring.
    for (uint32_t i = 0; i < capacity; ++i)
        if (particles[i].slice != nullptr) particles[i].slice->unlink(particles[i]);
    delete defaultSlice;
    delete[] particles;
}

ParticleEmitter* ParticleSystem::createEmitter(ParticleSlice* slice)
{
    ParticleEmitter* emitter = new ParticleEmitter;
    emitter->slice = slice != nullptr ? slice : defaultSlice;
    emitters.push(emitter);
    return emitter;
}

void ParticleSystem::removeEmitter(ParticleEmitter* emitter)
{
    if (emitter == nullptr) return;
    for (uint32_t i = 0; i < emitters.size(); ++i) {
        if (emitters[i] != emitter) continue;
        emitters[i] = emitters[emitters.size() - 1];
        emitters.pop();
        break;
    }
    delete emitter;
}

ParticleSlice* ParticleSystem::createSlice(bool removeWhenEmpty, bool deleteWhenEmpty)
{
    return new ParticleSlice(this, removeWhenEmpty, deleteWhenEmpty);
}

Particle& ParticleSystem::takeRecord()
{
    Particle& record = particles[cursor];
    cursor = (cursor + 1) % capacity;
    if (record.slice != nullptr) record.slice->unlink(record);
    return record;
}

void ParticleSystem::emit(ParticleSlice* slice, uint32_t count, int32_t lifeMin, int32_t lifeMax,
                          vorlik::vec2 position, vorlik::vec2 direction, vorlik::vec4 colorA, vorlik::vec4 colorB,
                          float radius, float sizeStartMin, float sizeStartMax, float sizeEndMin, float sizeEndMax,
                          float speedMin, float speedMax, float spread)
{
    ParticleSlice* target = slice != nullptr ? slice : defaultSlice;
    // A ring without records has nothing to recycle.
    if (count == 0 || capacity == 0) return;
    direction.normalize();
    colorA = clampedColor(colorA);
    colorB = clampedColor(colorB);
    const float halfSpread = vorlik::degreesToRadians(spread / 2.0f);
    const uint32_t now = vorlik::Vorlik::currentTime;

    for (uint32_t n = 0; n < count; ++n) {
        vorlik::vec2 jitter;
        if (radius != 0.0f) {
            const float x = random.range(-1.0f, 1.0f);
            const float y = random.range(-1.0f, 1.0f);
            jitter = vorlik::vec2(x, y).normalized() * random.nextFloat(radius);
        }
        Particle& p = takeRecord();
        const float red = random.range(colorA.x, colorB.x);
        const float green = random.range(colorA.y, colorB.y);
        const float blue = random.range(colorA.z, colorB.z);
        p.color = vorlik::vec4(red, green, blue, 1.0f);
        // The scatter is added to the end point once more, so a burst without a direction still
        // spreads to twice its scatter; every explosion of the game looks this way.
        p.start = position + jitter;
        const float speed = random.range(speedMin, speedMax);
        const float angle = random.range(-halfSpread, halfSpread);
        p.end = p.start + jitter + direction.rotated(angle) * speed;
        p.birth = now;
        // A whole number of milliseconds in [lifeMin, lifeMax), the upper bound never drawn, no
        // draw at all when they are equal. Drawn as a life and added to now, which gives the
        // same death as drawing between now + lifeMin and now + lifeMax, without overflowing
        // a signed clock after 24 days.
        p.death = now + static_cast<uint32_t>(random.range(lifeMin, lifeMax));
        p.sizeStart = random.range(sizeStartMin, sizeStartMax);
        p.sizeEnd = random.range(sizeEndMin, sizeEndMax);
        target->append(p);
    }
}

void ParticleSystem::update()
{
    if (gravity.length() > 0.0f) {
        const vorlik::vec2 pull = gravity * vorlik::Vorlik::sync;
        for (uint32_t i = 0; i < capacity; ++i) particles[i].end += pull;
    }
    const uint32_t now = vorlik::Vorlik::currentTime;
    for (ParticleEmitter* e : emitters) {
        if (e->rate == 0) {
            e->lastEmit = now;
            continue;
        }
        // lastEmit moves only when a whole particle is due, so fractions carry over to later
        // frames. An emitter that was not updated for a while (or ever: lastEmit starts at 0)
        // makes up for the whole gap at once; a long frame only makes a bigger burst, and the
        // ring recycles whatever does not fit.
        const double due = static_cast<double>(e->rate) * static_cast<double>(now - e->lastEmit) * kSecondsPerMillisecond;
        const uint32_t n = static_cast<uint32_t>(due);
        if (n == 0) continue;
        emit(e->slice, n, static_cast<int32_t>(e->lifeMin), static_cast<int32_t>(e->lifeMax), e->position,
             e->direction, e->colorA, e->colorB, e->radius, e->sizeStartMin, e->sizeStartMax, e->sizeEndMin,
             e->sizeEndMax, e->speedMin, e->speedMax, e->spread);
        e->lastEmit = now;
    }
}
