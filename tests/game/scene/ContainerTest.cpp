#include "scene/Container.h"

#include "SceneTestNodes.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

// The nodes of a list from first to last, following next.
std::vector<Drawable*> forward(const Container& c)
{
    std::vector<Drawable*> nodes;
    for (Drawable* n = c.first; n != nullptr && nodes.size() <= c.count; n = n->next) nodes.push_back(n);
    return nodes;
}

// The nodes of a list from last to first, following prev.
std::vector<Drawable*> backward(const Container& c)
{
    std::vector<Drawable*> nodes;
    for (Drawable* n = c.last; n != nullptr && nodes.size() <= c.count; n = n->prev) nodes.push_back(n);
    return nodes;
}

using Nodes = std::vector<Drawable*>;

TEST(ContainerTest, AddAppendsInOrder)
{
    TestContainer list;
    RecordingLeaf a, b, c;
    list.add(&a);
    list.add(&b);
    list.add(&c);
    EXPECT_EQ(list.count, 3u);
    EXPECT_EQ(list.childCount(), 3u);
    EXPECT_EQ(forward(list), (Nodes{&a, &b, &c}));
    EXPECT_EQ(backward(list), (Nodes{&c, &b, &a}));
    EXPECT_EQ(a.parent, &list);
    EXPECT_EQ(a.prev, nullptr);
    EXPECT_EQ(c.next, nullptr);
}

TEST(ContainerTest, AddingANodeOfAnotherContainerMovesItToTheEnd)
{
    TestContainer from, to;
    RecordingLeaf a, b, x;
    from.add(&a);
    from.add(&x);
    to.add(&b);
    to.add(&x);
    EXPECT_EQ(from.count, 1u);
    EXPECT_EQ(forward(from), (Nodes{&a}));
    EXPECT_EQ(to.count, 2u);
    EXPECT_EQ(to.last, &x);
    EXPECT_EQ(x.parent, &to);
    EXPECT_EQ(forward(to), (Nodes{&b, &x}));
}

TEST(ContainerTest, AddingNullOrTheContainerItselfDoesNothing)
{
    TestContainer list;
    RecordingLeaf a;
    list.add(&a);
    list.add(nullptr);
    EXPECT_EQ(list.count, 1u);

    Group group;
    group.add(&group);
    EXPECT_EQ(group.count, 0u);
    EXPECT_EQ(group.first, nullptr);
    EXPECT_EQ(group.parent, nullptr);
    group.insertAfter(&group, nullptr);
    group.remove(&group);
    EXPECT_EQ(group.count, 0u);
}

TEST(ContainerTest, AGroupIsRejectedAsItsOwnChildByEveryListOperation)
{
    // Placed in a scene and holding a child, so any operation that got through would show:
    // even remove would null the Group's own links to the scene.
    TestContainer scene;
    Group group;
    RecordingLeaf child;
    scene.add(&group);
    group.add(&child);
    group.add(&group);
    group.remove(&group);
    group.insertAfter(&group, &child);
    group.insertBefore(&group, &child);
    group.bringToFront(&group);
    group.sendToBack(&group);
    EXPECT_EQ(group.parent, &scene);
    EXPECT_EQ(scene.count, 1u);
    EXPECT_EQ(scene.first, &group);
    EXPECT_EQ(group.count, 1u);
    EXPECT_EQ(group.first, &child);
    EXPECT_EQ(group.last, &child);
    EXPECT_EQ(child.prev, nullptr);
    EXPECT_EQ(child.next, nullptr);
}

TEST(ContainerTest, RemoveUnlinksFromTheMiddleAndEnds)
{
    TestContainer list;
    RecordingLeaf a, b, c;
    list.add(&a);
    list.add(&b);
    list.add(&c);
    list.remove(&b);
    EXPECT_EQ(forward(list), (Nodes{&a, &c}));
    EXPECT_EQ(backward(list), (Nodes{&c, &a}));
    EXPECT_EQ(b.parent, nullptr);
    EXPECT_EQ(b.next, nullptr);
    EXPECT_EQ(b.prev, nullptr);
    list.remove(&a);
    list.remove(&c);
    EXPECT_EQ(list.count, 0u);
    EXPECT_EQ(list.first, nullptr);
    EXPECT_EQ(list.last, nullptr);
}

TEST(ContainerTest, RemovingANodeOfAnotherContainerOnlyNullsItsLinks)
{
    TestContainer owner, other;
    RecordingLeaf a, b, c;
    owner.add(&a);
    owner.add(&b);
    owner.add(&c);
    other.remove(&b);
    EXPECT_EQ(other.count, 0u);
    EXPECT_EQ(b.parent, nullptr);
    EXPECT_EQ(b.next, nullptr);
    EXPECT_EQ(b.prev, nullptr);
    // The owner's list is not repaired: it still counts and reaches b.
    EXPECT_EQ(owner.count, 3u);
    EXPECT_EQ(a.next, &b);
    EXPECT_EQ(c.prev, &b);
    // Detach the nodes the unrepaired list still links before they go out of scope.
    owner.clear();
    owner.remove(&a);
}

TEST(ContainerTest, InsertAfterTheLastMakesTheChildLast)
{
    TestContainer list;
    RecordingLeaf a, b, x;
    list.add(&a);
    list.add(&b);
    list.insertAfter(&x, &b);
    EXPECT_EQ(list.last, &x);
    EXPECT_EQ(list.count, 3u);
    EXPECT_EQ(forward(list), (Nodes{&a, &b, &x}));
    EXPECT_EQ(backward(list), (Nodes{&x, &b, &a}));
}

TEST(ContainerTest, InsertBeforeTheFirstMakesTheChildFirst)
{
    TestContainer list;
    RecordingLeaf a, b, x;
    list.add(&a);
    list.add(&b);
    list.insertBefore(&x, &a);
    EXPECT_EQ(list.first, &x);
    EXPECT_EQ(list.count, 3u);
    EXPECT_EQ(forward(list), (Nodes{&x, &a, &b}));
    EXPECT_EQ(backward(list), (Nodes{&b, &a, &x}));
}

TEST(ContainerTest, InsertInTheMiddleLinksBothNeighbours)
{
    TestContainer list;
    RecordingLeaf a, b, x, y;
    list.add(&a);
    list.add(&b);
    list.insertAfter(&x, &a);
    list.insertBefore(&y, &b);
    EXPECT_EQ(forward(list), (Nodes{&a, &x, &y, &b}));
    EXPECT_EQ(backward(list), (Nodes{&b, &y, &x, &a}));
    EXPECT_EQ(list.count, 4u);
}

TEST(ContainerTest, InsertNextToANodeOfAnotherContainerDoesNothing)
{
    TestContainer list, other;
    RecordingLeaf a, stranger, x;
    list.add(&a);
    other.add(&stranger);
    list.insertAfter(&x, &stranger);
    list.insertBefore(&x, nullptr);
    EXPECT_EQ(x.parent, nullptr);
    EXPECT_EQ(list.count, 1u);
    EXPECT_EQ(other.count, 1u);
}

TEST(ContainerTest, InsertMovesAChildOutOfItsOldContainer)
{
    TestContainer list, other;
    RecordingLeaf a, x;
    list.add(&a);
    other.add(&x);
    list.insertBefore(&x, &a);
    EXPECT_EQ(other.count, 0u);
    EXPECT_EQ(other.first, nullptr);
    EXPECT_EQ(forward(list), (Nodes{&x, &a}));
}

TEST(ContainerTest, BringToFrontMovesANodeToTheEnd)
{
    TestContainer list;
    RecordingLeaf a, b, c;
    list.add(&a);
    list.add(&b);
    list.add(&c);
    list.bringToFront(&a);
    EXPECT_EQ(forward(list), (Nodes{&b, &c, &a}));
    EXPECT_EQ(backward(list), (Nodes{&a, &c, &b}));
    list.bringToFront(&c);
    EXPECT_EQ(forward(list), (Nodes{&b, &a, &c}));
    EXPECT_EQ(backward(list), (Nodes{&c, &a, &b}));
    EXPECT_EQ(list.count, 3u);
}

TEST(ContainerTest, SendToBackMovesANodeToTheStart)
{
    TestContainer list;
    RecordingLeaf a, b, c;
    list.add(&a);
    list.add(&b);
    list.add(&c);
    list.sendToBack(&c);
    EXPECT_EQ(forward(list), (Nodes{&c, &a, &b}));
    EXPECT_EQ(backward(list), (Nodes{&b, &a, &c}));
    list.sendToBack(&a);
    EXPECT_EQ(forward(list), (Nodes{&a, &c, &b}));
    EXPECT_EQ(backward(list), (Nodes{&b, &c, &a}));
    EXPECT_EQ(list.count, 3u);
}

TEST(ContainerTest, BringToFrontOfTheLastNodeCutsItOffTheList)
{
    TestContainer list;
    RecordingLeaf a, b, c;
    list.add(&a);
    list.add(&b);
    list.add(&c);
    list.bringToFront(&c);
    EXPECT_EQ(c.prev, &c);
    EXPECT_EQ(c.next, nullptr);
    EXPECT_EQ(list.last, &c);
    EXPECT_EQ(b.next, nullptr);
    EXPECT_EQ(forward(list), (Nodes{&a, &b}));
    EXPECT_EQ(list.count, 3u);
    // The list still names c as last; detach it before the nodes go out of scope.
    list.clear();
}

TEST(ContainerTest, SendToBackOfTheFirstNodeCutsItOffTheList)
{
    TestContainer list;
    RecordingLeaf a, b, c;
    list.add(&a);
    list.add(&b);
    list.add(&c);
    list.sendToBack(&a);
    EXPECT_EQ(a.next, &a);
    EXPECT_EQ(a.prev, nullptr);
    EXPECT_EQ(list.first, &a);
    EXPECT_EQ(b.prev, nullptr);
    EXPECT_EQ(backward(list), (Nodes{&c, &b}));
    EXPECT_EQ(list.count, 3u);
    list.clear();
}

TEST(ContainerTest, ReorderingANodeOfAnotherContainerDoesNothing)
{
    TestContainer list, other;
    RecordingLeaf a, b, stranger;
    list.add(&a);
    list.add(&b);
    other.add(&stranger);
    list.bringToFront(&stranger);
    list.sendToBack(&stranger);
    list.bringToFront(nullptr);
    EXPECT_EQ(forward(list), (Nodes{&a, &b}));
    EXPECT_EQ(stranger.parent, &other);
}

TEST(ContainerTest, ClearDetachesEveryChildWithoutDeletingIt)
{
    TestContainer list;
    RecordingLeaf a, b, c;
    list.add(&a);
    list.add(&b);
    list.add(&c);
    list.clear();
    EXPECT_EQ(list.count, 0u);
    EXPECT_EQ(list.first, nullptr);
    EXPECT_EQ(list.last, nullptr);
    for (RecordingLeaf* n : {&a, &b, &c}) {
        EXPECT_EQ(n->parent, nullptr);
        EXPECT_EQ(n->next, nullptr);
        EXPECT_EQ(n->prev, nullptr);
    }
    list.add(&b);
    EXPECT_EQ(forward(list), (Nodes{&b}));
}

TEST(ContainerTest, DestroyingAContainerLeavesItsChildrenDetached)
{
    RecordingLeaf a, b;
    {
        TestContainer list;
        list.add(&a);
        list.add(&b);
    }
    EXPECT_EQ(a.parent, nullptr);
    EXPECT_EQ(a.next, nullptr);
    EXPECT_EQ(b.parent, nullptr);
    EXPECT_EQ(b.prev, nullptr);
}

} // namespace
