// The starfield's arithmetic without a display: where the stars are made, how they drift and
// wrap, how the camera's step is taken across the world's seam, where the sky camera swings,
// and the vertex batches the stars are drawn from.
#include "scene/Starfield.h"

#include "base/GameRandom.h"
#include "core/Random.h"
#include "core/Stack.h"
#include "math/scalar.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

using vorlik::vec2;
using vorlik::vec3;

namespace {

constexpr float kScreenWidth = 1280.0f;
constexpr float kScreenHeight = 720.0f;
constexpr float kTolerance = 1e-3f;

// Starfields made from g_rand as it is built, which is left so for the other tests.
class StarfieldTest : public ::testing::Test {
protected:
    void SetUp() override { g_rand.seed(kStaticRandomSeed); }
    void TearDown() override { g_rand.seed(kStaticRandomSeed); }

    // Puts the first star at (x, y) with depth z.
    static void makeSingle(Starfield& field, float x, float y, float z)
    {
        field.stars[0].x = x;
        field.stars[0].y = y;
        field.stars[0].z = z;
    }
};

// Records every batch handed over, copied out of the shared list.
class RecordingBatches : public Starfield::BatchSink {
public:
    void drawBatch(const vorlik::Stack<Starfield::Vertex>& vertices) override
    {
        batches.emplace_back(vertices.begin(), vertices.end());
    }
    std::vector<std::vector<Starfield::Vertex>> batches;
};

std::vector<std::vector<Starfield::Vertex>> batchesOf(uint32_t starCount)
{
    const Starfield field(starCount, kScreenWidth, kScreenHeight);
    vorlik::Stack<Starfield::Vertex> vertices(1024);
    RecordingBatches sink;
    field.batchStars(vertices, sink);
    return sink.batches;
}

} // namespace

TEST_F(StarfieldTest, StartsWithItsTuningAsAnEffectThatIsVisible)
{
    const Starfield field(3, kScreenWidth, kScreenHeight);
    EXPECT_EQ(field.count, 3u);
    EXPECT_EQ(field.parallax, 0.8f);
    EXPECT_EQ(field.minDepth, 1.0f);
    EXPECT_EQ(field.maxDepth, 30.0f);
    EXPECT_EQ(field.margin, 50.0f);
    EXPECT_EQ(field.starWidth, 32.0f);
    EXPECT_EQ(field.starHeight, 15.0f);
    EXPECT_EQ(field.drawSky, 1);
    EXPECT_EQ(field.drawStars, 1);
    EXPECT_TRUE(field.flags & DRAW_UNTRANSFORMED);
    EXPECT_TRUE(field.isVisible());
}

TEST_F(StarfieldTest, SkyIsDimmedToPointEightTwoAndTiltedSevenAboutXAndFiftySixAboutZ)
{
    const Starfield field(0, kScreenWidth, kScreenHeight);
    EXPECT_EQ(field.sky.brightness, 0.82f);
    EXPECT_EQ(field.sky.shade(), 209);
    EXPECT_EQ(field.sky.tiltX, 7.0f);
    EXPECT_EQ(field.sky.tiltY, 0.0f);
    EXPECT_EQ(field.sky.tiltZ, 56.0f);
}

TEST_F(StarfieldTest, StarsAreScatteredOverTheScreenAndItsMargin)
{
    const Starfield field(512, kScreenWidth, kScreenHeight);
    int palest = 255, deepest = 0;
    for (uint32_t i = 0; i < field.count; ++i) {
        const Starfield::Star& s = field.stars[i];
        EXPECT_GE(s.x, -50.0f);
        EXPECT_LE(s.x, kScreenWidth + 50.0f);
        EXPECT_GE(s.y, -50.0f);
        EXPECT_LE(s.y, kScreenHeight + 50.0f);
        EXPECT_GE(s.z, 1.0f);
        EXPECT_LE(s.z, 30.0f);
        EXPECT_GE(s.size, 0.2f);
        EXPECT_LE(s.size, 0.7f);
        EXPECT_EQ(s.a, 255);
        EXPECT_EQ(s.brightness, field.brightnessAt(s.z, s.size));
        for (int channel : {int(s.r), int(s.g), int(s.b)}) {
            palest = std::min(palest, channel);
            deepest = std::max(deepest, channel);
        }
    }
    // Colour bytes run from 168 to 255, both ends included.
    EXPECT_EQ(palest, 168);
    EXPECT_EQ(deepest, 255);
}

TEST_F(StarfieldTest, StarsAreMadeFromTheLastToTheFirstBlueGreenRedThenPlaceDepthAndSize)
{
    const Starfield field(2, kScreenWidth, kScreenHeight);
    vorlik::Random replay(kStaticRandomSeed);
    for (int i : {1, 0}) {
        const Starfield::Star& s = field.stars[i];
        EXPECT_EQ(s.b, replay.range(168, 256)) << "star " << i;
        EXPECT_EQ(s.g, replay.range(168, 256));
        EXPECT_EQ(s.r, replay.range(168, 256));
        EXPECT_EQ(s.x, replay.range(-50.0f, kScreenWidth + 50.0f));
        EXPECT_EQ(s.y, replay.range(-50.0f, kScreenHeight + 50.0f));
        EXPECT_EQ(s.z, replay.range(1.0f, 30.0f));
        EXPECT_EQ(s.size, replay.range(0.2f, 0.7f));
    }
}

TEST_F(StarfieldTest, FarLargeStarHasBrightnessPointThreeAndMovesAThirtiethOfTheStepTimesPointEight)
{
    Starfield field(1, kScreenWidth, kScreenHeight);
    EXPECT_NEAR(field.brightnessAt(30.0f, 0.7f), 0.3f, 1e-6f);
    makeSingle(field, 640.0f, 360.0f, 30.0f);
    field.update(vec2(300.0f, -150.0f));
    EXPECT_NEAR(field.stars[0].x, 640.0f - 300.0f * 0.8f / 30.0f, kTolerance);
    EXPECT_NEAR(field.stars[0].y, 360.0f + 150.0f * 0.8f / 30.0f, kTolerance);
    EXPECT_EQ(field.stars[0].z, 30.0f);
}

TEST_F(StarfieldTest, NearStarsMoveFasterThanFarOnes)
{
    Starfield field(2, kScreenWidth, kScreenHeight);
    field.stars[0] = Starfield::Star{600.0f, 300.0f, 1.0f, 0, 0, 0, 0, 1.0f, 1.0f};
    field.stars[1] = Starfield::Star{600.0f, 300.0f, 10.0f, 0, 0, 0, 0, 1.0f, 1.0f};
    field.update(vec2(-50.0f, 0.0f));
    EXPECT_NEAR(field.stars[0].x, 640.0f, kTolerance);
    EXPECT_NEAR(field.stars[1].x, 604.0f, kTolerance);
}

TEST_F(StarfieldTest, StarLeavingTheRightEdgeByMoreThanTheMarginReappearsAtTheLeftMargin)
{
    Starfield field(1, kScreenWidth, kScreenHeight);
    makeSingle(field, 1325.0f, 360.0f, 1.0f);
    field.update(vec2(-10.0f, 0.0f)); // the camera goes left, the star 8 pixels right
    EXPECT_NEAR(field.stars[0].x, -50.0f + 3.0f, kTolerance);
    EXPECT_NEAR(field.stars[0].y, 360.0f, kTolerance);
}

TEST_F(StarfieldTest, StarsWrapOverEveryEdgeOfTheScreenAndItsMargin)
{
    Starfield field(1, kScreenWidth, kScreenHeight);
    makeSingle(field, -45.0f, -48.0f, 2.0f);
    field.update(vec2(20.0f, 10.0f)); // 8 pixels left, 4 up
    EXPECT_NEAR(field.stars[0].x, 1330.0f - 3.0f, kTolerance);
    EXPECT_NEAR(field.stars[0].y, 770.0f - 2.0f, kTolerance);
    field.update(vec2(0.0f, -10.0f)); // 4 down, back over the bottom edge
    EXPECT_NEAR(field.stars[0].y, -48.0f, kTolerance);
}

TEST_F(StarfieldTest, CameraStepIsTheCameraMoveWhenItStaysWithinAWindow)
{
    const vec2 d = Starfield::cameraStep(vec2(1000.0f, 2000.0f), vec2(1012.5f, 1990.0f), vec2(1280.0f, 720.0f),
                                         vec2(4096.0f, 4096.0f));
    EXPECT_EQ(d, vec2(12.5f, -10.0f));
}

TEST_F(StarfieldTest, CameraWrappingAcrossTheSeamIsTakenAsTheShortMove)
{
    const vec2 window(1280.0f, 720.0f), world(4096.0f, 4096.0f);
    EXPECT_EQ(Starfield::cameraStep(vec2(4090.0f, 5.0f), vec2(5.0f, 4090.0f), window, world), vec2(11.0f, -11.0f));
    EXPECT_EQ(Starfield::cameraStep(vec2(5.0f, 4090.0f), vec2(4090.0f, 5.0f), window, world), vec2(-11.0f, 11.0f));
}

TEST_F(StarfieldTest, FirstGameFrameJumpFromTheSceneStartToTheWorldCentreCountsAsAWrap)
{
    // The world camera starts at the window's centre and the first frame puts it on the ship
    // at (2048, 2048): both axes move by more than a window and are shortened by a world.
    const vec2 d = Starfield::cameraStep(vec2(640.0f, 360.0f), vec2(2048.0f, 2048.0f), vec2(1280.0f, 720.0f),
                                         vec2(4096.0f, 4096.0f));
    EXPECT_EQ(d, vec2(1408.0f - 4096.0f, 1688.0f - 4096.0f));
}

TEST_F(StarfieldTest, SkyCameraStartsItsSwingAtTimeZero)
{
    vorlik::Camera camera;
    Starfield::placeSkyCamera(camera, 0);
    EXPECT_NEAR(camera.position.x, -25.0f, 1e-5f);
    EXPECT_NEAR(camera.position.y, 9.0f, 1e-5f);
    EXPECT_NEAR(camera.position.z, 0.0f, 1e-5f);
    EXPECT_NEAR(camera.target.x, 0.0f, 1e-5f);
    EXPECT_NEAR(camera.target.y, 2.5f, 1e-5f);
    EXPECT_NEAR(camera.target.z, 1.0f, 1e-5f);
    EXPECT_EQ(camera.fieldOfView, 50.0f);
}

TEST_F(StarfieldTest, SkyCameraMovesContinuouslyWithTheClock)
{
    // The clock is divided as a real number: 6.5 seconds are a hundredth of a radian.
    vorlik::Camera camera;
    Starfield::placeSkyCamera(camera, 6500);
    const float t = 0.01f;
    EXPECT_NEAR(camera.position.x, -25.0f * std::cos(1.8f * t), 1e-5f);
    EXPECT_NEAR(camera.position.y, 9.0f - std::sin(1.1f * t), 1e-5f);
    EXPECT_NEAR(camera.position.z, 25.0f * std::sin(1.4f * t), 1e-4f);
    EXPECT_NEAR(camera.target.y, 1.5f + std::cos(2.1f * t), 1e-5f);
}

TEST_F(StarfieldTest, SkyCameraTimeWrapsIntoMinusPiToPi)
{
    // 650000 x (pi + 0.5) ms is t = 0.5 - pi.
    vorlik::Camera camera;
    Starfield::placeSkyCamera(camera, static_cast<uint32_t>(std::lround(650000.0 * (vorlik::kPiDouble + 0.5))));
    const float t = 0.5f - vorlik::kPi;
    EXPECT_NEAR(camera.position.x, -25.0f * std::cos(1.8f * t), 1e-3f);
    EXPECT_NEAR(camera.position.z, 25.0f * std::sin(1.4f * t), 1e-3f);
}

TEST_F(StarfieldTest, HundredTwentyEightStarsMakeOneBatchOfFiveHundredTwelveVertices)
{
    const auto batches = batchesOf(128);
    ASSERT_EQ(batches.size(), 1u);
    EXPECT_EQ(batches[0].size(), 512u);
}

TEST_F(StarfieldTest, HundredTwentyNineStarsMakeASecondBatchOfFourVertices)
{
    const auto batches = batchesOf(129);
    ASSERT_EQ(batches.size(), 2u);
    EXPECT_EQ(batches[0].size(), 512u);
    EXPECT_EQ(batches[1].size(), 4u);
}

TEST_F(StarfieldTest, FiveHundredTwelveStarsMakeFourFullBatches)
{
    const auto batches = batchesOf(512);
    ASSERT_EQ(batches.size(), 4u);
    for (const auto& batch : batches) EXPECT_EQ(batch.size(), 512u);
}

TEST_F(StarfieldTest, NoStarsMakeNoBatch)
{
    EXPECT_TRUE(batchesOf(0).empty());
}

TEST_F(StarfieldTest, EachStarIsAQuadOfItsSizeInItsColourWithItsBrightnessAsAlpha)
{
    Starfield field(1, kScreenWidth, kScreenHeight);
    field.stars[0] = Starfield::Star{100.0f, 200.0f, 30.0f, 170, 180, 190, 255, 0.3f, 0.5f};
    vorlik::Stack<Starfield::Vertex> vertices(4);
    RecordingBatches sink;
    field.batchStars(vertices, sink);
    ASSERT_EQ(sink.batches.size(), 1u);
    const std::vector<Starfield::Vertex>& q = sink.batches[0];
    ASSERT_EQ(q.size(), 4u);
    // Half of 32 x 15 at size 0.5: 8 by 3.75.
    const float expected[4][4] = {{92.0f, 196.25f, 0, 0}, {108.0f, 196.25f, 1, 0}, {108.0f, 203.75f, 1, 1}, {92.0f, 203.75f, 0, 1}};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(q[i].x, expected[i][0]) << "corner " << i;
        EXPECT_EQ(q[i].y, expected[i][1]);
        EXPECT_EQ(q[i].u, expected[i][2]);
        EXPECT_EQ(q[i].v, expected[i][3]);
        EXPECT_EQ(q[i].r, 170);
        EXPECT_EQ(q[i].g, 180);
        EXPECT_EQ(q[i].b, 190);
        EXPECT_EQ(q[i].a, 76); // 255 x 0.3, truncated
    }
}

TEST_F(StarfieldTest, BatchingStartsFromAnEmptyList)
{
    const Starfield field(1, kScreenWidth, kScreenHeight);
    vorlik::Stack<Starfield::Vertex> vertices(8);
    vertices.push(Starfield::Vertex{});
    RecordingBatches sink;
    field.batchStars(vertices, sink);
    ASSERT_EQ(sink.batches.size(), 1u);
    EXPECT_EQ(sink.batches[0].size(), 4u);
}
