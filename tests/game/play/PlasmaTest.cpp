// The plasma gun without a display: its bolts' flight and fade, the ring of slots and its
// growth, hits with their damage and sparks, and the quads it would draw.
#include "play/Plasma.h"

#include "WeaponTestDoubles.h"
#include "scene/Particle.h"
#include "scene/ParticleSlice.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using vorlik::vec2;
using vorlik::vec3;

class PlasmaTest : public WeaponTest {
protected:
    // A bolt from (x, y) along direction, the gun letting every call fire.
    void fireFrom(float x, float y, vec2 direction = vec2(1, 0))
    {
        plasma->fireRate = Weapon::kEveryCall;
        plasma->position = vec3(x, y, 0);
        plasma->fire(direction);
    }

    void SetUp() override
    {
        WeaponTest::SetUp();
        plasma.reset(new Plasma);
    }
    void TearDown() override
    {
        plasma.reset();
        WeaponTest::TearDown();
    }

    std::unique_ptr<Plasma> plasma;
};

TEST_F(PlasmaTest, ANewGunHas64FreeSlotsEachWithItsOwnSparkSliceOutOfEveryScene)
{
    expectFreshRing(*plasma, 64);
    EXPECT_EQ(plasma->damageMin, 5.0f);
    EXPECT_EQ(plasma->damageMax, 15.0f);
    EXPECT_EQ(plasma->fireRate, 5.0f);
    EXPECT_EQ(plasma->power, 2.0f);
    EXPECT_EQ(plasma->shotRadius, 16.0f);
    EXPECT_EQ(plasma->speed, 750.0f);
    EXPECT_EQ(plasma->lifetime, 1500u);
    EXPECT_EQ(plasma->passes, 3u);
    EXPECT_EQ(plasma->colour[0], 128);
    EXPECT_EQ(plasma->colour[1], 113);
    EXPECT_EQ(plasma->colour[2], 255);
    EXPECT_EQ(plasma->colour[3], 255);
}

TEST_F(PlasmaTest, ABoltLeavesTheGunAt750UnitsASecondAlongTheDirectionWhateverItsLength)
{
    fireFrom(100, 200, vec2(0, -40));
    const Plasma::Vertex& bolt = plasma->shots[0];
    EXPECT_EQ(bolt.position, vec2(100, 200));
    EXPECT_EQ(bolt.velocity, vec2(0, -750));
    EXPECT_EQ(bolt.born, kStart);
    EXPECT_EQ(bolt.dies, kStart + 1500);
}

TEST_F(PlasmaTest, ABoltLives1500MsAndSoReaches1125Units)
{
    fireFrom(100, 2000, vec2(3, 0));
    plasma->update(); // the frame that fired moves the bolt too
    while (now() < kStart + 1500 - kFrame) {
        advance(kFrame);
        plasma->update();
    }
    EXPECT_FLOAT_EQ(plasma->shots[0].position.x, 100 + 1125);
    EXPECT_GT(plasma->shots[0].dies, now());
    advance(kFrame);
    plasma->update();
    EXPECT_LE(plasma->shots[0].dies, now()); // free: no longer moved or drawn
    EXPECT_FLOAT_EQ(plasma->shots[0].position.x, 100 + 1125);
    QuadRecorder sink;
    ViewCopies views({vec2()});
    plasma->drawShots(views.state, sink);
    EXPECT_TRUE(sink.batches.empty());
}

TEST_F(PlasmaTest, ABoltFadesLinearlyToTransparentOverItsLife)
{
    fireFrom(100, 200);
    const Plasma::Vertex& bolt = plasma->shots[0];
    EXPECT_EQ(plasma->boltQuad(bolt, kStart).corners[0].a, 255);
    EXPECT_EQ(plasma->boltQuad(bolt, kStart + 750).corners[0].a, 127); // 127.5, truncated
    EXPECT_EQ(plasma->boltQuad(bolt, kStart + 1125).corners[0].a, 63); // 63.75
    EXPECT_EQ(plasma->boltQuad(bolt, kStart + 1499).corners[0].a, 0);
    const Weapon::Quad q = plasma->boltQuad(bolt, kStart + 750);
    for (const Weapon::QuadVertex& c : q.corners) {
        EXPECT_EQ(c.r, 128);
        EXPECT_EQ(c.g, 113);
        EXPECT_EQ(c.b, 255);
        EXPECT_EQ(c.a, 127);
    }
    EXPECT_EQ(q.corners[0].x, 100 - 16);
    EXPECT_EQ(q.corners[0].y, 200 - 16);
    EXPECT_EQ(q.corners[2].x, 100 + 16);
    EXPECT_EQ(q.corners[2].y, 200 + 16);
}

TEST_F(PlasmaTest, A65thBoltInFlightDoublesTheRingTo128SlotsAndTheSparkSlicesTo128)
{
    fillTheRingAndFireOnceMore(*plasma);
    EXPECT_EQ(plasma->shots.count, 128u);
    EXPECT_EQ(plasma->sparks.count, 128u);
    EXPECT_EQ(plasma->ringIndex, 64u);
}

TEST_F(PlasmaTest, TheSlotSearchStartsAtTheSlotUsedLastSoAFreedSlotBehindItWaitsForTheRingToComeRound)
{
    for (int i = 0; i < 3; ++i) fireFrom(100, 200);
    EXPECT_EQ(plasma->ringIndex, 2u);
    plasma->shots[1].dies = 0; // freed, behind the search
    fireFrom(100, 200);
    EXPECT_EQ(plasma->ringIndex, 3u);
    EXPECT_EQ(plasma->shots[1].dies, 0u);
    for (int i = 4; i < 64; ++i) fireFrom(100, 200);
    EXPECT_EQ(plasma->ringIndex, 63u);
    fireFrom(500, 600); // round the ring: 0 is busy, 1 is free
    EXPECT_EQ(plasma->ringIndex, 1u);
    EXPECT_EQ(plasma->shots[1].position, vec2(500, 600));
    EXPECT_EQ(plasma->shots.count, 64u);
}

TEST_F(PlasmaTest, ASlotWhoseBoltHasDiedIsFreeAgainAndTheSearchStaysOnIt)
{
    fireFrom(100, 200);
    advance(1500); // the first bolt dies now
    fireFrom(300, 400);
    EXPECT_EQ(plasma->ringIndex, 0u);
    EXPECT_EQ(plasma->shots[0].position, vec2(300, 400));
}

TEST_F(PlasmaTest, AFullRingGrowsWhereverTheSearchStartsAndGoesOnIntoTheNewHalf)
{
    for (int i = 0; i < 64; ++i) fireFrom(100, 200);
    plasma->ringIndex = 10;
    fireFrom(700, 800);
    EXPECT_EQ(plasma->shots.count, 128u);
    EXPECT_EQ(plasma->ringIndex, 64u);
    EXPECT_EQ(plasma->shots[64].position, vec2(700, 800));
}

TEST_F(PlasmaTest, AHitFreesTheSlotAndDealsDamageFromGRandBetween5And15)
{
    TargetShip* ship = target(vec2(300, 100), 20, 1000);
    fireFrom(100, 100);
    g_rand.seed(kSeed);
    vorlik::Random expected(kSeed); // the draws g_rand will make
    vorlik::Vorlik::sync = 0.4f;    // one step of 300 units runs into the ship
    plasma->update();
    ASSERT_EQ(hits.size(), 1u);
    EXPECT_EQ(hits[0], expected.range(5.0f, 15.0f));
    EXPECT_GE(hits[0], 5.0f);
    EXPECT_LT(hits[0], 15.0f);
    EXPECT_EQ(ship->hitPoints, 1000 - hits[0]);
    EXPECT_EQ(plasma->shots[0].born, 0u);
    EXPECT_EQ(plasma->shots[0].dies, 0u);
    EXPECT_EQ(plasma->shots[0].position, vec2(400, 100)); // moved on, but no longer drawn
    plasma->update();
    EXPECT_EQ(hits.size(), 1u);
}

TEST_F(PlasmaTest, AShipThatSurvivesGets52SparksFlyingOutwardDrawnJustAboveIt)
{
    Hull before, after;
    world.add(&before);
    TargetShip* ship = target(vec2(300, 100), 20, 1000);
    world.add(&after);
    fireFrom(100, 100);
    vorlik::Vorlik::sync = 0.4f;
    plasma->update();

    ParticleSlice* slice = plasma->sparks[0];
    EXPECT_EQ(slice->parent, &world);
    EXPECT_EQ(ship->hull.next, slice);
    EXPECT_EQ(slice->next, &after);
    ASSERT_EQ(slice->count, 52u);
    // From the entry point, away from the ship's centre.
    for (const Particle* p = slice->first; p != nullptr; p = p->next) expectBoltSpark(*p, vec2(280, 100), vec2(-1, 0));
}

TEST_F(PlasmaTest, ABoltThatKillsAShipMakesNoSparks)
{
    target(vec2(300, 100), 20, 5.0f); // every hit does at least 5
    fireFrom(100, 100);
    vorlik::Vorlik::sync = 0.4f;
    plasma->update();
    EXPECT_EQ(hits.size(), 1u);
    EXPECT_EQ(g_game->enemies.count, 0u);
    EXPECT_EQ(plasma->sparks[0]->count, 0u);
    EXPECT_EQ(plasma->sparks[0]->parent, nullptr);
    EXPECT_EQ(liveSparks(), 0u);
    EXPECT_EQ(plasma->shots[0].dies, 0u);
}

TEST_F(PlasmaTest, ABoltAcrossTheSeamHitsTheShipsImageAndItsSparksStillFlyOutward)
{
    target(vec2(10, 2048), 20, 1000); // its (x + W) image is at 4106
    fireFrom(4050, 2048);
    vorlik::Vorlik::sync = 0.1f; // 4050 to 4125: past the world's edge, unwrapped
    plasma->update();
    ASSERT_EQ(hits.size(), 1u);
    EXPECT_FLOAT_EQ(plasma->shots[0].position.x, 4125.0f);
    ParticleSlice* slice = plasma->sparks[0];
    ASSERT_EQ(slice->count, 52u);
    for (const Particle* p = slice->first; p != nullptr; p = p->next) {
        EXPECT_LE(vorlik::distance(p->start, vec2(4086, 2048)), 1.0f);
        EXPECT_LT(p->end.x - p->start.x, 0.0f); // back toward the shooter, not over the seam
    }
}

TEST_F(PlasmaTest, BoltsAreDrawnThreeTimesInEveryViewCopy)
{
    fireFrom(100, 200);
    fireFrom(300, 400);
    plasma->shots[5] = plasma->shots[0];
    plasma->shots[5].dies = kStart; // dead: not drawn
    ViewCopies views({vec2(0, 0), vec2(4096, 0)});
    QuadRecorder sink;
    plasma->drawShots(views.state, sink);
    ASSERT_EQ(sink.batches.size(), 6u);
    for (uint32_t i = 0; i < 6; ++i) {
        const RecordedQuads& batch = sink.batches[i];
        EXPECT_EQ(batch.texture, plasma->texture);
        EXPECT_EQ(batch.modelView, views.modelView(i / 3)) << i;
        ASSERT_EQ(batch.vertices.size(), 8u);
        EXPECT_EQ(batch.vertices[0].x, 100 - 16);
        EXPECT_EQ(batch.vertices[0].y, 200 - 16);
        EXPECT_EQ(batch.vertices[4].x, 300 - 16);
        EXPECT_EQ(batch.vertices[4].y, 400 - 16);
        EXPECT_EQ(batch.vertices[6].u, 1.0f);
        EXPECT_EQ(batch.vertices[6].v, 1.0f);
        EXPECT_EQ(batch.vertices[0].a, 255);
    }
}

TEST_F(PlasmaTest, NothingIsDrawnWithoutALiveBolt)
{
    ViewCopies views({vec2(0, 0)});
    QuadRecorder sink;
    plasma->drawShots(views.state, sink);
    EXPECT_TRUE(sink.batches.empty());
}

} // namespace
