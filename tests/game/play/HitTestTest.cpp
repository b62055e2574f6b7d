#include "play/HitTest.h"

#include <gtest/gtest.h>
#include <cmath>

namespace {

Actor* ship(vorlik::Stack<Actor*>& list, Actor& a, float x, float y, float radius)
{
    a.position = vorlik::vec2(x, y);
    a.radius = radius;
    list.push(&a);
    return &a;
}

class HitTestTest : public ::testing::Test {
protected:
    HitTest test;
    vorlik::Stack<Actor*> targets{8};
    Actor a, b, c;
};

TEST_F(HitTestTest, AStepThroughTwoShipsHitsTheOneNearerItsStartOnThatShipsCircle)
{
    ship(targets, a, 300, 100, 20); // listed first, but farther from the start
    ship(targets, b, 200, 100, 10);
    const hit_struct hit = test.collide(targets, vorlik::vec2(100, 100), vorlik::vec2(400, 100));
    EXPECT_EQ(hit.target, &b);
    EXPECT_FLOAT_EQ(hit.point.x, 190);
    EXPECT_FLOAT_EQ(hit.point.y, 100);
}

TEST_F(HitTestTest, NearestIsMeasuredCentreToStartNotAlongTheStep)
{
    // b lies beside the start, a straight ahead but farther: b's centre is nearer the start.
    ship(targets, a, 160, 100, 30);
    ship(targets, b, 100, 125, 30);
    const hit_struct hit = test.collide(targets, vorlik::vec2(100, 100), vorlik::vec2(300, 100));
    EXPECT_EQ(hit.target, &b);
}

TEST_F(HitTestTest, EqualDistancesKeepTheTargetListOrder)
{
    ship(targets, a, 200, 110, 20);
    ship(targets, b, 200, 90, 20);
    ship(targets, c, 200, 110, 20);
    EXPECT_EQ(test.collide(targets, vorlik::vec2(100, 100), vorlik::vec2(300, 100)).target, &a);
    targets.clear();
    ship(targets, b, 200, 90, 20);
    ship(targets, a, 200, 110, 20);
    EXPECT_EQ(test.collide(targets, vorlik::vec2(100, 100), vorlik::vec2(300, 100)).target, &b);
}

TEST_F(HitTestTest, AStartInsideTheShipGivesAnEntryPointBehindTheStart)
{
    ship(targets, a, 100, 100, 50);
    const hit_struct hit = test.collide(targets, vorlik::vec2(100, 100), vorlik::vec2(110, 100));
    EXPECT_EQ(hit.target, &a);
    EXPECT_FLOAT_EQ(hit.point.x, 50);
    EXPECT_FLOAT_EQ(hit.point.y, 100);
}

TEST_F(HitTestTest, AShotAcrossTheSeamHitsTheFarShipThroughItsImage)
{
    ship(targets, a, 5, 2000, 20); // just past the right edge, seen from a shot near x = 4096
    const hit_struct hit = test.collide(targets, vorlik::vec2(4050, 2000), vorlik::vec2(4120, 2000));
    EXPECT_EQ(hit.target, &a);
    EXPECT_FLOAT_EQ(hit.point.x, 4096 + 5 - 20); // in the (x + W) image's coordinates
    EXPECT_FLOAT_EQ(hit.point.y, 2000);
    targets.clear();
    ship(targets, b, 4090, 2000, 20);
    const hit_struct back = test.collide(targets, vorlik::vec2(30, 2000), vorlik::vec2(-40, 2000));
    EXPECT_EQ(back.target, &b);
    EXPECT_FLOAT_EQ(back.point.x, 4090 - 4096 + 20); // the (x - W) image
}

TEST_F(HitTestTest, AStepOfLengthZeroNeverHitsEvenFromInsideAShip)
{
    ship(targets, a, 100, 100, 50);
    const hit_struct hit = test.collide(targets, vorlik::vec2(100, 100), vorlik::vec2(100, 100));
    EXPECT_EQ(hit.target, nullptr);
    EXPECT_EQ(hit.point, vorlik::vec2(0, 0));
}

TEST_F(HitTestTest, TouchingTheBoxButFartherThanTheRadiusFromTheLineIsNoHit)
{
    // The step's box is (100, 100) to (200, 200); both ships reach into it (20 from its edge)
    // but their centres are about 28 from the diagonal.
    ship(targets, a, 220, 180, 22);
    EXPECT_EQ(test.collide(targets, vorlik::vec2(100, 100), vorlik::vec2(200, 200)).target, nullptr);
    ship(targets, b, 180, 220, 22);
    EXPECT_EQ(test.collide(targets, vorlik::vec2(100, 100), vorlik::vec2(200, 200)).target, nullptr);
    EXPECT_EQ(test.candidates.count, 2u);
}

TEST_F(HitTestTest, NearTheBoxCornerTheLineTestCountsAShipBeyondTheSegmentsEnd)
{
    // The centre lies on the step's line past its end: 14 from the end, inside the box test's
    // reach, so the line test alone decides, and it hits although the segment stops short.
    ship(targets, a, 214, 100, 15);
    const hit_struct hit = test.collide(targets, vorlik::vec2(100, 100), vorlik::vec2(200, 100));
    EXPECT_EQ(hit.target, &a);
    EXPECT_FLOAT_EQ(hit.point.x, 199);
}

TEST_F(HitTestTest, AtMostOneImageOfAShipIsACandidate)
{
    // A ship as wide as the world: several images touch a long step, but the ship counts once.
    ship(targets, a, 2048, 100, 3000);
    test.collide(targets, vorlik::vec2(-3000, 100), vorlik::vec2(7000, 100));
    EXPECT_EQ(test.candidates.count, 1u);
    EXPECT_EQ(test.candidates[0].point, vorlik::vec2(2048, 100)); // the first image in order
}

TEST_F(HitTestTest, AnEmptyTargetListIsNoHitAndOnlyEmptiesTheScratchLists)
{
    ship(targets, a, 200, 100, 20);
    test.collide(targets, vorlik::vec2(100, 100), vorlik::vec2(300, 100));
    ASSERT_EQ(test.candidates.count, 1u);
    const vorlik::vec2 imageBefore = test.images[0];
    vorlik::Stack<Actor*> none(1);
    const hit_struct hit = test.collide(none, vorlik::vec2(100, 100), vorlik::vec2(300, 100));
    EXPECT_EQ(hit.target, nullptr);
    EXPECT_EQ(test.candidates.count, 0u);
    EXPECT_EQ(test.keys.count, 0u);
    EXPECT_EQ(test.images.count, 9u); // the last ship's images are left as they were
    EXPECT_EQ(test.images[0], imageBefore);
}

TEST_F(HitTestTest, TheScratchListsKeepTheirMemoryBetweenCalls)
{
    Actor many[100];
    for (int i = 0; i < 100; ++i) ship(targets, many[i], 200 + i, 100, 5);
    test.collide(targets, vorlik::vec2(0, 100), vorlik::vec2(400, 100));
    const hit_struct* data = test.candidates.data;
    const uint32_t capacity = test.candidates.capacity;
    test.collide(targets, vorlik::vec2(0, 100), vorlik::vec2(400, 100));
    EXPECT_EQ(test.candidates.data, data);
    EXPECT_EQ(test.candidates.capacity, capacity);
    EXPECT_EQ(test.candidates.count, 100u);
}

TEST(LineDistanceTest, IsThePerpendicularDistanceToTheInfiniteLine)
{
    EXPECT_DOUBLE_EQ(lineDistance(vorlik::vec2(500, 7), vorlik::vec2(0, 0), vorlik::vec2(1, 0)), 7.0);
    EXPECT_TRUE(std::isnan(lineDistance(vorlik::vec2(1, 1), vorlik::vec2(0, 0), vorlik::vec2(0, 0))));
}

} // namespace
