// Particle slices inside a scene's walk, without a display: slices that leave or delete
// themselves while the walk is on them, and particles drawn in every wrapped copy of the view.
#include "scene/ParticleSlice.h"

#include "ParticleTestDoubles.h"
#include "SceneTestNodes.h"
#include "scene/ParticleEmitter.h"
#include "scene/ParticleSystem.h"
#include "scene/SceneBase.h"
#include "scene/SceneTraversal.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using vorlik::vec2;
using Nodes = std::vector<Drawable*>;

// A plain 1280 x 720 view at the camera-space origin, walked through a recording sink.
class ParticleSceneTest : public ParticleClockTest {
protected:
    void SetUp() override
    {
        ParticleClockTest::SetUp();
        initial.views = &scratch.views;
        scratch.views.push(ViewRect{-640, -360, 1280, 720, vec2(0, 0)});
    }

    // The scene holds before, middle and after, in that order.
    void placeBetween(Drawable* middle)
    {
        scene.add(&before);
        scene.add(middle);
        scene.add(&after);
    }

    Nodes walk()
    {
        sink.drawn.clear();
        traverseScene(scene.first, initial, TraversalSwitches{}, scratch, sink);
        return sink.drawn;
    }

    ParticleSystem system{64};
    TestContainer scene;
    SceneScratch scratch;
    SceneState initial{};
    ParticleSceneSink sink;
    RecordingLeaf before, after;
};

TEST_F(ParticleSceneTest, EmptySliceThatLeavesWhenEmptyIsGoneFromTheSceneAfterItsNextDraw)
{
    std::unique_ptr<ParticleSlice> explosions(system.createSlice(true, false));
    placeBetween(explosions.get());
    EXPECT_EQ(walk(), (Nodes{&before, explosions.get(), &after}));
    EXPECT_EQ(explosions->parent, nullptr);
    EXPECT_EQ(scene.count, 2u);
    EXPECT_EQ(before.next, &after);
    EXPECT_EQ(walk(), (Nodes{&before, &after}));
}

TEST_F(ParticleSceneTest, SliceThatDeletesItselfMidListDoesNotStopTheWalk)
{
    ParticleSlice* burst = system.createSlice(false, true);
    placeBetween(burst);
    EXPECT_EQ(walk(), (Nodes{&before, burst, &after}));
    EXPECT_EQ(scene.count, 2u);
    EXPECT_EQ(before.next, &after);
    EXPECT_EQ(after.prev, &before);
    EXPECT_EQ(after.draws, 1);
}

TEST_F(ParticleSceneTest, SliceThatLeavesAndDeletesItselfAsTheLastChildOfAGroupEndsTheGroupCleanly)
{
    Group group;
    ParticleSlice* burst = system.createSlice(true, true);
    scene.add(&group);
    group.add(&before);
    group.add(burst);
    scene.add(&after);
    EXPECT_EQ(walk(), (Nodes{&before, burst, &after}));
    EXPECT_EQ(group.count, 1u);
    EXPECT_EQ(group.last, &before);
    EXPECT_EQ(walk(), (Nodes{&before, &after}));
}

TEST_F(ParticleSceneTest, BurstSliceDeletesItselfAtTheFirstDrawAfterItsLastParticleDied)
{
    ParticleSlice* burst = system.createSlice(false, true);
    emitPlain(system, burst, 3, 500);
    scene.add(burst);
    scene.add(&after);
    walk();
    EXPECT_EQ(sink.batches.batches.size(), 1u);
    setTime(kStart + 501);
    walk(); // the particles expire in this draw; the slice is still there
    EXPECT_EQ(scene.count, 2u);
    EXPECT_EQ(burst->count, 0u);
    EXPECT_EQ(walk(), (Nodes{burst, &after})); // and goes here
    EXPECT_EQ(scene.count, 1u);
    EXPECT_EQ(scene.first, &after);
}

TEST_F(ParticleSceneTest, WeaponSliceLeavesWhenEmptyAndDrawsAgainOncePutBackAfterItsTarget)
{
    RecordingLeaf ship;
    std::unique_ptr<ParticleSlice> sparks(system.createSlice(true, false));
    ParticleEmitter* beamSparks = system.createEmitter(sparks.get());
    scene.add(&ship);
    scene.add(&after);
    system.update();
    beamSparks->rate = 300;

    // A hit: the slice goes right after the ship and the emitter feeds it.
    sparks->placeAfter(&ship);
    setTime(kStart + 10);
    system.update();
    EXPECT_EQ(sparks->count, 3u);
    EXPECT_EQ(walk(), (Nodes{&ship, sparks.get(), &after}));

    // The beam stops; the sparks die out and the slice leaves the scene.
    beamSparks->rate = 0;
    setTime(kStart + 2000);
    system.update();
    walk();
    walk();
    EXPECT_EQ(sparks->parent, nullptr);
    EXPECT_EQ(scene.count, 2u);

    // The next hit puts it back.
    beamSparks->rate = 300;
    sparks->placeAfter(&ship);
    setTime(kStart + 2010);
    system.update();
    EXPECT_EQ(walk(), (Nodes{&ship, sparks.get(), &after}));
    EXPECT_EQ(sparks->count, 3u);
    // The weapon's teardown: its emitter first, then its slice.
    system.removeEmitter(beamSparks);
}

TEST_F(ParticleSceneTest, EmitterWithoutASliceIsDrawnThroughTheDefaultSliceOnceThatIsInTheScene)
{
    ParticleEmitter* exhaust = system.createEmitter(nullptr);
    scene.add(system.defaultSlice);
    scene.add(&after);
    system.update();
    exhaust->rate = 100;
    setTime(kStart + 20);
    system.update();
    EXPECT_EQ(walk(), (Nodes{system.defaultSlice, &after}));
    ASSERT_EQ(sink.batches.batches.size(), 1u);
    EXPECT_EQ(sink.batches.batches[0].vertices.size(), 8u);
}

TEST_F(ParticleSceneTest, ParticlesAreDrawnInEveryWrappedCopyOfTheView)
{
    SceneBase world(1280, 720);
    world.worldWidth = world.worldHeight = 4096;
    world.camera.x = 10;
    world.camera.y = 10;
    ParticleSlice* sparks = system.createSlice(false, false);
    emitPlain(system, sparks, 2, 1000, vec2(4090, 4090));
    world.add(sparks);
    world.drawFrame(sink);

    const vorlik::Stack<ViewRect>& views = world.scratch.views;
    ASSERT_GT(views.size(), 1u);
    ASSERT_EQ(sink.batches.batches.size(), views.size());
    SceneBase::Frame frame;
    world.prepareFrame(frame);
    for (uint32_t i = 0; i < views.size(); ++i) {
        vorlik::mat2 expected = frame.state.transform;
        expected.translate(views[views.size() - 1 - i].offset);
        EXPECT_EQ(sink.batches.batches[i].modelView, expected) << "copy " << i;
    }
    delete sparks;
}

} // namespace
