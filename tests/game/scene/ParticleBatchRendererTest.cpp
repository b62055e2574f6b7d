// Particle slices drawn by GL through the real world scene, read back from the window.
#include "scene/ParticleBatchRenderer.h"

#include "ParticleTestDoubles.h"
#include "SceneGLNodes.h"
#include "SceneOverBlackTest.h"
#include "base/ParticleDisc.h"
#include "graphics/Image.h"
#include "graphics/Texture.h"
#include "scene/ParticleSystem.h"
#include "scene/Scene2D.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using vorlik::vec2;

constexpr float kWorld = 4096.0f;
constexpr float kHalfEdge = 32.0f; // world units: a 64 x 64 quad, so the disc's radius is 30

// The world scene over black with a 4096 x 4096 world, a particle system with the game's
// large soft disc as its texture, and the engine clock in the test's hands.
class ParticleBatchRendererTest : public SceneOverBlackTest<Scene2D> {
protected:
    void SetUp() override
    {
        SceneOverBlackTest::SetUp();
        if (IsSkipped()) return;
        savedTime = vorlik::Vorlik::currentTime;
        vorlik::Vorlik::currentTime = 50000;
        scene->worldWidth = scene->worldHeight = kWorld;
        vorlik::Image canvas(128, 128);
        drawDisc(canvas, 64, 64, 60, 0x000000, 0xffffff);
        disc.reset(new vorlik::Texture(&canvas));
        system.reset(new ParticleSystem(256));
        system->texture = disc.get();
        slice = system->createSlice(false, false);
        scene->add(slice);
    }

    void TearDown() override
    {
        if (!IsSkipped()) {
            delete slice;
            vorlik::Vorlik::currentTime = savedTime;
        }
        SceneOverBlackTest::TearDown();
    }

    // A red burst of standing particles at a world point.
    void burst(vec2 at)
    {
        const vorlik::vec4 red(1, 0, 0, 1);
        system->emit(slice, 16, 1000, 1000, at, vec2(), red, red, 0, kHalfEdge, kHalfEdge, kHalfEdge, kHalfEdge, 0, 0, 0);
    }

    uint32_t savedTime = 0;
    std::unique_ptr<vorlik::Texture> disc;
    std::unique_ptr<ParticleSystem> system;
    ParticleSlice* slice = nullptr;
};

TEST_F(ParticleBatchRendererTest, BurstLandsWhereTheCameraPutsIt)
{
    scene->camera.x = 2048;
    scene->camera.y = 2048;
    burst(vec2(2048 + 100, 2048 + 50));
    scene->render();

    const WindowPixels pixels(kWidth, kHeight);
    const Pixel centre = pixels.at(740, 410);
    EXPECT_GT(centre.r, 200);
    EXPECT_LT(centre.g, 40);
    EXPECT_LT(centre.b, 40);
    const LitArea lit = pixels.lit();
    EXPECT_NEAR((lit.left + lit.right) / 2.0, 740, 1.0);
    EXPECT_NEAR((lit.top + lit.bottom) / 2.0, 410, 1.0);
    // The soft disc fades to black at its rim, 30 pixels out.
    EXPECT_GT(lit.right - lit.left, 20);
    EXPECT_LE(lit.right - lit.left, 60);
}

TEST_F(ParticleBatchRendererTest, BurstAcrossTheWorldsCornerIsDrawnInTheWrappedCopy)
{
    scene->camera.x = 10;
    scene->camera.y = 10;
    burst(vec2(4090, 4090)); // 16 units up and left of the camera across the corner
    scene->render();

    const LitArea lit = WindowPixels(kWidth, kHeight).lit();
    EXPECT_NEAR((lit.left + lit.right) / 2.0, 640 - 16, 1.0);
    EXPECT_NEAR((lit.top + lit.bottom) / 2.0, 360 - 16, 1.0);
    EXPECT_LE(lit.right - lit.left, 60);
}

TEST_F(ParticleBatchRendererTest, SystemWithoutATextureDrawsNothingButItsParticlesStillAge)
{
    system->texture = nullptr;
    scene->camera.x = 2048;
    scene->camera.y = 2048;
    burst(vec2(2048, 2048));
    scene->render();
    EXPECT_EQ(WindowPixels(kWidth, kHeight).lit().count, 0);
    vorlik::Vorlik::currentTime += 1001;
    scene->render();
    EXPECT_EQ(slice->count, 0u);
}

TEST_F(ParticleBatchRendererTest, QuadsCoverOnlyThePictureOfAPaddedTexture)
{
    const vorlik::Image picture(100, 100); // padded to 128 x 128
    vorlik::Texture padded(&picture);
    system->texture = &padded;
    burst(vec2(0, 0));
    SceneState state{};
    vorlik::Stack<ViewRect> views;
    views.push(ViewRect{-640, -360, 1280, 720, vec2(0, 0)});
    state.views = &views;
    BatchRecorder recorder;
    slice->drawBatches(state, recorder);
    ASSERT_EQ(recorder.textures.size(), 1u);
    EXPECT_EQ(recorder.textures[0], &padded);
    ASSERT_FALSE(recorder.batches.empty());
    const ParticleSlice::Vertex& corner = recorder.batches[0].vertices[2];
    EXPECT_FLOAT_EQ(corner.u, 100.0f / 128.0f);
    EXPECT_FLOAT_EQ(corner.v, 100.0f / 128.0f);
    system->texture = disc.get();
}

} // namespace
