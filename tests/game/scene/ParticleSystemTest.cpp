#include "scene/ParticleSystem.h"

#include "ParticleTestDoubles.h"
#include "SceneTestNodes.h"
#include "base/GameRandom.h"
#include "math/scalar.h"
#include "scene/ParticleEmitter.h"
#include "scene/ParticleSlice.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using vorlik::vec2;
using vorlik::vec4;

class ParticleSystemTest : public ParticleClockTest {
protected:
    ParticleSystem system{8};
};

using Records = std::vector<Particle*>;

TEST_F(ParticleSystemTest, StartsWithAFreeRingOfWhiteRecordsOfSize16)
{
    EXPECT_EQ(system.capacity, 8u);
    for (uint32_t i = 0; i <= system.capacity; ++i) {
        const Particle& p = system.particles[i];
        EXPECT_EQ(p.slice, nullptr);
        EXPECT_EQ(p.color, vec4(1, 1, 1, 1));
        EXPECT_EQ(p.sizeStart, 16.0f);
        EXPECT_EQ(p.sizeEnd, 16.0f);
    }
    EXPECT_EQ(system.cursor, 0u);
    EXPECT_EQ(system.blendMode, uint32_t(BLEND_ADDITIVE));
    EXPECT_EQ(system.gravity, vec2(0, 0));
    EXPECT_EQ(system.texture, nullptr);
    EXPECT_TRUE(system.emitters.empty());
    EXPECT_EQ(system.emitters.capacity, 128u);
}

TEST_F(ParticleSystemTest, DefaultSliceIsAdditiveVisibleUntransformedAndNeverLeavesOrDeletesItself)
{
    ASSERT_NE(system.defaultSlice, nullptr);
    EXPECT_EQ(system.defaultSlice->flags, uint32_t(DRAW_VISIBLE | DRAW_UNTRANSFORMED | BLEND_ADDITIVE));
    EXPECT_EQ(system.defaultSlice->system, &system);
    EXPECT_EQ(system.defaultSlice->removeWhenEmpty, 0);
    EXPECT_EQ(system.defaultSlice->deleteWhenEmpty, 0);
}

TEST_F(ParticleSystemTest, SecondSettingIsKeptAsGivenAndChangesNothing)
{
    ParticleSystem exhaust(256, 512);
    ParticleSystem sparks(256);
    EXPECT_EQ(exhaust.spareSetting, 512u);
    EXPECT_EQ(sparks.spareSetting, 0u);
    EXPECT_EQ(exhaust.capacity, sparks.capacity);
    EXPECT_EQ(exhaust.blendMode, sparks.blendMode);
    EXPECT_EQ(exhaust.defaultSlice->flags, sparks.defaultSlice->flags);
}

TEST_F(ParticleSystemTest, GeneratorIsSeededWithTheGameSeedAndMakingASystemDoesNotReseedIt)
{
    const vorlik::Random fresh(kStaticRandomSeed);
    const vorlik::Random& particles = ParticleSystem::random;
    // Draws flip the entries they use, so each entry is the seeded value or its complement.
    for (int32_t i = 0; i < vorlik::Random::kTableSize; ++i) {
        const int32_t v = particles.ints[i];
        ASSERT_TRUE(v == fresh.ints[i] || v == 2147483647 - fresh.ints[i]) << "entry " << i;
    }
    const RandomSnapshot before;
    ParticleSystem another(4);
    EXPECT_EQ(particles.intCursor, before.intCursor);
    EXPECT_EQ(particles.floatCursor, before.floatCursor);
    EXPECT_EQ(std::memcmp(particles.ints, before.ints, sizeof(int32_t) * vorlik::Random::kTableSize), 0);
}

TEST_F(ParticleSystemTest, NewEmitterHasTheDefaultSettingsAndFeedsTheGivenSlice)
{
    std::unique_ptr<ParticleSlice> slice(system.createSlice(true, false));
    ParticleEmitter* e = system.createEmitter(slice.get());
    ASSERT_EQ(system.emitters.size(), 1u);
    EXPECT_EQ(system.emitters[0], e);
    EXPECT_EQ(e->slice, slice.get());
    EXPECT_EQ(e->colorA, vec4(1, 1, 1, 1));
    EXPECT_EQ(e->colorB, vec4(1, 1, 1, 1));
    EXPECT_EQ(e->position, vec2(0, 0));
    EXPECT_EQ(e->direction, vec2(0, 0));
    EXPECT_EQ(e->lifeMin, 1000.0f);
    EXPECT_EQ(e->lifeMax, 1000.0f);
    EXPECT_EQ(e->speedMin, 0.0f);
    EXPECT_EQ(e->speedMax, 1.0f);
    EXPECT_EQ(e->sizeStartMin, 16.0f);
    EXPECT_EQ(e->sizeStartMax, 16.0f);
    EXPECT_EQ(e->sizeEndMin, 16.0f);
    EXPECT_EQ(e->sizeEndMax, 16.0f);
    EXPECT_EQ(e->spread, 0.0f);
    EXPECT_EQ(e->radius, 0.0f);
    EXPECT_EQ(e->rate, 0u);
    EXPECT_EQ(e->lastEmit, 0u);
}

TEST_F(ParticleSystemTest, EmitterWithoutASliceFeedsTheDefaultSlice)
{
    ParticleEmitter* exhaust = system.createEmitter(nullptr);
    EXPECT_EQ(exhaust->slice, system.defaultSlice);
}

TEST_F(ParticleSystemTest, RemovingAnEmitterMovesTheLastOneIntoItsPlace)
{
    ParticleEmitter* a = system.createEmitter(nullptr);
    ParticleEmitter* b = system.createEmitter(nullptr);
    ParticleEmitter* c = system.createEmitter(nullptr);
    system.removeEmitter(a);
    ASSERT_EQ(system.emitters.size(), 2u);
    EXPECT_EQ(system.emitters[0], c);
    EXPECT_EQ(system.emitters[1], b);
    system.removeEmitter(nullptr);
    EXPECT_EQ(system.emitters.size(), 2u);
}

TEST_F(ParticleSystemTest, RemovingAnEmitterItDoesNotListStillDeletesIt)
{
    system.createEmitter(nullptr);
    // Not in the list: the list stays as it was and the emitter is deleted all the same (the
    // leak check of the sanitizer build would report it otherwise).
    system.removeEmitter(new ParticleEmitter);
    EXPECT_EQ(system.emitters.size(), 1u);
}

TEST_F(ParticleSystemTest, BurstTakesRingRecordsInOrderAndAppendsThemToTheSlice)
{
    std::unique_ptr<ParticleSlice> slice(system.createSlice(false, false));
    emitPlain(system, slice.get(), 3);
    EXPECT_EQ(slice->count, 3u);
    EXPECT_EQ(particlesOf(*slice), (Records{&system.particles[0], &system.particles[1], &system.particles[2]}));
    EXPECT_EQ(slice->last, &system.particles[2]);
    EXPECT_EQ(system.particles[1].slice, slice.get());
    EXPECT_EQ(system.particles[1].birth, kStart);
    EXPECT_EQ(system.particles[1].death, kStart + 1000);
    EXPECT_EQ(system.cursor, 3u);
}

TEST_F(ParticleSystemTest, BurstWithoutASliceGoesToTheDefaultSlice)
{
    emitPlain(system, nullptr, 2);
    EXPECT_EQ(system.defaultSlice->count, 2u);
}

TEST_F(ParticleSystemTest, BurstOfNoParticlesChangesNothing)
{
    const RandomSnapshot before;
    emitPlain(system, nullptr, 0);
    EXPECT_EQ(system.defaultSlice->count, 0u);
    EXPECT_EQ(system.cursor, 0u);
    EXPECT_EQ(ParticleSystem::random.floatCursor, before.floatCursor);
}

TEST_F(ParticleSystemTest, RingWithoutRecordsEmitsNothing)
{
    ParticleSystem empty(0);
    emitPlain(empty, nullptr, 5);
    EXPECT_EQ(empty.defaultSlice->count, 0u);
}

TEST_F(ParticleSystemTest, EmittingCapacityPlusOneRecyclesTheFirstIntoTheNewSlice)
{
    std::unique_ptr<ParticleSlice> old(system.createSlice(false, false));
    std::unique_ptr<ParticleSlice> fresh(system.createSlice(false, false));
    emitPlain(system, old.get(), system.capacity);
    emitPlain(system, fresh.get(), 1);
    Particle* first = &system.particles[0];
    EXPECT_EQ(old->count, system.capacity - 1);
    EXPECT_EQ(old->first, &system.particles[1]);
    EXPECT_EQ(old->first->prev, nullptr);
    EXPECT_EQ(fresh->count, 1u);
    EXPECT_EQ(fresh->first, first);
    EXPECT_EQ(first->slice, fresh.get());
    EXPECT_EQ(first->prev, nullptr);
    EXPECT_EQ(first->next, nullptr);
    EXPECT_EQ(system.cursor, 1u);
}

TEST_F(ParticleSystemTest, RecyclingWithinOneBurstMovesTheOldestParticleToTheEnd)
{
    ParticleSystem small(4);
    std::unique_ptr<ParticleSlice> slice(small.createSlice(false, false));
    emitPlain(small, slice.get(), 5);
    EXPECT_EQ(slice->count, 4u);
    EXPECT_EQ(particlesOf(*slice),
              (Records{&small.particles[1], &small.particles[2], &small.particles[3], &small.particles[0]}));
    EXPECT_EQ(slice->last->next, nullptr);
}

TEST_F(ParticleSystemTest, BurstDrawsItsRandomNumbersInTheirOrder)
{
    RandomSnapshot expected;
    const vec2 at(100, 200);
    const vec2 direction(3, 4);
    const vec4 colorA(0.6f, 0.2f, 0.05f, 1.0f);
    const vec4 colorB(0.9f, 0.3f, 0.1f, 1.0f);
    system.emit(nullptr, 2, 300, 450, at, direction, colorA, colorB, 10, 4, 6, 5, 85, 60, 90, 40);

    for (uint32_t i = 0; i < 2; ++i) {
        const Particle& p = system.particles[i];
        const float jx = expected.range(-1.0f, 1.0f);
        const float jy = expected.range(-1.0f, 1.0f);
        const vec2 jitter = vec2(jx, jy).normalized() * expected.nextFloat(10.0f);
        const float r = expected.range(0.6f, 0.9f);
        const float g = expected.range(0.2f, 0.3f);
        const float b = expected.range(0.05f, 0.1f);
        const float speed = expected.range(60.0f, 90.0f);
        const float halfSpread = vorlik::degreesToRadians(20.0f);
        const float angle = expected.range(-halfSpread, halfSpread);
        const int32_t life = expected.range(300, 450);
        const float sizeStart = expected.range(4.0f, 6.0f);
        const float sizeEnd = expected.range(5.0f, 85.0f);
        const vec2 end = at + jitter + jitter + vec2(0.6f, 0.8f).rotated(angle) * speed;

        EXPECT_FLOAT_EQ(p.color.x, r);
        EXPECT_FLOAT_EQ(p.color.y, g);
        EXPECT_FLOAT_EQ(p.color.z, b);
        EXPECT_EQ(p.color.w, 1.0f);
        EXPECT_FLOAT_EQ(p.start.x, at.x + jitter.x);
        EXPECT_FLOAT_EQ(p.start.y, at.y + jitter.y);
        EXPECT_NEAR(p.end.x, end.x, 1e-3);
        EXPECT_NEAR(p.end.y, end.y, 1e-3);
        EXPECT_EQ(p.death, kStart + uint32_t(life));
        EXPECT_FLOAT_EQ(p.sizeStart, sizeStart);
        EXPECT_FLOAT_EQ(p.sizeEnd, sizeEnd);
    }
    EXPECT_EQ(ParticleSystem::random.intCursor, expected.intCursor);
    EXPECT_EQ(ParticleSystem::random.floatCursor, expected.floatCursor);
}

TEST_F(ParticleSystemTest, ColoursAreClampedIntoZeroToOneAndAlphaIsAlwaysOne)
{
    const vec4 outside(-1.0f, 2.0f, 0.5f, 0.2f);
    system.emit(nullptr, 1, 100, 100, vec2(), vec2(), outside, outside, 0, 16, 16, 16, 16, 0, 0, 0);
    EXPECT_EQ(system.particles[0].color, vec4(0.0f, 1.0f, 0.5f, 1.0f));
}

TEST_F(ParticleSystemTest, BurstWithoutADirectionOnlyDriftsToTwiceItsScatter)
{
    const vec2 at(500, 500);
    const vec4 white(1, 1, 1, 1);
    const RandomSnapshot before;
    system.emit(nullptr, 8, 500, 600, at, vec2(0, 0), white, white, 32, 26, 40, 0, 8, 288, 384, 360);
    for (uint32_t i = 0; i < 8; ++i) {
        const Particle& p = system.particles[i];
        const vec2 scatter = p.start - at;
        EXPECT_LE(scatter.length(), 32.0f + 1e-3f);
        EXPECT_NEAR(p.end.x - at.x, 2 * scatter.x, 1e-3);
        EXPECT_NEAR(p.end.y - at.y, 2 * scatter.y, 1e-3);
    }
    // The speed and the angle are still drawn: three floats of scatter, three of colour, speed,
    // angle and two sizes per particle.
    const int32_t floatsUsed = (ParticleSystem::random.floatCursor - before.floatCursor) & 0xFFFF;
    EXPECT_EQ(floatsUsed, 8 * 10);
}

TEST_F(ParticleSystemTest, DeathIsAWholeLifeFromTheLowerBoundUpToButNotIncludingTheUpperOne)
{
    std::unique_ptr<ParticleSlice> slice(system.createSlice(false, false));
    system.emit(slice.get(), 8, 300, 302, vec2(), vec2(), vec4(1, 1, 1, 1), vec4(1, 1, 1, 1), 0, 1, 1, 1, 1, 0, 0, 0);
    for (const Particle* p : particlesOf(*slice)) {
        EXPECT_GE(p->death - p->birth, 300u);
        EXPECT_LT(p->death - p->birth, 302u);
    }
}

TEST_F(ParticleSystemTest, EqualLifeBoundsGiveExactlyThatLifeWithoutAnIntegerDraw)
{
    const int32_t intCursor = ParticleSystem::random.intCursor;
    emitPlain(system, nullptr, 4, 450);
    EXPECT_EQ(ParticleSystem::random.intCursor, intCursor);
    EXPECT_EQ(system.particles[3].death, kStart + 450);
}

TEST_F(ParticleSystemTest, DeathPastTheEndOfTheSignedClockIsStillNowPlusTheLife)
{
    const uint32_t late = 2147483647u - 100u; // 24.8 days of play
    setTime(late);
    std::unique_ptr<ParticleSlice> slice(system.createSlice(false, false));
    system.emit(slice.get(), 4, 1000, 1200, vec2(), vec2(), vec4(1, 1, 1, 1), vec4(1, 1, 1, 1), 0, 1, 1, 1, 1, 0, 0, 0);
    for (const Particle* p : particlesOf(*slice)) {
        EXPECT_EQ(p->birth, late);
        EXPECT_GE(p->death, late + 1000u);
        EXPECT_LT(p->death, late + 1200u);
    }
}

// Emitters

class ParticleEmitterUpdateTest : public ParticleSystemTest {
protected:
    void SetUp() override
    {
        ParticleSystemTest::SetUp();
        slice.reset(system.createSlice(false, false));
        emitter = system.createEmitter(slice.get());
    }

    std::unique_ptr<ParticleSlice> slice;
    ParticleEmitter* emitter = nullptr;
};

TEST_F(ParticleEmitterUpdateTest, RateZeroEmitsNothingAndKeepsLastEmitAtNow)
{
    system.update();
    EXPECT_EQ(emitter->lastEmit, kStart);
    EXPECT_EQ(slice->count, 0u);
}

TEST_F(ParticleEmitterUpdateTest, RateThirtyEvery16msEmitsOnlyOnceAWholeParticleIsDue)
{
    system.update(); // rate 0: lastEmit = now
    emitter->rate = 30;
    std::vector<uint32_t> perFrame;
    uint32_t seen = 0;
    for (uint32_t frame = 1; frame <= 6; ++frame) {
        setTime(kStart + 16 * frame);
        system.update();
        perFrame.push_back(slice->count - seen);
        seen = slice->count;
    }
    // 16 and 32 ms give 0.48 and 0.96 of a particle; 48 ms gives 1.44, so one, and the
    // fraction after it is dropped with the restart at 48.
    EXPECT_EQ(perFrame, (std::vector<uint32_t>{0, 0, 1, 0, 0, 1}));
    EXPECT_EQ(emitter->lastEmit, kStart + 96);
}

TEST_F(ParticleEmitterUpdateTest, RateThirtyNeeds34msForTheFirstParticle)
{
    system.update();
    emitter->rate = 30;
    setTime(kStart + 33);
    system.update();
    EXPECT_EQ(slice->count, 0u);
    EXPECT_EQ(emitter->lastEmit, kStart);
    setTime(kStart + 34); // 30 x 34 x 0.001 = 1.02
    system.update();
    EXPECT_EQ(slice->count, 1u);
    EXPECT_EQ(emitter->lastEmit, kStart + 34);
}

TEST_F(ParticleEmitterUpdateTest, EmitterLeftAloneForSevenSecondsMakesUpTheWholeGapAtOnce)
{
    ParticleSystem trail(1024);
    std::unique_ptr<ParticleSlice> exhaust(trail.createSlice(false, false));
    ParticleEmitter* e = trail.createEmitter(exhaust.get());
    e->rate = 100;
    e->lastEmit = kStart - 7000;
    trail.update();
    EXPECT_EQ(exhaust->count, 700u);
    EXPECT_EQ(e->lastEmit, kStart);
}

TEST_F(ParticleEmitterUpdateTest, EmitterBurstsWithItsOwnSettingsAndWholeMillisecondLives)
{
    system.update();
    emitter->rate = 1000;
    emitter->position = vec2(40, 50);
    emitter->direction = vec2(0, 2);
    emitter->lifeMin = 300.9f;
    emitter->lifeMax = 300.9f;
    emitter->speedMin = emitter->speedMax = 10;
    emitter->sizeStartMin = emitter->sizeStartMax = 3;
    emitter->sizeEndMin = emitter->sizeEndMax = 7;
    emitter->colorA = emitter->colorB = vec4(0.5f, 0.25f, 1.0f, 0.5f);
    setTime(kStart + 2);
    system.update();
    ASSERT_EQ(slice->count, 2u);
    const Particle& p = *slice->first;
    EXPECT_EQ(p.start, vec2(40, 50));
    EXPECT_EQ(p.end, vec2(40, 60));
    EXPECT_EQ(p.death, kStart + 2 + 300);
    EXPECT_EQ(p.sizeStart, 3.0f);
    EXPECT_EQ(p.sizeEnd, 7.0f);
    EXPECT_EQ(p.color, vec4(0.5f, 0.25f, 1.0f, 1.0f));
}

TEST_F(ParticleSystemTest, GravityPullsTheEndOfEveryRecordLiveOrFreeBySync)
{
    emitPlain(system, nullptr, 2, 1000, vec2(10, 10));
    system.gravity = vec2(0, 10);
    vorlik::Vorlik::sync = 5.0f; // a long frame only pulls further; nothing changes direction
    system.update();
    EXPECT_EQ(system.particles[0].end, vec2(10, 60));
    EXPECT_EQ(system.particles[7].end, vec2(0, 50));
    EXPECT_EQ(system.particles[8].end, vec2(0, 0)); // the spare record past the ring
}

TEST_F(ParticleSystemTest, WithoutGravityEndPointsStayPut)
{
    emitPlain(system, nullptr, 1, 1000, vec2(10, 10));
    system.update();
    EXPECT_EQ(system.particles[0].end, vec2(10, 10));
}

// Teardown

TEST_F(ParticleSystemTest, DeletingTheSystemFirstEmptiesTheSlicesThatOutliveIt)
{
    auto* doomed = new ParticleSystem(8);
    ParticleSlice* survivor = doomed->createSlice(true, false);
    emitPlain(*doomed, survivor, 5);
    delete doomed;
    EXPECT_EQ(survivor->count, 0u);
    EXPECT_EQ(survivor->first, nullptr);
    EXPECT_EQ(survivor->last, nullptr);
    delete survivor; // touches no freed record
}

TEST_F(ParticleSystemTest, DeletingTheSystemTakesItsDefaultSliceOutOfTheScene)
{
    TestContainer scene;
    auto* exhaust = new ParticleSystem(8);
    exhaust->createEmitter(nullptr);
    scene.add(exhaust->defaultSlice);
    delete exhaust;
    EXPECT_EQ(scene.count, 0u);
    EXPECT_EQ(scene.first, nullptr);
}

} // namespace
