#include "play/ActorLists.h"

#include "play/Actor.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

vorlik::Stack<Actor*>* g_list = nullptr; // the list the counting actors leave when they die

// Counts its updates; when told to, deletes itself during its update as a dying enemy does.
class CountingActor : public Actor {
public:
    ~CountingActor() override { removeFromList(*g_list, static_cast<Actor*>(this)); }
    void update() override
    {
        ++updates;
        if (dieOnUpdate) delete this;
    }
    int updates = 0;
    bool dieOnUpdate = false;
};

class ActorListsTest : public ::testing::Test {
protected:
    ActorListsTest() { g_list = &list; }
    ~ActorListsTest() override
    {
        while (list.count > 0) delete list[list.count - 1];
        g_list = nullptr;
    }
    CountingActor* add()
    {
        auto* a = new CountingActor;
        list.push(a);
        return a;
    }
    vorlik::Stack<Actor*> list{kActorListCapacity};
};

TEST_F(ActorListsTest, RemovingMovesTheLastEntryIntoTheFreedSlot)
{
    Actor a, b, c, d;
    vorlik::Stack<Actor*> l(4);
    for (Actor* x : {&a, &b, &c, &d}) l.push(x);
    removeFromList(l, &b);
    ASSERT_EQ(l.count, 3u);
    EXPECT_EQ(l[0], &a);
    EXPECT_EQ(l[1], &d);
    EXPECT_EQ(l[2], &c);
}

TEST_F(ActorListsTest, RemovingAPointerThatIsNotListedChangesNothing)
{
    Actor a, b, stranger;
    vorlik::Stack<Actor*> l(4);
    l.push(&a);
    l.push(&b);
    removeFromList(l, &stranger);
    ASSERT_EQ(l.count, 2u);
    EXPECT_EQ(l[0], &a);
    EXPECT_EQ(l[1], &b);
}

TEST_F(ActorListsTest, OnlyTheFirstOfTwoEqualEntriesIsRemoved)
{
    Actor a, b;
    vorlik::Stack<Actor*> l(4);
    for (Actor* x : {&a, &b, &a}) l.push(x);
    removeFromList(l, &a);
    ASSERT_EQ(l.count, 2u);
    EXPECT_EQ(l[0], &a);
    EXPECT_EQ(l[1], &b);
}

TEST_F(ActorListsTest, RemovingFromOneListLeavesTheOthersUntouched)
{
    Actor a, b;
    vorlik::Stack<Actor*> actors(4), enemies(4);
    actors.push(&a);
    actors.push(&b);
    enemies.push(&b);
    removeFromList(enemies, &a);
    EXPECT_EQ(enemies.count, 1u);
    EXPECT_EQ(enemies[0], &b);
    removeFromList(actors, &a);
    EXPECT_EQ(actors.count, 1u);
    EXPECT_EQ(enemies.count, 1u);
}

TEST_F(ActorListsTest, AnActorDeletingItselfMidWalkLetsTheLastOneSkipThisFrame)
{
    std::vector<CountingActor*> five;
    for (int i = 0; i < 5; ++i) five.push_back(add());
    five[2]->dieOnUpdate = true;
    updateAll(list);
    ASSERT_EQ(list.count, 4u);
    EXPECT_EQ(list[2], five[4]); // moved into the freed slot, behind the walk
    EXPECT_EQ(five[0]->updates, 1);
    EXPECT_EQ(five[1]->updates, 1);
    EXPECT_EQ(five[3]->updates, 1);
    EXPECT_EQ(five[4]->updates, 0);
    updateAll(list);
    for (int i : {0, 1, 3}) EXPECT_EQ(five[i]->updates, 2);
    EXPECT_EQ(five[4]->updates, 1);
}

TEST_F(ActorListsTest, TheListsGrowPastTheirStartingRoom)
{
    for (uint32_t i = 0; i < kActorListCapacity + 1; ++i) add();
    EXPECT_EQ(list.count, kActorListCapacity + 1);
    EXPECT_GE(list.capacity, 2 * kActorListCapacity);
}

} // namespace
