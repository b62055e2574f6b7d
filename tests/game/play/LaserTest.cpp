// The laser without a display: its ring of beams, their reach toward the aim point, the burn
// per second of contact, the sparks it sprays back, the fade, and the quads of its three passes.
#include "play/Laser.h"

#include "WeaponTestDoubles.h"
#include "scene/Particle.h"
#include "scene/ParticleEmitter.h"
#include "scene/ParticleSlice.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

namespace {

using vorlik::vec2;
using vorlik::vec3;

const vec2 kGun(1000, 1000);
const vec2 kAimRight(3000, 1000); // straight along +x from the gun

class LaserTest : public WeaponTest {
protected:
    void SetUp() override
    {
        WeaponTest::SetUp();
        laser.reset(new Laser);
        laser->position = vec3(kGun.x, kGun.y, 0);
    }
    void TearDown() override
    {
        laser.reset();
        WeaponTest::TearDown();
    }

    // A beam at now, the gun letting every call fire.
    void fireBeam()
    {
        laser->fireRate = Weapon::kEveryCall;
        laser->fire(vec2());
    }

    // beams beams, made to last a whole second, burning a ship ahead of the gun throughout.
    void burnForASecond(int beams)
    {
        target(vec2(2000, 1000), 50, 1e6f);
        laser->lifetime = 1000.0f;
        for (int i = 0; i < beams; ++i) fireBeam();
        for (int frame = 0; frame < 100; ++frame) {
            laser->updateToward(kAimRight);
            advance(kFrame);
        }
    }

    float totalDamage() const
    {
        float sum = 0.0f;
        for (float amount : hits) sum += amount;
        return sum;
    }

    std::unique_ptr<Laser> laser;
};

TEST_F(LaserTest, ANewLaserHas32DeadBeamsEachWithAnIdleEmitterFeedingItsOwnSlice)
{
    EXPECT_EQ(laser->beams.count, 32u);
    EXPECT_EQ(laser->sparkEmitters.count, 32u);
    EXPECT_EQ(laser->sparkSlices.count, 32u);
    EXPECT_EQ(sparks().emitters.count, 32u);
    for (uint32_t i = 0; i < 32; ++i) {
        EXPECT_EQ(laser->beams[i].dies, 0.0f);
        const ParticleEmitter& e = *laser->sparkEmitters[i];
        EXPECT_EQ(sparks().emitters[i], &e);
        EXPECT_EQ(e.slice, laser->sparkSlices[i]);
        EXPECT_EQ(laser->sparkSlices[i]->system, &sparks());
        EXPECT_EQ(laser->sparkSlices[i]->parent, nullptr);
        EXPECT_TRUE(laser->sparkSlices[i]->removeWhenEmpty);
        EXPECT_FALSE(laser->sparkSlices[i]->deleteWhenEmpty);
        EXPECT_EQ(e.rate, 0u);
        EXPECT_EQ(e.colorA, vorlik::vec4(0.6f, 0.2f, 0.05f, 0.0f));
        EXPECT_EQ(e.colorB, vorlik::vec4(0.9f, 0.3f, 0.1f, 0.0f));
        EXPECT_EQ(e.lifeMin, 300.0f);
        EXPECT_EQ(e.lifeMax, 450.0f);
        // The numbers in the emitter's field order: travel, start size, end size; no cone, no scatter.
        EXPECT_EQ(e.speedMin, 5.0f);
        EXPECT_EQ(e.speedMax, 90.0f);
        EXPECT_EQ(e.sizeStartMin, 5.0f);
        EXPECT_EQ(e.sizeStartMax, 8.0f);
        EXPECT_EQ(e.sizeEndMin, 40.0f);
        EXPECT_EQ(e.sizeEndMax, 4.0f);
        EXPECT_EQ(e.spread, 0.0f);
        EXPECT_EQ(e.radius, 0.0f);
    }
    EXPECT_EQ(laser->damageMin, 65.0f);
    EXPECT_EQ(laser->damageMax, 85.0f);
    EXPECT_EQ(laser->fireRate, 4.0f);
    EXPECT_EQ(laser->power, 8.0f);
    EXPECT_EQ(laser->width, 7.0f);
    EXPECT_EQ(laser->lifetime, 650.0f);
    EXPECT_EQ(laser->passes, 4);
    const uint8_t colour[4] = {76, 76, 255, 224};
    EXPECT_TRUE(std::equal(colour, colour + 4, laser->colour));
}

TEST_F(LaserTest, EachBeamTakesTheNextSlotOfTheRingWhateverItHolds)
{
    for (int i = 0; i < 32; ++i) fireBeam();
    EXPECT_EQ(laser->ringIndex, 0u);
    advance(kFrame);
    fireBeam(); // slot 0 is still live and is taken over
    EXPECT_EQ(laser->ringIndex, 1u);
    const Laser::Vertex& beam = laser->beams[0];
    EXPECT_EQ(beam.born, float(kStart + kFrame));
    EXPECT_EQ(beam.dies, float(kStart + kFrame + 650));
    EXPECT_EQ(beam.width, 7.0f);
    EXPECT_TRUE(std::equal(beam.colour, beam.colour + 4, laser->colour));
}

TEST_F(LaserTest, ALiveBeamReaches1280UnitsTowardTheAimPointAndDeadOnesFollowTheAim)
{
    fireBeam();
    laser->updateToward(kGun + vec2(3, 4)); // any distance: only the direction counts
    const vec2 reach = kGun + vec2(0.6f, 0.8f) * 1280.0f;
    for (const Laser::Vertex& beam : laser->beams) {
        EXPECT_FLOAT_EQ(beam.end.x, reach.x);
        EXPECT_FLOAT_EQ(beam.end.y, reach.y);
    }
    for (const ParticleEmitter* e : laser->sparkEmitters) EXPECT_EQ(e->rate, 0u);
}

TEST_F(LaserTest, ABeamStopsAtTheFirstEnemyAndBurnsItForItsDamagePerSecondTimesTheFrame)
{
    target(vec2(1500, 1000), 50, 1000);
    target(vec2(1300, 1000), 20, 1000);
    fireBeam();
    g_rand.seed(kSeed);
    vorlik::Random expected(kSeed); // the draws g_rand will make
    laser->updateToward(kAimRight);
    EXPECT_EQ(laser->beams[0].end, vec2(1280, 1000));
    ASSERT_EQ(hits.size(), 1u);
    EXPECT_EQ(hits[0], expected.range(65.0f, 85.0f) * 0.01f);
    EXPECT_GE(hits[0] / 0.01f, 65.0f);
    EXPECT_LT(hits[0] / 0.01f, 85.0f);
}

TEST_F(LaserTest, ABeamTouchingAnEnemyForAWholeSecondDoes65To85Damage)
{
    burnForASecond(1);
    EXPECT_EQ(hits.size(), 100u);
    EXPECT_GE(totalDamage(), 65.0f);
    EXPECT_LT(totalDamage(), 85.0f);
}

TEST_F(LaserTest, TwoOverlappingBeamsDoTwiceThat)
{
    burnForASecond(2);
    EXPECT_EQ(hits.size(), 200u);
    EXPECT_GE(totalDamage(), 130.0f);
    EXPECT_LT(totalDamage(), 170.0f);
}

TEST_F(LaserTest, HoldingTheTriggerKeepsUpToThreeBeamsBurningAtOnce)
{
    target(vec2(2000, 1000), 50, 1e6f);
    size_t most = 0;
    for (int frame = 0; frame < 300; ++frame) {
        laser->fire(vec2());
        const size_t before = hits.size();
        laser->updateToward(kAimRight);
        most = std::max(most, hits.size() - before);
        advance(kFrame);
    }
    EXPECT_EQ(most, 3u);
}

TEST_F(LaserTest, AnEnemyThatSurvivesGetsSparksSprayedBackTowardTheShipJustAboveIt)
{
    Hull after;
    TargetShip* ship = target(vec2(1500, 1000), 50, 1000);
    world.add(&after);
    sparks().update(); // the idle emitters' clocks start now
    fireBeam();
    laser->updateToward(kAimRight);

    const ParticleEmitter& e = *laser->sparkEmitters[0];
    EXPECT_EQ(e.rate, 300u);
    EXPECT_EQ(e.position, vec2(1450, 1000));
    EXPECT_EQ(e.direction, vec2(-450, 0));
    EXPECT_EQ(e.sizeStartMin, 35.0f); // the beam's full width this frame, x 5 and x 6
    EXPECT_EQ(e.sizeStartMax, 42.0f);
    EXPECT_EQ(e.sizeEndMin, 40.0f);
    EXPECT_EQ(e.sizeEndMax, 4.0f);
    ParticleSlice* slice = laser->sparkSlices[0];
    EXPECT_EQ(ship->hull.next, slice);
    EXPECT_EQ(slice->next, &after);

    advance(kFrame);
    laser->updateToward(kAimRight);
    sparks().update(); // 300 a second: 3 in 10 ms
    ASSERT_EQ(slice->count, 3u);
    for (const Particle* p = slice->first; p != nullptr; p = p->next) {
        EXPECT_EQ(p->start, vec2(1450, 1000));
        EXPECT_LT(p->end.x, p->start.x);
        EXPECT_EQ(p->end.y, p->start.y); // no cone: one line back along the beam
    }
}

TEST_F(LaserTest, ABurnThatKillsLeavesTheEmitterAsItWasAndTheNextFrameStopsIt)
{
    TargetShip* ship = target(vec2(1500, 1000), 50, 1000);
    fireBeam();
    laser->updateToward(kAimRight);
    const ParticleEmitter& e = *laser->sparkEmitters[0];
    ASSERT_EQ(e.rate, 300u);
    ship->hitPoints = 0.01f;
    advance(kFrame);
    laser->updateToward(kAimRight);
    EXPECT_EQ(g_game->enemies.count, 0u);
    EXPECT_EQ(e.rate, 300u);
    EXPECT_EQ(e.position, vec2(1450, 1000));
    EXPECT_EQ(laser->beams[0].end, vec2(1450, 1000));
    advance(kFrame);
    laser->updateToward(kAimRight);
    EXPECT_EQ(e.rate, 0u);
    EXPECT_EQ(laser->beams[0].end, vec2(2280, 1000));
}

TEST_F(LaserTest, ABeamThinsAndFadesWithAge)
{
    fireBeam();
    laser->updateToward(kAimRight);
    EXPECT_EQ(laser->beams[0].width, 7.0f);
    EXPECT_EQ(laser->beams[0].colour[3], 224);
    advance(325);
    laser->updateToward(kAimRight);
    EXPECT_FLOAT_EQ(laser->beams[0].width, 3.5f);
    EXPECT_EQ(laser->beams[0].colour[3], 112);
    EXPECT_EQ(laser->beams[0].colour[0], 76);
    EXPECT_EQ(laser->beams[0].colour[2], 255);
    advance(325);
    laser->updateToward(kAimRight); // dead now: left as it was
    EXPECT_FLOAT_EQ(laser->beams[0].width, 3.5f);
}

TEST_F(LaserTest, BeamsAreDrawnInThreePassesEachOncePerViewCopy)
{
    // Three distinct stand-ins, compared but never read.
    alignas(vorlik::Texture*) unsigned char stand[3][8];
    laser->glowTexture = reinterpret_cast<vorlik::Texture*>(stand[0]);
    laser->beamTexture = reinterpret_cast<vorlik::Texture*>(stand[1]);
    laser->endTexture = reinterpret_cast<vorlik::Texture*>(stand[2]);
    fireBeam();
    fireBeam();
    laser->updateToward(kAimRight);
    laser->beams[1].end = vec2(1000, 1500);
    ViewCopies views({vec2(0, 0), vec2(0, -4096)});
    QuadRecorder sink;
    laser->drawShots(views.state, sink);

    ASSERT_EQ(sink.batches.size(), 6u);
    vorlik::Texture* textures[3] = {laser->glowTexture, laser->beamTexture, laser->endTexture};
    for (uint32_t i = 0; i < 6; ++i) {
        EXPECT_EQ(sink.batches[i].texture, textures[i / 2]) << i;
        EXPECT_EQ(sink.batches[i].modelView, views.modelView(i % 2)) << i;
        EXPECT_EQ(sink.batches[i].vertices.size(), 8u) << i;
    }
    const std::vector<Weapon::QuadVertex>& glow = sink.batches[0].vertices;
    EXPECT_EQ(glow[0].x, 1000 - 140); // 20 x the width of 7
    EXPECT_EQ(glow[2].y, 1000 + 140);
    EXPECT_EQ(glow[0].a, 224);
    const std::vector<Weapon::QuadVertex>& body = sink.batches[2].vertices;
    const float expected[4][4] = {
        {1000, 993, 0, 0}, {2280, 993, 10, 0}, {2280, 1007, 10, 1}, {1000, 1007, 0, 1}};
    for (int i = 0; i < 4; ++i) {
        EXPECT_FLOAT_EQ(body[i].x, expected[i][0]) << i;
        EXPECT_FLOAT_EQ(body[i].y, expected[i][1]) << i;
        EXPECT_EQ(body[i].u, expected[i][2]) << i;
        EXPECT_EQ(body[i].v, expected[i][3]) << i;
        EXPECT_EQ(body[i].b, 255);
    }
    EXPECT_FLOAT_EQ(body[4].x, 1000 + 7); // the second beam goes down: its sides are to x
    EXPECT_FLOAT_EQ(body[5].y, 1500);
    const std::vector<Weapon::QuadVertex>& ends = sink.batches[4].vertices;
    EXPECT_EQ(ends[0].x, 2280 - 140);
    EXPECT_EQ(ends[4].y, 1500 - 140);
}

TEST_F(LaserTest, DeadBeamsAreNotDrawn)
{
    fireBeam();
    advance(650);
    ViewCopies views({vec2(0, 0)});
    QuadRecorder sink;
    laser->drawShots(views.state, sink);
    EXPECT_TRUE(sink.batches.empty());
}

} // namespace
