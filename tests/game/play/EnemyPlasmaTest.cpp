// The enemies' plasma gun without a display: its numbers, its slow gate, bolts that fly through
// enemies and hit friends (the player's ship among them) with the spark rule of the player's
// plasma, the ring's growth, and what deleting the gun does to its bolts and sparks.
#include "play/EnemyPlasma.h"

#include "WeaponTestDoubles.h"
#include "base/Resources.h"
#include "player/Player.h"
#include "scene/ParticleSlice.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

using vorlik::vec2;
using vorlik::vec3;

class EnemyPlasmaTest : public WeaponTest {
protected:
    void SetUp() override
    {
        WeaponTest::SetUp();
        gun.reset(new EnemyPlasma);
    }
    void TearDown() override
    {
        gun.reset();
        WeaponTest::TearDown();
    }

    // The gun at (x, y), as its ship places it, asked for a shot along direction.
    float fireFrom(float x, float y, vec2 direction = vec2(1, 0))
    {
        gun->position = vec3(x, y, 0);
        return gun->fire(direction);
    }
    // A bolt whatever the gate says.
    void fireAnyway(float x, float y, vec2 direction = vec2(1, 0))
    {
        gun->fireRate = Gun::kEveryCall;
        fireFrom(x, y, direction);
    }
    // One frame of sync seconds for the gun.
    void step(float sync)
    {
        vorlik::Vorlik::sync = sync;
        gun->update();
    }
    uint32_t flyingBolts() const
    {
        uint32_t n = 0;
        for (const EnemyPlasma::Vertex& bolt : gun->shots) n += bolt.dies > now() ? 1 : 0;
        return n;
    }

    std::unique_ptr<EnemyPlasma> gun;
};

TEST_F(EnemyPlasmaTest, ANewGunHas16FreeSlotsEachWithItsOwnSparkSliceAndSmallWeakSlowGreenBolts)
{
    // A stand-in for the bolt picture, compared but never read.
    alignas(vorlik::Texture*) unsigned char stand[8];
    vorlik::Texture* const saved = Resources::plasmabullet_tex;
    Resources::plasmabullet_tex = reinterpret_cast<vorlik::Texture*>(stand);
    EnemyPlasma fresh;
    Resources::plasmabullet_tex = saved;

    expectFreshRing(fresh, 16);
    EXPECT_EQ(fresh.damageMin, 2.0f);
    EXPECT_EQ(fresh.damageMax, 7.0f);
    EXPECT_EQ(fresh.fireRate, 0.7f);
    EXPECT_EQ(fresh.power, 1.0f);
    EXPECT_EQ(fresh.lastShot, 0.0f);
    EXPECT_EQ(fresh.level, 1);
    EXPECT_EQ(fresh.colour[0], 25);
    EXPECT_EQ(fresh.colour[1], 255);
    EXPECT_EQ(fresh.colour[2], 50);
    EXPECT_EQ(fresh.colour[3], 255);
    EXPECT_EQ(fresh.shotRadius, 12.0f);
    EXPECT_EQ(fresh.speed, 750.0f);
    EXPECT_EQ(fresh.lifetime, 1500u);
    EXPECT_EQ(fresh.passes, 3u);
    EXPECT_EQ(fresh.texture, reinterpret_cast<vorlik::Texture*>(stand));
    EXPECT_TRUE(fresh.isVisible());
    EXPECT_NE(fresh.flags & DRAW_UNTRANSFORMED, 0u);
    EXPECT_EQ(fresh.blendMode(), uint32_t(BLEND_ADDITIVE));
}

TEST_F(EnemyPlasmaTest, TheFirstBoltLeavesAtOnceAndTheNextNotBefore1428Point6Ms)
{
    EXPECT_EQ(fireFrom(100, 200, vec2(0, -3)), 1.0f);
    const EnemyPlasma::Vertex& first = gun->shots[0];
    EXPECT_EQ(first.position, vec2(100, 200));
    EXPECT_EQ(first.velocity, vec2(0, -750));
    EXPECT_EQ(first.born, kStart);
    EXPECT_EQ(first.dies, kStart + 1500);

    advance(1428); // 0.6 ms too early
    EXPECT_EQ(fireFrom(150, 250), 0.0f);
    EXPECT_EQ(flyingBolts(), 1u);
    EXPECT_EQ(gun->shots[1].dies, 0u);
    EXPECT_EQ(gun->lastShot, float(kStart));

    advance(1); // past the period
    EXPECT_EQ(fireFrom(150, 250), 1.0f);
    EXPECT_EQ(flyingBolts(), 2u);
    EXPECT_EQ(gun->shots[1].position, vec2(150, 250));
    EXPECT_EQ(gun->shots[1].born, kStart + 1429);
}

TEST_F(EnemyPlasmaTest, AskedEveryTenMillisecondFrameItFiresOneBoltEach1430MsNeverFaster)
{
    std::vector<uint32_t> shots;
    float returned = 0.0f;
    for (uint32_t t = 0; t < 5000; t += kFrame) {
        const float power = fireFrom(100, 200);
        if (power > 0.0f) shots.push_back(now());
        returned += power;
        advance(kFrame);
    }
    // The first frame at or past 1428.6 ms after the last shot.
    EXPECT_EQ(shots, (std::vector<uint32_t>{kStart, kStart + 1430, kStart + 2860, kStart + 4290}));
    EXPECT_FLOAT_EQ(returned, 4.0f);
    // Each shot let out one bolt, and each found the slot after the last one still busy.
    for (uint32_t i = 0; i < shots.size(); ++i) EXPECT_EQ(gun->shots[i].born, shots[i]) << i;
    EXPECT_EQ(gun->shots[4].dies, 0u);
}

TEST_F(EnemyPlasmaTest, BoltsFlyThroughEnemiesAndHitFriends)
{
    target(vec2(300, 100), 20, 1000); // an enemy in the path
    friendShip(vec2(600, 100), 20, 1000);
    fireAnyway(100, 100);
    step(0.4f); // 100 to 400, through the enemy
    EXPECT_TRUE(hits.empty());
    EXPECT_TRUE(friendHits.empty());
    EXPECT_EQ(flyingBolts(), 1u);
    step(0.4f); // 400 to 700, into the friend
    EXPECT_TRUE(hits.empty());
    EXPECT_EQ(friendHits.size(), 1u);
    EXPECT_EQ(flyingBolts(), 0u);
}

TEST_F(EnemyPlasmaTest, AFriendThatSurvivesTakesDamageFrom2To7AndItsSlotsSliceGets52SparksJustAboveIt)
{
    Hull before, after;
    world.add(&before);
    TargetFriend* ship = friendShip(vec2(300, 100), 20, 1000);
    world.add(&after);
    fireAnyway(100, 600, vec2(0, 1)); // slots 0 and 1 fly away from the ship
    fireAnyway(100, 600, vec2(0, 1));
    fireAnyway(100, 100);             // slot 2 runs into it
    ASSERT_EQ(gun->ringIndex, 2u);
    g_rand.seed(kSeed);
    vorlik::Random expected(kSeed); // the draws g_rand will make
    step(0.4f);

    ASSERT_EQ(friendHits.size(), 1u);
    EXPECT_EQ(friendHits[0], expected.range(2.0f, 7.0f));
    EXPECT_GE(friendHits[0], 2.0f);
    EXPECT_LT(friendHits[0], 7.0f);
    EXPECT_EQ(ship->hull, 1000 - friendHits[0]);
    EXPECT_EQ(gun->shots[2].born, 0u);
    EXPECT_EQ(gun->shots[2].dies, 0u);
    EXPECT_EQ(flyingBolts(), 2u);

    ParticleSlice* slice = gun->sparks[2];
    EXPECT_EQ(slice->parent, &world);
    EXPECT_EQ(ship->body.next, slice);
    EXPECT_EQ(slice->next, &after);
    ASSERT_EQ(slice->count, 52u);
    EXPECT_EQ(recordsHeldBy(slice), 52u);
    EXPECT_EQ(liveSparks(), 52u); // the other slots' slices got none
    // From the entry point, away from the ship's centre.
    for (const Particle* p = slice->first; p != nullptr; p = p->next) expectBoltSpark(*p, vec2(280, 100), vec2(-1, 0));
}

TEST_F(EnemyPlasmaTest, ABoltThatHitsThePlayerFadingInAfterARespawnDoesNoDamageButIsUsedUpAndSparks)
{
    Player* player = new Player();
    g_game->player = player; // the session deletes it
    g_game->actors.push(player);
    g_game->friends.push(player);
    world.add(player->shipGroup);
    player->position = vec2(300, 100);
    player->respawn(); // one second of growing in starts now
    ASSERT_EQ(player->hull, 125.0f);

    advance(kFrame);
    fireAnyway(100, 100);
    step(0.4f);
    EXPECT_EQ(player->hull, 125.0f);
    EXPECT_EQ(gun->shots[0].dies, 0u);
    ParticleSlice* slice = gun->sparks[0];
    EXPECT_EQ(slice->count, 52u);
    EXPECT_EQ(player->shipGroup->next, slice);

    advance(1000); // grown in: the next bolt does harm
    fireAnyway(100, 100);
    step(0.4f);
    EXPECT_LT(player->hull, 125.0f);
}

TEST_F(EnemyPlasmaTest, AShipKilledByTheBoltGetsNoSparks)
{
    friendShip(vec2(300, 100), 20, 2.0f); // every hit does at least 2
    fireAnyway(100, 100);
    step(0.4f);
    EXPECT_EQ(friendHits.size(), 1u);
    EXPECT_EQ(g_game->friends.count, 0u);
    EXPECT_EQ(gun->shots[0].dies, 0u);
    EXPECT_EQ(gun->sparks[0]->count, 0u);
    EXPECT_EQ(gun->sparks[0]->parent, nullptr);
    EXPECT_EQ(liveSparks(), 0u);
}

TEST_F(EnemyPlasmaTest, DeletingTheGunWhileBoltsFlyAndSparksLiveTakesThemWithIt)
{
    friendShip(vec2(300, 100), 20, 1000);
    fireAnyway(100, 100);
    fireAnyway(100, 600, vec2(0, 1)); // still flying when the gun goes
    step(0.4f);
    ParticleSlice* slice = gun->sparks[0];
    ASSERT_EQ(slice->count, 52u);
    ASSERT_EQ(world.last, slice);
    ASSERT_EQ(flyingBolts(), 1u);

    gun.reset();
    for (const Drawable* d = world.first; d != nullptr; d = d->next) EXPECT_NE(d, slice);
    EXPECT_EQ(liveSparks(), 0u);
    EXPECT_EQ(recordsHeldBy(slice), 0u);
    flood(2048); // recycling the freed records touches no deleted slice
    EXPECT_EQ(sparks().defaultSlice->count, 1024u);
}

TEST_F(EnemyPlasmaTest, A17thBoltInFlightDoublesTheRingTo32SlotsAndTheSparkSlicesTo32)
{
    fillTheRingAndFireOnceMore(*gun);
    EXPECT_EQ(gun->shots.count, 32u);
    EXPECT_EQ(gun->sparks.count, 32u);
    EXPECT_EQ(gun->ringIndex, 16u);
}

TEST_F(EnemyPlasmaTest, GreenBoltsTwelveEachSideAreDrawnThreeTimesInEveryViewCopyAndFadeWithAge)
{
    fireAnyway(100, 200);
    advance(750); // half its life
    ViewCopies views({vec2(0, 0), vec2(0, 4096)});
    QuadRecorder sink;
    gun->drawShots(views.state, sink);
    ASSERT_EQ(sink.batches.size(), 6u);
    for (uint32_t i = 0; i < 6; ++i) {
        const RecordedQuads& batch = sink.batches[i];
        EXPECT_EQ(batch.texture, gun->texture);
        EXPECT_EQ(batch.modelView, views.modelView(i / 3)) << i;
        ASSERT_EQ(batch.vertices.size(), 4u);
        // Bolts move in the gun's update, which this test never calls: it is still where it left.
        EXPECT_EQ(batch.vertices[0].x, 100 - 12);
        EXPECT_EQ(batch.vertices[0].y, 200 - 12);
        EXPECT_EQ(batch.vertices[2].x, 100 + 12);
        EXPECT_EQ(batch.vertices[2].y, 200 + 12);
        EXPECT_EQ(batch.vertices[0].r, 25);
        EXPECT_EQ(batch.vertices[0].g, 255);
        EXPECT_EQ(batch.vertices[0].b, 50);
        EXPECT_EQ(batch.vertices[0].a, 127) << "half faded at half its life";
    }
}

} // namespace
