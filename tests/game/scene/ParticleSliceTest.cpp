#include "scene/ParticleSlice.h"

#include "ParticleTestDoubles.h"
#include "SceneTestNodes.h"
#include "scene/ParticleSystem.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using vorlik::vec2;
using vorlik::vec4;

// A slice of a 256-record system drawn under a state with the given view copies (offsets),
// without a display.
class ParticleSliceTest : public ParticleClockTest {
protected:
    void SetUp() override
    {
        ParticleClockTest::SetUp();
        slice.reset(system.createSlice(false, false));
        setViews({vec2(0, 0)});
        state.transform.translate(-2048, -2048);
    }

    void setViews(std::initializer_list<vec2> offsets)
    {
        views.clear();
        for (const vec2& offset : offsets) views.push(ViewRect{-640, -360, 1280, 720, offset});
        state.views = &views;
    }

    void draw() { slice->drawBatches(state, recorder); }

    // One particle placed by hand, linked into the slice through a burst.
    Particle& place(vec2 start, vec2 end, float sizeStart, float sizeEnd, uint32_t life)
    {
        emitPlain(system, slice.get(), 1, int32_t(life));
        Particle& p = *slice->last;
        p.start = start;
        p.end = end;
        p.sizeStart = sizeStart;
        p.sizeEnd = sizeEnd;
        return p;
    }

    ParticleSystem system{256};
    std::unique_ptr<ParticleSlice> slice;
    vorlik::Stack<ViewRect> views;
    SceneState state{};
    BatchRecorder recorder;
};

TEST_F(ParticleSliceTest, IsVisibleUntransformedInTheSystemsBlendModeWithItsSwitches)
{
    std::unique_ptr<ParticleSlice> burst(system.createSlice(true, false));
    EXPECT_EQ(burst->flags, uint32_t(DRAW_VISIBLE | DRAW_UNTRANSFORMED | BLEND_ADDITIVE));
    EXPECT_EQ(burst->system, &system);
    EXPECT_EQ(burst->removeWhenEmpty, 1);
    EXPECT_EQ(burst->deleteWhenEmpty, 0);
    EXPECT_EQ(burst->count, 0u);
    system.blendMode = BLEND_NORMAL;
    std::unique_ptr<ParticleSlice> plain(system.createSlice(false, true));
    EXPECT_EQ(plain->blendMode(), uint32_t(BLEND_NORMAL));
    EXPECT_EQ(plain->deleteWhenEmpty, 1);
}

TEST_F(ParticleSliceTest, HalfWayFromSize16To0IsA16By16QuadAtHalfAlpha)
{
    Particle& p = place(vec2(100, 100), vec2(200, 300), 16, 0, 1000);
    setTime(p.birth + 500);
    const ParticleSlice::Quad q = ParticleSlice::quad(p, vorlik::Vorlik::currentTime, 1, 1);
    EXPECT_EQ(q.corners[0].x, 150 - 8);
    EXPECT_EQ(q.corners[0].y, 200 - 8);
    EXPECT_EQ(q.corners[2].x - q.corners[0].x, 16);
    EXPECT_EQ(q.corners[2].y - q.corners[0].y, 16);
    for (const ParticleSlice::Vertex& v : q.corners) EXPECT_EQ(v.a, 127);

    draw();
    ASSERT_EQ(recorder.batches.size(), 1u);
    const std::vector<ParticleSlice::Vertex>& drawn = recorder.batches[0].vertices;
    ASSERT_EQ(drawn.size(), 4u);
    EXPECT_EQ(drawn[0].x, 142);
    EXPECT_EQ(drawn[2].y, 208);
    EXPECT_EQ(drawn[3].a, 127);
}

TEST_F(ParticleSliceTest, QuadCornersRunClockwiseFromTheTopLeftWithTheUsedTexturePart)
{
    Particle p;
    p.start = p.end = vec2(10, 20);
    p.sizeStart = p.sizeEnd = 2;
    p.birth = 1000;
    p.death = 2000;
    const ParticleSlice::Quad q = ParticleSlice::quad(p, 1000, 0.75f, 0.5f);
    const float expected[4][4] = {{8, 18, 0, 0}, {12, 18, 0.75f, 0}, {12, 22, 0.75f, 0.5f}, {8, 22, 0, 0.5f}};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(q.corners[i].x, expected[i][0]);
        EXPECT_EQ(q.corners[i].y, expected[i][1]);
        EXPECT_EQ(q.corners[i].u, expected[i][2]);
        EXPECT_EQ(q.corners[i].v, expected[i][3]);
        EXPECT_EQ(q.corners[i].a, 255);
    }
}

TEST_F(ParticleSliceTest, ColourBytesAreTheChannelsTimes255CutToWholeBytes)
{
    Particle p;
    p.color = vec4(0.5f, 0.25f, 1.0f, 1.0f);
    p.birth = 0;
    p.death = 1000;
    const ParticleSlice::Vertex v = ParticleSlice::quad(p, 250, 1, 1).corners[1];
    EXPECT_EQ(v.r, 127);
    EXPECT_EQ(v.g, 63);
    EXPECT_EQ(v.b, 255);
    EXPECT_EQ(v.a, 191); // 255 x 0.75
}

TEST_F(ParticleSliceTest, ParticleBornAndDyingInTheSameMillisecondIsAtItsEndAndFullyFaded)
{
    Particle p;
    p.start = vec2(0, 0);
    p.end = vec2(40, 0);
    p.sizeStart = 16;
    p.sizeEnd = 4;
    p.birth = p.death = 5000;
    const ParticleSlice::Quad q = ParticleSlice::quad(p, 5000, 1, 1);
    EXPECT_EQ(q.corners[0].x, 36);
    EXPECT_EQ(q.corners[1].x, 44);
    for (const ParticleSlice::Vertex& v : q.corners) EXPECT_EQ(v.a, 0);
}

TEST_F(ParticleSliceTest, ParticleBornAfterNowIsDrawnAsJustBorn)
{
    Particle p;
    p.end = vec2(40, 0);
    p.birth = 5000;
    p.death = 6000;
    const ParticleSlice::Quad q = ParticleSlice::quad(p, 4000, 1, 1); // the clock was set back
    EXPECT_EQ(q.corners[0].x, -16);
    EXPECT_EQ(q.corners[0].a, 255);
}

TEST_F(ParticleSliceTest, SliceOf129ParticlesGivesBatchesOf512And4VerticesPerViewCopy)
{
    setViews({vec2(0, 0), vec2(0, -4096), vec2(-4096, 0)});
    emitPlain(system, slice.get(), 129);
    draw();
    ASSERT_EQ(recorder.textures.size(), 1u);
    EXPECT_EQ(recorder.textures[0], nullptr);
    ASSERT_EQ(recorder.batches.size(), 6u);
    // Each batch goes to the last copy first; the copies' model-views are the state's
    // transform moved by their offsets.
    const vec2 copyOrder[3] = {vec2(-4096, 0), vec2(0, -4096), vec2(0, 0)};
    for (size_t i = 0; i < 6; ++i) {
        const RecordedBatch& batch = recorder.batches[i];
        EXPECT_EQ(batch.vertices.size(), i < 3 ? 512u : 4u) << "batch " << i;
        vorlik::mat2 expected = state.transform;
        expected.translate(copyOrder[i % 3]);
        EXPECT_EQ(batch.modelView, expected) << "batch " << i;
    }
    EXPECT_EQ(slice->count, 129u);
}

TEST_F(ParticleSliceTest, SliceOf128ParticlesSendsOneFullBatchPerCopyAndNoEmptyOne)
{
    setViews({vec2(0, 0), vec2(4096, 0)});
    emitPlain(system, slice.get(), 128);
    draw();
    ASSERT_EQ(recorder.batches.size(), 2u);
    EXPECT_EQ(recorder.batches[0].vertices.size(), 512u);
    EXPECT_EQ(recorder.batches[1].vertices.size(), 512u);
}

TEST_F(ParticleSliceTest, ParticleIsDrawnUpToItsDeathAndFreedAfterIt)
{
    Particle& p = place(vec2(0, 0), vec2(0, 0), 4, 4, 300);
    setTime(p.death);
    draw();
    ASSERT_EQ(recorder.batches.size(), 1u);
    EXPECT_EQ(recorder.batches[0].vertices[0].a, 0);

    setTime(p.death + 1);
    draw();
    EXPECT_EQ(recorder.batches.size(), 1u);
    EXPECT_EQ(slice->count, 0u);
    EXPECT_EQ(slice->first, nullptr);
    EXPECT_EQ(slice->last, nullptr);
    EXPECT_EQ(p.slice, nullptr);
    EXPECT_EQ(p.next, nullptr);
    // The slice stays where it is; the next draw finds it empty and draws nothing.
    draw();
    EXPECT_EQ(recorder.textures.size(), 2u);
}

TEST_F(ParticleSliceTest, ExpiredParticlesBetweenLiveOnesLeaveTheListLinked)
{
    Particle& a = place(vec2(), vec2(), 1, 1, 900);
    Particle& b = place(vec2(), vec2(), 1, 1, 100);
    Particle& c = place(vec2(), vec2(), 1, 1, 900);
    Particle& d = place(vec2(), vec2(), 1, 1, 100);
    setTime(kStart + 500);
    draw();
    EXPECT_EQ(particlesOf(*slice), (std::vector<Particle*>{&a, &c}));
    EXPECT_EQ(c.prev, &a);
    EXPECT_EQ(slice->last, &c);
    EXPECT_EQ(slice->count, 2u);
    EXPECT_EQ(b.slice, nullptr);
    EXPECT_EQ(d.slice, nullptr);
    EXPECT_EQ(recorder.batches[0].vertices.size(), 8u);
}

TEST_F(ParticleSliceTest, EmptySliceWithoutSwitchesStaysAndDrawsNothing)
{
    TestContainer scene;
    scene.add(slice.get());
    draw();
    EXPECT_TRUE(recorder.textures.empty());
    EXPECT_TRUE(recorder.batches.empty());
    EXPECT_EQ(slice->parent, &scene);
}

TEST_F(ParticleSliceTest, BoundsSpanTheStartAndEndPointsWithTheAnchorAtMinusHalfTheSize)
{
    place(vec2(10, 20), vec2(50, 0), 4, 4, 1000);
    place(vec2(-30, 5), vec2(0, 60), 4, 4, 1000);
    slice->invalidate();
    slice->updateBounds();
    EXPECT_EQ(slice->size.x, 80);
    EXPECT_EQ(slice->size.y, 60);
    EXPECT_EQ(slice->anchor, vorlik::vec3(-40, -30, 0));
    EXPECT_EQ(slice->flags & DRAW_BOUNDS_DIRTY, 0u);
}

TEST_F(ParticleSliceTest, EmptySliceGetsSizeZeroAndStaysDirty)
{
    slice->setSize(30, 30);
    slice->invalidate();
    slice->updateBounds();
    EXPECT_EQ(slice->size.x, 0);
    EXPECT_EQ(slice->size.y, 0);
    EXPECT_NE(slice->flags & DRAW_BOUNDS_DIRTY, 0u);
}

// Ownership: a slice that weapons or enemies hold while the shared ring moves on.

TEST_F(ParticleSliceTest, SliceDeletedWhileItsParticlesLiveFreesThemForTheRing)
{
    ParticleSlice* enemySparks = system.createSlice(true, false);
    emitPlain(system, enemySparks, 52);
    Particle& spark = system.particles[0];
    delete enemySparks; // the enemy died while its sparks were still flying
    EXPECT_EQ(spark.slice, nullptr);
    EXPECT_EQ(spark.next, nullptr);
    // The ring comes round to those records again: nothing writes to the deleted slice.
    emitPlain(system, slice.get(), system.capacity);
    EXPECT_EQ(slice->count, system.capacity);
}

TEST_F(ParticleSliceTest, SliceRobbedByTheRingStaysUsableForTheWeaponHoldingIt)
{
    std::unique_ptr<ParticleSlice> weapon(system.createSlice(true, false));
    emitPlain(system, weapon.get(), 10);
    emitPlain(system, slice.get(), system.capacity - 10);
    emitPlain(system, slice.get(), 4); // takes the weapon's four oldest
    EXPECT_EQ(weapon->count, 6u);
    EXPECT_EQ(weapon->first, &system.particles[4]);
    EXPECT_EQ(weapon->first->prev, nullptr);
    emitPlain(system, slice.get(), 6); // and the rest
    EXPECT_EQ(weapon->count, 0u);
    EXPECT_EQ(weapon->first, nullptr);
    EXPECT_EQ(weapon->last, nullptr);

    emitPlain(system, weapon.get(), 3); // the weapon's next hit
    EXPECT_EQ(weapon->count, 3u);
    EXPECT_EQ(particlesOf(*weapon).size(), 3u);
    BatchRecorder weaponBatches;
    weapon->drawBatches(state, weaponBatches);
    ASSERT_EQ(weaponBatches.batches.size(), 1u);
    EXPECT_EQ(weaponBatches.batches[0].vertices.size(), 12u);
}

} // namespace
