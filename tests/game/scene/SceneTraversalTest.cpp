#include "scene/SceneTraversal.h"

#include "SceneTestNodes.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

// A 1280 x 720 view centred on the origin of camera space, and a sink recording the walk.
class SceneTraversalTest : public ::testing::Test {
protected:
    SceneTraversalTest()
    {
        initial.views = &scratch.views;
        scratch.views.push(ViewRect{-640, -360, 1280, 720, vorlik::vec2(0, 0)});
    }

    void walk() { traverseScene(scene.first, initial, switches, scratch, sink); }

    std::vector<Drawable*> drawn() const
    {
        std::vector<Drawable*> nodes;
        for (const DrawCall& call : sink.calls) nodes.push_back(call.node);
        return nodes;
    }

    TestContainer scene;
    SceneScratch scratch;
    SceneState initial{};
    TraversalSwitches switches;
    RecordingSink sink;
};

using Nodes = std::vector<Drawable*>;

vorlik::vec2 origin(const SceneState& s) { return vorlik::vec2(s.transform.m4, s.transform.m5); }

TEST_F(SceneTraversalTest, DrawsLeavesDepthFirstInListOrder)
{
    RecordingLeaf a, b, c, d;
    Group g;
    scene.add(&a);
    scene.add(&g);
    g.add(&b);
    g.add(&c);
    scene.add(&d);
    walk();
    EXPECT_EQ(drawn(), (Nodes{&a, &b, &c, &d}));
    EXPECT_EQ(a.draws, 1);
    EXPECT_EQ(d.draws, 1);
}

TEST_F(SceneTraversalTest, HiddenNodeIsSkippedWithItsSubtree)
{
    RecordingLeaf hiddenLeaf, child, shown;
    Group hiddenGroup;
    hiddenLeaf.setVisible(false);
    hiddenGroup.setVisible(false);
    scene.add(&hiddenLeaf);
    scene.add(&hiddenGroup);
    hiddenGroup.add(&child);
    scene.add(&shown);
    walk();
    EXPECT_EQ(drawn(), (Nodes{&shown}));
}

TEST_F(SceneTraversalTest, NodeIsDrawnWhenAnyOfItsFourCornersIsOnView)
{
    // 100 x 100 nodes straddling each corner of the view, so exactly one corner is inside.
    RecordingLeaf topLeft(100, 100), topRight(100, 100), bottomLeft(100, 100), bottomRight(100, 100);
    topLeft.position = vorlik::vec3(-680, -400, 0);
    topRight.position = vorlik::vec3(680, -400, 0);
    bottomLeft.position = vorlik::vec3(-680, 400, 0);
    bottomRight.position = vorlik::vec3(680, 400, 0);
    for (RecordingLeaf* n : {&topLeft, &topRight, &bottomLeft, &bottomRight}) scene.add(n);
    walk();
    EXPECT_EQ(drawn(), (Nodes{&topLeft, &topRight, &bottomLeft, &bottomRight}));
}

TEST_F(SceneTraversalTest, NodeWithNoCornerOnViewIsCulled)
{
    RecordingLeaf right(100, 100), below(100, 100);
    right.position = vorlik::vec3(700, 0, 0);
    below.position = vorlik::vec3(0, 420, 0);
    scene.add(&right);
    scene.add(&below);
    walk();
    EXPECT_TRUE(sink.calls.empty());
    EXPECT_EQ(right.draws, 0);
}

TEST_F(SceneTraversalTest, ViewEdgesCountAsInside)
{
    RecordingLeaf touching(100, 100);
    touching.position = vorlik::vec3(690, 0, 0); // left edge exactly on x = 640
    scene.add(&touching);
    walk();
    EXPECT_EQ(drawn(), (Nodes{&touching}));
}

TEST_F(SceneTraversalTest, NodeLargerThanTheViewWithNoCornerInsideIsCulled)
{
    RecordingLeaf huge(5000, 5000);
    scene.add(&huge);
    walk();
    EXPECT_TRUE(sink.calls.empty());
}

TEST_F(SceneTraversalTest, CulledGroupSkipsItsChildren)
{
    Group far;
    RecordingLeaf child;
    far.position = vorlik::vec3(3000, 0, 0);
    scene.add(&far);
    far.add(&child);
    child.position = vorlik::vec3(-3000, 0, 0); // would be on view through the Group
    walk();
    EXPECT_TRUE(sink.calls.empty());
}

TEST_F(SceneTraversalTest, FirstMatchingViewRectDecidesTheOffset)
{
    scratch.views.push(ViewRect{500, -100, 1000, 200, vorlik::vec2(-1000, 0)});
    scratch.views.push(ViewRect{500, -100, 1000, 200, vorlik::vec2(-2000, 0)});
    RecordingLeaf onView, inCopy;
    onView.position = vorlik::vec3(600, 0, 0); // in the view and in both copies
    inCopy.position = vorlik::vec3(1200, 0, 0); // only in the two copies
    scene.add(&onView);
    scene.add(&inCopy);
    walk();
    ASSERT_EQ(sink.calls.size(), 2u);
    EXPECT_EQ(origin(sink.calls[0].state), vorlik::vec2(600, 0));
    EXPECT_EQ(origin(sink.calls[1].state), vorlik::vec2(200, 0));
    EXPECT_EQ(inCopy.position, vorlik::vec3(1200, 0, 0)); // the offset is not written back
}

TEST_F(SceneTraversalTest, NodeTransformIsPositionRotationAndScaleUnderTheState)
{
    initial.transform.translate(10, 20);
    RecordingLeaf node;
    node.position = vorlik::vec3(5, 6, 0);
    node.setRotation(90);
    node.setScale(3);
    scene.add(&node);
    walk();
    ASSERT_EQ(sink.calls.size(), 1u);
    const vorlik::mat2& t = sink.calls[0].state.transform;
    const vorlik::vec2 p = t * vorlik::vec2(1, 0);
    EXPECT_NEAR(p.x, 15, 1e-4);
    EXPECT_NEAR(p.y, 29, 1e-4);
}

TEST_F(SceneTraversalTest, ColourIsInheritedAsStateTimesNodePlusOneOver256)
{
    Group parent;
    parent.color = ByteColor{128, 255, 255, 255};
    RecordingLeaf fullRed, noRed;
    noRed.color = ByteColor{0, 255, 100, 255};
    scene.add(&parent);
    parent.add(&fullRed);
    parent.add(&noRed);
    walk();
    ASSERT_EQ(sink.calls.size(), 2u);
    EXPECT_EQ(sink.calls[0].state.color.r, 128);
    EXPECT_EQ(sink.calls[0].state.color.g, 255);
    EXPECT_EQ(sink.calls[1].state.color.r, 0);
    EXPECT_EQ(sink.calls[1].state.color.b, 100);
    EXPECT_EQ(sink.calls[1].state.color.a, 255);
}

TEST_F(SceneTraversalTest, InheritChannelFollowsTheShiftRule)
{
    EXPECT_EQ(inheritChannel(128, 255), 128);
    EXPECT_EQ(inheritChannel(128, 0), 0);
    EXPECT_EQ(inheritChannel(255, 255), 255);
    EXPECT_EQ(inheritChannel(255, 0), 0);
    EXPECT_EQ(inheritChannel(255, 127), 127);
    EXPECT_EQ(inheritChannel(100, 127), 50);
    EXPECT_EQ(inheritChannel(0, 255), 0);
}

TEST_F(SceneTraversalTest, AlphaIsInheritedThroughNestedGroups)
{
    Group outer, inner;
    outer.color.a = 127;
    inner.color.a = 127;
    RecordingLeaf leaf;
    scene.add(&outer);
    outer.add(&inner);
    inner.add(&leaf);
    walk();
    ASSERT_EQ(sink.calls.size(), 1u);
    EXPECT_EQ(sink.calls[0].state.color.a, 63); // 255 -> 127 -> (127 * 128) >> 8
}

TEST_F(SceneTraversalTest, CullTransparentHidesAZeroAlphaGroupWithOpaqueChildren)
{
    Group faded;
    faded.color.a = 0;
    RecordingLeaf opaque;
    scene.add(&faded);
    faded.add(&opaque);
    walk();
    EXPECT_TRUE(sink.calls.empty());
    EXPECT_EQ(opaque.draws, 0);
}

TEST_F(SceneTraversalTest, WithoutCullTransparentChildrenOfAZeroAlphaGroupAreDrawnAtAlphaZero)
{
    switches.cullTransparent = false;
    Group faded;
    faded.color.a = 0;
    RecordingLeaf opaque;
    scene.add(&faded);
    faded.add(&opaque);
    walk();
    ASSERT_EQ(drawn(), (Nodes{&opaque}));
    EXPECT_EQ(sink.calls[0].state.color.a, 0);
}

TEST_F(SceneTraversalTest, EffectFarOutsideTheViewIsStillDrawn)
{
    RecordingEffect effect;
    effect.position = vorlik::vec3(100000, 100000, 0);
    effect.setSize(10, 10);
    scene.add(&effect);
    walk();
    walk();
    EXPECT_EQ(effect.draws, 2);
}

TEST_F(SceneTraversalTest, EffectKeepsItsParentsTransform)
{
    Group group;
    group.position = vorlik::vec3(40, 30, 0);
    RecordingEffect effect;
    effect.position = vorlik::vec3(7, 7, 0);
    effect.setRotation(45);
    scene.add(&group);
    group.add(&effect);
    walk();
    ASSERT_EQ(sink.calls.size(), 1u);
    EXPECT_EQ(sink.calls[0].state.transform, vorlik::mat2(1, 0, 0, 1, 40, 30));
}

TEST_F(SceneTraversalTest, OuterSiblingAfterAGroupWithoutNextSiblingTakesThatGroupsParentState)
{
    // A (B (c)), D at the top level: B has no next sibling, so D is drawn under A's state.
    Group a, b;
    RecordingLeaf c, d;
    a.color = ByteColor{128, 255, 255, 255};
    a.position = vorlik::vec3(100, 0, 0);
    scene.add(&a);
    a.add(&b);
    b.add(&c);
    scene.add(&d);
    walk();
    ASSERT_EQ(drawn(), (Nodes{&c, &d}));
    EXPECT_EQ(sink.calls[1].state.color.r, 128);
    EXPECT_EQ(origin(sink.calls[1].state), vorlik::vec2(100, 0));
}

TEST_F(SceneTraversalTest, OuterSiblingAfterAGroupWithANextSiblingTakesTheTopLevelState)
{
    // A (B (c), e), D: B is followed by e, so D is drawn with the top-level state.
    Group a, b;
    RecordingLeaf c, e, d;
    a.color = ByteColor{128, 255, 255, 255};
    a.position = vorlik::vec3(100, 0, 0);
    scene.add(&a);
    a.add(&b);
    b.add(&c);
    a.add(&e);
    scene.add(&d);
    walk();
    ASSERT_EQ(drawn(), (Nodes{&c, &e, &d}));
    EXPECT_EQ(sink.calls[1].state.color.r, 128);
    EXPECT_EQ(sink.calls[2].state.color.r, 255);
    EXPECT_EQ(origin(sink.calls[2].state), vorlik::vec2(0, 0));
}

TEST_F(SceneTraversalTest, EmptyGroupWithoutNextSiblingPairsTheSameWay)
{
    Group a, empty;
    RecordingLeaf d;
    a.color = ByteColor{128, 255, 255, 255};
    scene.add(&a);
    a.add(&empty);
    scene.add(&d);
    walk();
    ASSERT_EQ(drawn(), (Nodes{&d}));
    EXPECT_EQ(sink.calls[0].state.color.r, 128);
}

TEST_F(SceneTraversalTest, DirtyBoundsAreRefreshedBeforeCulling)
{
    class SizedOnRefresh : public RecordingLeaf {
    public:
        SizedOnRefresh() : RecordingLeaf(0, 0) {}
        void updateBounds() override
        {
            setSize(40, 40);
            RecordingLeaf::updateBounds();
        }
    };
    SizedOnRefresh node;
    node.position = vorlik::vec3(650, 0, 0); // on view only once it is 40 wide
    node.invalidate();
    scene.add(&node);
    walk();
    EXPECT_EQ(drawn(), (Nodes{&node}));
    EXPECT_FALSE(node.flags & DRAW_BOUNDS_DIRTY);
}

TEST_F(SceneTraversalTest, NodeThatLeavesTheSceneInItsDrawDoesNotEndTheList)
{
    class LeavesWhenDrawn : public RecordingLeaf {
    public:
        void draw(const SceneState& state) override
        {
            RecordingLeaf::draw(state);
            removeFromParent();
        }
    };
    LeavesWhenDrawn leaving;
    RecordingLeaf after;
    scene.add(&leaving);
    scene.add(&after);
    walk();
    EXPECT_EQ(drawn(), (Nodes{&leaving, &after}));
    EXPECT_EQ(scene.count, 1u);
}

TEST_F(SceneTraversalTest, DebugBoundsOutlinesPlacedNodesInCameraSpace)
{
    switches.debugBounds = true;
    initial.transform.translate(-100, -50);
    RecordingLeaf leaf(20, 10);
    RecordingEffect effect;
    leaf.position = vorlik::vec3(110, 60, 0);
    scene.add(&leaf);
    scene.add(&effect);
    walk();
    ASSERT_EQ(sink.bounds.size(), 1u);
    EXPECT_FLOAT_EQ(sink.bounds[0].x, 0);
    EXPECT_FLOAT_EQ(sink.bounds[0].y, 5);
    EXPECT_FLOAT_EQ(sink.bounds[0].width, 20);
    EXPECT_FLOAT_EQ(sink.bounds[0].height, 10);
    EXPECT_EQ(sink.calls.size(), 2u);
}

TEST_F(SceneTraversalTest, DebugBoundsOutlinesGroupsAsWellAsTheirChildren)
{
    switches.debugBounds = true;
    Group group;
    group.position = vorlik::vec3(100, 0, 0);
    RecordingLeaf leaf(20, 10);
    leaf.position = vorlik::vec3(10, 0, 0);
    scene.add(&group);
    group.add(&leaf);
    walk();
    // The Group encloses its child (20 x 10 about its own position), then the child itself.
    ASSERT_EQ(sink.bounds.size(), 2u);
    EXPECT_FLOAT_EQ(sink.bounds[0].x, 90);
    EXPECT_FLOAT_EQ(sink.bounds[0].width, 20);
    EXPECT_FLOAT_EQ(sink.bounds[1].x, 100);
    EXPECT_FLOAT_EQ(sink.bounds[1].y, -5);
    EXPECT_EQ(drawn(), (Nodes{&leaf}));
}

TEST_F(SceneTraversalTest, ScratchListsStartWithRoomFor128Entries)
{
    const SceneScratch fresh;
    EXPECT_EQ(fresh.views.capacity, 128u);
    EXPECT_EQ(fresh.states.capacity, 128u);
    EXPECT_EQ(fresh.siblings.capacity, 128u);
    EXPECT_EQ(fresh.views.count, 0u);
}

TEST_F(SceneTraversalTest, WalkReusesTheScratchListsOnceGrown)
{
    // A chain of 300 nested Groups, each followed by a leaf, needs deeper stacks than 128.
    std::vector<Group> groups(300);
    std::vector<RecordingLeaf> leaves(300);
    Container* parent = &scene;
    for (size_t i = 0; i < groups.size(); ++i) {
        parent->add(&groups[i]);
        parent->add(&leaves[i]);
        parent = &groups[i];
    }
    walk();
    EXPECT_EQ(sink.calls.size(), 300u);
    const SceneState* states = scratch.states.data;
    Drawable* const* siblings = scratch.siblings.data;
    const uint32_t stateCapacity = scratch.states.capacity;
    const uint32_t siblingCapacity = scratch.siblings.capacity;
    EXPECT_GE(stateCapacity, 300u);
    for (int frame = 0; frame < 3; ++frame) walk();
    EXPECT_EQ(sink.calls.size(), 1200u);
    EXPECT_EQ(scratch.states.data, states);
    EXPECT_EQ(scratch.siblings.data, siblings);
    EXPECT_EQ(scratch.states.capacity, stateCapacity);
    EXPECT_EQ(scratch.siblings.capacity, siblingCapacity);
}

} // namespace
