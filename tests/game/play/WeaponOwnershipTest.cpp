// Who owns the guns' sparks, checked where a mistake would touch freed memory (run under
// AddressSanitizer): the shared spark ring recycling a gun's sparks, a gun deleted while its
// sparks still fly, and the order in which the session lets go of its spark system.
#include "WeaponTestDoubles.h"
#include "play/Laser.h"
#include "play/Plasma.h"
#include "scene/Particle.h"
#include "scene/ParticleEmitter.h"
#include "scene/ParticleSlice.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using vorlik::vec2;
using vorlik::vec3;

class WeaponOwnershipTest : public WeaponTest {
protected:
    // One bolt from (100, 100) into a ship at (300, 100) that survives: 52 sparks in slice 0.
    void hitWithPlasma(Plasma& plasma)
    {
        plasma.fireRate = Weapon::kEveryCall;
        plasma.position = vec3(100, 100, 0);
        plasma.fire(vec2(1, 0));
        const float sync = vorlik::Vorlik::sync;
        vorlik::Vorlik::sync = 0.4f;
        plasma.update();
        vorlik::Vorlik::sync = sync;
    }
};

TEST_F(WeaponOwnershipTest, ASparkSliceWhoseSparksTheRingRecyclesStaysWhole)
{
    target(vec2(300, 100), 20, 1000);
    Plasma plasma;
    hitWithPlasma(plasma);
    ParticleSlice* slice = plasma.sparks[0];
    ASSERT_EQ(slice->count, 52u);
    flood(1024); // every record of the ring is taken back
    EXPECT_EQ(slice->count, 0u);
    EXPECT_EQ(slice->first, nullptr);
    EXPECT_EQ(slice->last, nullptr);
    EXPECT_EQ(slice->parent, &world); // still placed; it leaves at its next draw while empty

    advance(kFrame);
    hitWithPlasma(plasma); // the same slot and slice again
    EXPECT_EQ(slice->count, 52u);
    EXPECT_EQ(recordsHeldBy(slice), 52u);
    flood(1024 - 52 + 20); // round the ring again, into the first 20 of the new sparks
    EXPECT_EQ(slice->count, 32u);
    EXPECT_EQ(recordsHeldBy(slice), 32u);
    uint32_t linked = 0;
    for (const Particle* p = slice->first; p != nullptr; p = p->next) ++linked;
    EXPECT_EQ(linked, slice->count);
}

TEST_F(WeaponOwnershipTest, APlasmaDeletedWhileItsSparksFlyTakesThemWithIt)
{
    target(vec2(300, 100), 20, 1000);
    auto plasma = std::make_unique<Plasma>();
    hitWithPlasma(*plasma);
    ParticleSlice* slice = plasma->sparks[0];
    ASSERT_EQ(world.last, slice);
    plasma.reset();
    EXPECT_NE(world.last, slice); // the slice left the scene with the gun
    EXPECT_EQ(recordsHeldBy(slice), 0u);
    flood(2048); // recycling the freed records touches no deleted slice
    EXPECT_EQ(sparks().defaultSlice->count, 1024u);
}

TEST_F(WeaponOwnershipTest, ALaserDeletedWhileItsSparksFlyHandsItsEmittersBack)
{
    target(vec2(1500, 1000), 50, 1000);
    auto laser = std::make_unique<Laser>();
    laser->position = vec3(1000, 1000, 0);
    laser->fireRate = Weapon::kEveryCall;
    sparks().update();
    laser->fire(vec2());
    laser->updateToward(vec2(3000, 1000));
    advance(100);
    sparks().update(); // 30 sparks into slice 0
    ParticleSlice* slice = laser->sparkSlices[0];
    ASSERT_EQ(slice->count, 30u);
    laser.reset();
    EXPECT_EQ(sparks().emitters.count, 0u);
    EXPECT_EQ(recordsHeldBy(slice), 0u);
    advance(100);
    sparks().update(); // no emitter of the deleted gun is left to run
    flood(2048);
    EXPECT_EQ(sparks().defaultSlice->count, 1024u);
}

TEST_F(WeaponOwnershipTest, TheSessionDeletesItsSparkSystemAfterTheGuns)
{
    target(vec2(300, 100), 20, 1000);
    auto plasma = std::make_unique<Plasma>();
    auto laser = std::make_unique<Laser>();
    hitWithPlasma(*plasma);
    ASSERT_EQ(sparks().emitters.count, 32u);
    // The order the session keeps: the guns go with the ship, the spark system last.
    laser.reset();
    plasma.reset();
    delete g_game;
    g_game = nullptr;
}

TEST_F(WeaponOwnershipTest, APlasmaMayOutliveTheSparkSystemItsSlicesCameFrom)
{
    target(vec2(300, 100), 20, 1000);
    auto plasma = std::make_unique<Plasma>();
    hitWithPlasma(*plasma);
    delete g_game; // empties the plasma's slices on the way
    g_game = nullptr;
    EXPECT_EQ(plasma->sparks[0]->count, 0u);
    EXPECT_EQ(plasma->sparks[0]->first, nullptr);
    plasma.reset();
}

} // namespace
