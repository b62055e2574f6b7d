#include "scene/Group.h"

#include "SceneTestNodes.h"

#include <gtest/gtest.h>

namespace {

TEST(GroupTest, IsVisibleWithChildrenAndDirtyBounds)
{
    Group group;
    EXPECT_EQ(group.flags, 0x10Du);
    EXPECT_EQ(group.count, 0u);
    EXPECT_EQ(group.first, nullptr);
}

TEST(GroupTest, CanBePlacedInAnotherContainer)
{
    TestContainer scene;
    Group group;
    RecordingLeaf leaf;
    scene.add(&group);
    group.add(&leaf);
    EXPECT_EQ(group.parent, &scene);
    EXPECT_EQ(scene.first, &group);
    EXPECT_EQ(leaf.parent, static_cast<Container*>(&group));
}

TEST(GroupTest, BoundsEncloseTheChildrenInTheGroupsFrame)
{
    Group group;
    RecordingLeaf a(10, 10), b(20, 4);
    a.position = vorlik::vec3(-5, 0, 0);
    b.position = vorlik::vec3(30, 40, 0);
    b.setScale(2);
    group.add(&a);
    group.add(&b);
    group.anchor = vorlik::vec3(1, 2, 0);
    group.updateBounds();
    // a spans x -10..0, y -5..5; b spans x 10..50, y 36..44.
    EXPECT_FLOAT_EQ(group.size.x, 60);
    EXPECT_FLOAT_EQ(group.size.y, 49);
    EXPECT_FLOAT_EQ(group.size.z, 0);
    EXPECT_EQ(group.anchor, vorlik::vec3(1, 2, 0));
    EXPECT_FALSE(group.flags & DRAW_BOUNDS_DIRTY);
}

TEST(GroupTest, BoundsFollowATurnedChild)
{
    Group group;
    RecordingLeaf a(40, 10);
    a.setRotation(90);
    group.add(&a);
    group.updateBounds();
    EXPECT_NEAR(group.size.x, 10, 1e-4);
    EXPECT_NEAR(group.size.y, 40, 1e-4);
}

TEST(GroupTest, DepthSpansTheChildrensBoxes)
{
    Group group;
    RecordingLeaf a, b;
    a.size.z = 4;
    b.size.z = 2;
    b.position.z = 10;
    group.add(&a);
    group.add(&b);
    group.updateBounds();
    EXPECT_FLOAT_EQ(group.size.z, 13); // from -2 to 11
}

TEST(GroupTest, EmptyGroupHasNoSize)
{
    Group group;
    group.size = vorlik::vec3(5, 5, 5);
    group.updateBounds();
    EXPECT_EQ(group.size, vorlik::vec3(0, 0, 0));
    EXPECT_FALSE(group.flags & DRAW_BOUNDS_DIRTY);
}

// A child whose content decides its size when its bounds are refreshed.
class GrowingLeaf : public RecordingLeaf {
public:
    void updateBounds() override
    {
        ++refreshes;
        setSize(30, 30);
        RecordingLeaf::updateBounds();
    }
    int refreshes = 0;
};

TEST(GroupTest, BoundsRefreshDirtyChildrenFirst)
{
    Group group;
    GrowingLeaf dirty;
    GrowingLeaf clean;
    clean.position.x = 100;
    group.add(&dirty);
    group.add(&clean);
    dirty.invalidate();
    group.updateBounds();
    EXPECT_EQ(dirty.refreshes, 1);
    EXPECT_EQ(clean.refreshes, 0);
    EXPECT_FLOAT_EQ(group.size.x, 100 + 5 + 15); // dirty spans -15..15, clean 95..105
    EXPECT_FLOAT_EQ(group.size.y, 30);
}

TEST(GroupTest, InvalidatingAChildMarksTheGroupDirty)
{
    Group group;
    RecordingLeaf leaf;
    group.add(&leaf);
    group.updateBounds();
    leaf.invalidate();
    EXPECT_TRUE(group.flags & DRAW_BOUNDS_DIRTY);
}

TEST(GroupTest, DeletingAGroupWithChildrenLeavesThemDetached)
{
    TestContainer scene;
    RecordingLeaf a, b;
    auto* group = new Group;
    scene.add(group);
    group->add(&a);
    group->add(&b);
    delete group;
    EXPECT_EQ(scene.count, 0u);
    EXPECT_EQ(scene.first, nullptr);
    for (RecordingLeaf* n : {&a, &b}) {
        EXPECT_EQ(n->parent, nullptr);
        EXPECT_EQ(n->next, nullptr);
        EXPECT_EQ(n->prev, nullptr);
    }
}

TEST(GroupTest, ReorderingAsNodeAndAsContainer)
{
    TestContainer scene;
    Group group;
    RecordingLeaf before, a, b;
    scene.add(&group);
    scene.add(&before);
    group.add(&a);
    group.add(&b);
    group.sendToBack(&b); // the Container side moves a child
    EXPECT_EQ(group.first, &b);
    group.bringToFront(); // the Drawable side moves the Group in its parent
    EXPECT_EQ(scene.last, &group);
    EXPECT_EQ(scene.first, &before);
}

} // namespace
