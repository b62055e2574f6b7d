// The guns' common part: the fire-rate gate with each gun's rate and price, the player side's
// hit test against the session's enemies, and how the scenes are to draw a gun.
#include "play/Weapon.h"

#include "WeaponTestDoubles.h"
#include "play/Laser.h"
#include "play/Plasma.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace {

using vorlik::vec2;

// Holds the trigger of gun for ms milliseconds in kFrame steps, from now on. Returns the times
// at which a shot left and adds up the energy paid in *paid.
std::vector<uint32_t> holdTrigger(Weapon& gun, uint32_t ms, float* paid)
{
    std::vector<uint32_t> shots;
    for (uint32_t t = 0; t < ms; t += WeaponTest::kFrame) {
        const float cost = gun.fire(vec2(1, 0));
        if (cost > 0.0f) shots.push_back(vorlik::Vorlik::currentTime);
        *paid += cost;
        vorlik::Vorlik::currentTime += WeaponTest::kFrame;
    }
    return shots;
}

TEST_F(WeaponTest, HoldingThePlasmaTriggerFiresOneBoltEach200MsForTwoEnergyABolt)
{
    Plasma plasma;
    float paid = 0.0f;
    const std::vector<uint32_t> shots = holdTrigger(plasma, 1000, &paid);
    EXPECT_EQ(shots, (std::vector<uint32_t>{kStart, kStart + 200, kStart + 400, kStart + 600, kStart + 800}));
    EXPECT_FLOAT_EQ(paid, 10.0f);
}

TEST_F(WeaponTest, HoldingTheLaserTriggerFiresOneBeamEach250MsForEightEnergyABeam)
{
    Laser laser;
    float paid = 0.0f;
    const std::vector<uint32_t> shots = holdTrigger(laser, 1000, &paid);
    EXPECT_EQ(shots, (std::vector<uint32_t>{kStart, kStart + 250, kStart + 500, kStart + 750}));
    EXPECT_FLOAT_EQ(paid, 32.0f);
}

TEST_F(WeaponTest, TheGateCountsFromTheFrameThatFiredSoSixteenMillisecondFramesGiveA208MsGap)
{
    Plasma plasma;
    std::vector<uint32_t> shots;
    for (uint32_t t = 0; t < 1000; t += 16) {
        if (plasma.fire(vec2(1, 0)) > 0.0f) shots.push_back(now());
        advance(16);
    }
    EXPECT_EQ(shots, (std::vector<uint32_t>{kStart, kStart + 208, kStart + 416, kStart + 624, kStart + 832}));
}

TEST_F(WeaponTest, TheFirstShotLeavesAtOnceAndTheGateRemembersIt)
{
    Plasma plasma;
    EXPECT_EQ(plasma.lastShot, 0.0f);
    EXPECT_FLOAT_EQ(plasma.fire(vec2(0, 1)), 2.0f);
    EXPECT_EQ(plasma.lastShot, float(kStart));
    advance(199);
    EXPECT_EQ(plasma.fire(vec2(0, 1)), 0.0f);
    EXPECT_EQ(plasma.lastShot, float(kStart));
}

TEST_F(WeaponTest, AFireRateOfZeroNeverFires)
{
    Plasma plasma;
    plasma.fireRate = 0.0f;
    float paid = 0.0f;
    EXPECT_TRUE(holdTrigger(plasma, 5000, &paid).empty());
    EXPECT_EQ(paid, 0.0f);
    EXPECT_EQ(plasma.lastShot, 0.0f);
}

TEST_F(WeaponTest, AFireRateOfMinusOneFiresAtEveryCall)
{
    Laser laser;
    laser.fireRate = Weapon::kEveryCall;
    EXPECT_FLOAT_EQ(laser.fire(vec2()), 8.0f);
    EXPECT_FLOAT_EQ(laser.fire(vec2()), 8.0f);
    advance(1);
    EXPECT_FLOAT_EQ(laser.fire(vec2()), 8.0f);
    EXPECT_EQ(laser.lastShot, float(kStart + 1));
}

TEST_F(WeaponTest, CollideFindsTheNearestEnemyOfTheSessionWhateverTheShotsIndexAndSize)
{
    Plasma plasma;
    TargetShip* far = target(vec2(400, 100), 30, 100);
    TargetShip* near = target(vec2(250, 100), 20, 100);
    const hit_struct hit = plasma.collide(vec2(100, 100), vec2(500, 100), 0, 16.0f);
    EXPECT_EQ(hit.target, near);
    EXPECT_FLOAT_EQ(hit.point.x, 230.0f);
    EXPECT_FLOAT_EQ(hit.point.y, 100.0f);
    const hit_struct again = plasma.collide(vec2(100, 100), vec2(500, 100), 63, 1000.0f);
    EXPECT_EQ(again.target, near);
    delete near;
    EXPECT_EQ(plasma.collide(vec2(100, 100), vec2(500, 100), 0, 16.0f).target, far);
}

TEST_F(WeaponTest, CollideWithoutEnemiesHitsNothing)
{
    Laser laser;
    const hit_struct hit = laser.collide(vec2(0, 0), vec2(1280, 0), 0, 7.0f);
    EXPECT_EQ(hit.target, nullptr);
    EXPECT_EQ(hit.point, vec2(0, 0));
}

TEST_F(WeaponTest, GunsAreVisibleUntransformedAndAdditive)
{
    Plasma plasma;
    Laser laser;
    for (const Weapon* gun : {static_cast<Weapon*>(&plasma), static_cast<Weapon*>(&laser)}) {
        EXPECT_TRUE(gun->isVisible());
        EXPECT_NE(gun->flags & DRAW_UNTRANSFORMED, 0u);
        EXPECT_EQ(gun->blendMode(), uint32_t(BLEND_ADDITIVE));
        EXPECT_EQ(gun->level, 1);
    }
}

TEST_F(WeaponTest, ASquareSpansTheWholeTextureInOneColour)
{
    const uint8_t colour[4] = {1, 2, 3, 4};
    const Weapon::Quad q = Weapon::square(vec2(10, 20), 5.0f, colour);
    const float expected[4][4] = {{5, 15, 0, 0}, {15, 15, 1, 0}, {15, 25, 1, 1}, {5, 25, 0, 1}};
    for (int i = 0; i < 4; ++i) {
        const Weapon::QuadVertex& c = q.corners[i];
        EXPECT_EQ(c.x, expected[i][0]);
        EXPECT_EQ(c.y, expected[i][1]);
        EXPECT_EQ(c.u, expected[i][2]);
        EXPECT_EQ(c.v, expected[i][3]);
        EXPECT_EQ(c.r, 1);
        EXPECT_EQ(c.g, 2);
        EXPECT_EQ(c.b, 3);
        EXPECT_EQ(c.a, 4);
    }
}

} // namespace
