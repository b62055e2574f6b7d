#include "player/ShipMotion.h"

#include "math/scalar.h"

#include <gtest/gtest.h>
#include <cmath>

namespace {

TEST(ShipMotionTest, OppositeKeysCancelSoThereIsNoThrustAndNoCost)
{
    const Thrust t = payForThrust(vorlik::vec2(0, 0), 100, 0.4f);
    EXPECT_EQ(t.change, vorlik::vec2(0, 0));
    EXPECT_EQ(t.energy, 100);
}

TEST(ShipMotionTest, WithEnoughEnergyTheFullChangeIsPaidFor)
{
    const Thrust t = payForThrust(vorlik::vec2(8, 0), 100, 0.4f);
    EXPECT_EQ(t.change, vorlik::vec2(8, 0));
    EXPECT_FLOAT_EQ(t.energy, 99.6f);
}

TEST(ShipMotionTest, WithTooLittleEnergyTheChangeShrinksInProportionAndEnergyEndsAtZero)
{
    const Thrust t = payForThrust(vorlik::vec2(8, -4), 0.1f, 0.4f);
    EXPECT_FLOAT_EQ(t.change.x, 2);
    EXPECT_FLOAT_EQ(t.change.y, -1);
    EXPECT_EQ(t.energy, 0.0f);
}

TEST(ShipMotionTest, EnergyExactlyTheCostIsSpentForNothing)
{
    const Thrust t = payForThrust(vorlik::vec2(8, 0), 0.5f, 0.5f);
    EXPECT_EQ(t.change, vorlik::vec2(0, 0));
    EXPECT_EQ(t.energy, 0.0f);
}

TEST(ShipMotionTest, BrakingStopsAtZeroAndNeverChangesSign)
{
    EXPECT_FLOAT_EQ(brake(10, 4.8f), 5.2f);
    EXPECT_EQ(brake(3, 4.8f), 0.0f);
    EXPECT_FLOAT_EQ(brake(-10, 4.8f), -5.2f);
    EXPECT_EQ(brake(-3, 4.8f), 0.0f);
    EXPECT_EQ(brake(0, 4.8f), 0.0f);
}

TEST(ShipMotionTest, AVelocityOfLengthSixHundredIsCutToThreeHundredFiftyKeepingItsDirection)
{
    const vorlik::vec2 v = limitLength(vorlik::vec2(360, -480), 350);
    EXPECT_FLOAT_EQ(v.length(), 350);
    EXPECT_FLOAT_EQ(v.x, 210);
    EXPECT_FLOAT_EQ(v.y, -280);
    EXPECT_EQ(limitLength(vorlik::vec2(0, 0), 350), vorlik::vec2(0, 0));
    EXPECT_EQ(limitLength(vorlik::vec2(3, 4), 350), vorlik::vec2(3, 4));
}

TEST(ShipMotionTest, DriftGrowsWithSpeedAndSettlesBelowTheLimit)
{
    const float limit = std::sqrt(500.0f * 500.0f * 2);
    vorlik::vec2 drift(0, 0);
    drift = nextDrift(drift, vorlik::vec2(350, 0), 350, limit, 0.016f);
    EXPECT_NEAR(drift.x, 350 * 0.016f * (1 - 350 * 0.016f / limit * 0.016f), 1e-4);
    for (int i = 0; i < 10000; ++i) drift = nextDrift(drift, vorlik::vec2(350, 0), 350, limit, 0.016f);
    EXPECT_LE(drift.length(), 350.0f + 1e-3f);
    EXPECT_GT(drift.x, 300.0f);
    // Once the ship stops the drift only decays, ever more slowly as it shrinks.
    const float moving = drift.length();
    for (int i = 0; i < 2000; ++i) {
        const float before = drift.length();
        drift = nextDrift(drift, vorlik::vec2(0, 0), 350, limit, 0.016f);
        ASSERT_LT(drift.length(), before);
    }
    EXPECT_LT(drift.length(), moving / 10);
}

TEST(ShipMotionTest, TheGlowPulsesAndDimsWithTheEnergy)
{
    EXPECT_EQ(topGlowAlpha(350, 350, 0), static_cast<int32_t>(0.9f * 255));
    const uint32_t peak = static_cast<uint32_t>(vorlik::kPi / 2 / 0.005f); // sin = 1
    EXPECT_EQ(topGlowAlpha(350, 350, peak), 254);
    EXPECT_EQ(topGlowAlpha(175, 350, 0), static_cast<int32_t>(0.5f * 0.9f * 255));
    EXPECT_EQ(topGlowAlpha(0, 350, 0), 0);
    EXPECT_EQ(bottomGlowAlpha(229), 129);
    EXPECT_EQ(bottomGlowAlpha(60), 0);
}

} // namespace
