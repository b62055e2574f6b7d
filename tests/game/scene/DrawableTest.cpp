#include "scene/Drawable.h"

#include "SceneTestNodes.h"
#include "graphics/Color.h"

#include <gtest/gtest.h>

namespace {

class DrawableTest : public ::testing::Test {
protected:
    void SetUp() override { vorlik::Color::init(); }
};

void expectColor(const ByteColor& c, int r, int g, int b, int a)
{
    EXPECT_EQ(c.r, r);
    EXPECT_EQ(c.g, g);
    EXPECT_EQ(c.b, b);
    EXPECT_EQ(c.a, a);
}

TEST_F(DrawableTest, StartsDetachedVisibleWhiteWithNormalBlend)
{
    RecordingLeaf node(0, 0);
    EXPECT_EQ(node.parent, nullptr);
    EXPECT_EQ(node.next, nullptr);
    EXPECT_EQ(node.prev, nullptr);
    EXPECT_EQ(node.flags, 0x101u);
    expectColor(node.color, 255, 255, 255, 255);
    EXPECT_EQ(node.position, vorlik::vec3(0, 0, 0));
    EXPECT_EQ(node.anchor, vorlik::vec3(0, 0, 0));
    EXPECT_EQ(node.size, vorlik::vec3(0, 0, 0));
    EXPECT_EQ(node.rotation, 0.0f);
    EXPECT_EQ(node.scale, 1.0f);
    EXPECT_TRUE(node.isVisible());
}

TEST_F(DrawableTest, SetVisibleTogglesOnlyTheVisibleBit)
{
    RecordingLeaf node;
    node.setVisible(false);
    EXPECT_EQ(node.flags, 0x100u);
    EXPECT_FALSE(node.isVisible());
    node.setVisible(true);
    EXPECT_EQ(node.flags, 0x101u);
}

TEST_F(DrawableTest, NegativeScaleIsStoredAsItsMagnitude)
{
    RecordingLeaf node;
    node.setScale(-2.0f);
    EXPECT_EQ(node.scale, 2.0f);
}

TEST_F(DrawableTest, RotationWrapsIntoOneTurn)
{
    RecordingLeaf node;
    node.setRotation(370.0f);
    EXPECT_FLOAT_EQ(node.rotation, 10.0f);
    node.rotate(-30.0f);
    EXPECT_FLOAT_EQ(node.rotation, 340.0f);
    node.setRotation(360.0f);
    EXPECT_FLOAT_EQ(node.rotation, 0.0f);
}

TEST_F(DrawableTest, FloatColorIsTruncatedWithoutScalingTo255)
{
    RecordingLeaf node;
    node.setColor(0.5f, 0.5f, 0.5f, 1.0f);
    expectColor(node.color, 0, 0, 0, 1);
    node.setColor(-3.0f, 7.0f, 1.0f, 0.99f);
    expectColor(node.color, 0, 1, 1, 0);
}

TEST_F(DrawableTest, PackedColorIsUnpackedWithTheEngineLayout)
{
    RecordingLeaf node;
    node.setColor(vorlik::Color::pack(10, 20, 30, 40));
    expectColor(node.color, 10, 20, 30, 40);
}

TEST_F(DrawableTest, SetBlendModeReplacesOnlyTheBlendField)
{
    RecordingLeaf node;
    node.setBlendMode(0x200);
    EXPECT_EQ(node.flags, 0x201u);
    EXPECT_EQ(node.blendMode(), 0x200u);
    node.flags |= DRAW_BOUNDS_DIRTY;
    node.setBlendMode(0xFFFFF4FFu);
    EXPECT_EQ(node.flags, 0x409u);
}

TEST_F(DrawableTest, AnchorPresetsFollowTheTable)
{
    const float expected[9][2] = {{20, 10},  {-20, 10}, {20, 0},  {0, 10},  {0, 0},
                                  {-20, 0}, {0, -10},  {20, -10}, {-20, -10}};
    RecordingLeaf node(40, 20);
    for (int preset = 0; preset < 9; ++preset) {
        node.setAnchor(static_cast<AnchorPreset>(preset));
        EXPECT_EQ(node.anchor.x, expected[preset][0]) << "preset " << preset;
        EXPECT_EQ(node.anchor.y, expected[preset][1]) << "preset " << preset;
    }
}

TEST_F(DrawableTest, NamedAnchorPresetsPutThePositionOnTheNamedPointOfTheRectangle)
{
    RecordingLeaf node(40, 20);
    const struct {
        AnchorPreset preset;
        float x, y; // the position's place on the rectangle, 0 to 1 from the top-left
    } named[] = {{ANCHOR_TOP_LEFT, 0, 0},      {ANCHOR_TOP_RIGHT, 1, 0},   {ANCHOR_LEFT, 0, 0.5f},
                 {ANCHOR_TOP, 0.5f, 0},        {ANCHOR_CENTRE, 0.5f, 0.5f}, {ANCHOR_RIGHT, 1, 0.5f},
                 {ANCHOR_BOTTOM, 0.5f, 1},     {ANCHOR_BOTTOM_LEFT, 0, 1}, {ANCHOR_BOTTOM_RIGHT, 1, 1}};
    for (const auto& n : named) {
        node.setAnchor(n.preset);
        const Rect r = node.bounds();
        EXPECT_FLOAT_EQ(-r.x, n.x * 40) << "preset " << n.preset;
        EXPECT_FLOAT_EQ(-r.y, n.y * 20) << "preset " << n.preset;
    }
}

TEST_F(DrawableTest, TheSpareFieldsAfterSizeAndRotationStartAtZero)
{
    RecordingLeaf node;
    EXPECT_EQ(node.spareAfterSize[0], 0.0f);
    EXPECT_EQ(node.spareAfterSize[1], 0.0f);
    for (float spare : node.spareAfterRotation) EXPECT_EQ(spare, 0.0f);
    const auto at = [](const void* p) { return static_cast<const char*>(p); };
    EXPECT_LT(at(&node.size), at(node.spareAfterSize));
    EXPECT_LT(at(node.spareAfterSize), at(&node.rotation));
    EXPECT_LT(at(&node.rotation), at(node.spareAfterRotation));
    EXPECT_LT(at(node.spareAfterRotation), at(&node.scale));
}

TEST_F(DrawableTest, AnchorPresetOutsideZeroToEightChangesNothing)
{
    RecordingLeaf node(40, 20);
    node.setAnchor(3.0f, 4.0f);
    node.setAnchor(static_cast<AnchorPreset>(9));
    node.setAnchor(static_cast<AnchorPreset>(-1));
    EXPECT_EQ(node.anchor.x, 3.0f);
    EXPECT_EQ(node.anchor.y, 4.0f);
    node.resetAnchor();
    EXPECT_EQ(node.anchor.x, 0.0f);
    EXPECT_EQ(node.anchor.y, 0.0f);
}

TEST_F(DrawableTest, BoundsOfAnUnturnedNodeAreItsRectangleAtItsPosition)
{
    RecordingLeaf node(40, 20);
    node.position = vorlik::vec3(100, 50, 0);
    node.setAnchor(ANCHOR_TOP_LEFT);
    const Rect r = node.bounds();
    EXPECT_FLOAT_EQ(r.x, 100);
    EXPECT_FLOAT_EQ(r.y, 50);
    EXPECT_FLOAT_EQ(r.width, 40);
    EXPECT_FLOAT_EQ(r.height, 20);
}

TEST_F(DrawableTest, BoundsEncloseTheTurnedAndScaledCorners)
{
    RecordingLeaf node(40, 20);
    node.position = vorlik::vec3(10, 10, 0);
    node.setRotation(90);
    node.setScale(2);
    const Rect r = node.bounds();
    EXPECT_NEAR(r.x, 10 - 20, 1e-4);
    EXPECT_NEAR(r.y, 10 - 40, 1e-4);
    EXPECT_NEAR(r.width, 40, 1e-4);
    EXPECT_NEAR(r.height, 80, 1e-4);
}

TEST_F(DrawableTest, InvalidateMarksTheNodeAndClimbsToTheScene)
{
    TestContainer scene;
    Group outer;
    Group inner;
    RecordingLeaf leaf;
    scene.add(&outer);
    outer.add(&inner);
    inner.add(&leaf);
    outer.updateBounds();
    inner.updateBounds();
    ASSERT_FALSE(outer.flags & DRAW_BOUNDS_DIRTY);
    leaf.invalidate();
    EXPECT_TRUE(leaf.flags & DRAW_BOUNDS_DIRTY);
    EXPECT_TRUE(inner.flags & DRAW_BOUNDS_DIRTY);
    EXPECT_TRUE(outer.flags & DRAW_BOUNDS_DIRTY);
}

TEST_F(DrawableTest, BaseUpdateBoundsOnlyClearsTheDirtyFlag)
{
    RecordingLeaf node(40, 20);
    node.invalidate();
    node.updateBounds();
    EXPECT_EQ(node.flags, 0x101u);
    EXPECT_EQ(node.size, vorlik::vec3(40, 20, 0));
}

TEST_F(DrawableTest, DeletingANodeUnlinksItFromItsParent)
{
    TestContainer list;
    RecordingLeaf a, c;
    auto* b = new RecordingLeaf;
    list.add(&a);
    list.add(b);
    list.add(&c);
    delete b;
    EXPECT_EQ(list.count, 2u);
    EXPECT_EQ(a.next, &c);
    EXPECT_EQ(c.prev, &a);
}

TEST_F(DrawableTest, PlaceAfterAndBeforeMoveIntoTheSiblingsContainer)
{
    TestContainer from, to;
    RecordingLeaf a, b, moved;
    to.add(&a);
    to.add(&b);
    from.add(&moved);
    moved.placeAfter(&a);
    EXPECT_EQ(from.count, 0u);
    EXPECT_EQ(to.count, 3u);
    EXPECT_EQ(a.next, &moved);
    EXPECT_EQ(moved.next, &b);
    moved.placeBefore(&a);
    EXPECT_EQ(to.first, &moved);
    EXPECT_EQ(moved.next, &a);
    EXPECT_EQ(to.count, 3u);
}

TEST_F(DrawableTest, PlacingNextToADetachedSiblingDoesNothing)
{
    TestContainer list;
    RecordingLeaf node, detached;
    list.add(&node);
    node.placeAfter(&detached);
    node.placeBefore(nullptr);
    EXPECT_EQ(node.parent, &list);
    EXPECT_EQ(list.count, 1u);
}

TEST_F(DrawableTest, BringToFrontAndSendToBackAskTheParent)
{
    TestContainer list;
    RecordingLeaf a, b, c;
    list.add(&a);
    list.add(&b);
    list.add(&c);
    a.bringToFront();
    EXPECT_EQ(list.first, &b);
    EXPECT_EQ(list.last, &a);
    a.sendToBack();
    EXPECT_EQ(list.first, &a);
    EXPECT_EQ(list.last, &c);
    RecordingLeaf detached;
    detached.bringToFront();
    detached.sendToBack();
    EXPECT_EQ(detached.parent, nullptr);
}

} // namespace
