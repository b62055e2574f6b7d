#include "play/Actor.h"

#include "scene/Sprite.h"

#include <gtest/gtest.h>

namespace {

TEST(ActorTest, StartsWithNoDrawableAtTheOriginUnturnedAtScaleOne)
{
    Actor actor;
    EXPECT_EQ(actor.drawable, nullptr);
    EXPECT_EQ(actor.position, vorlik::vec2(0, 0));
    EXPECT_EQ(actor.radius, 0.0f);
    EXPECT_EQ(actor.rotation, 0.0f);
    EXPECT_EQ(actor.scale, 1.0f);
}

TEST(ActorTest, OneUnitLeftOfTheWorldWrapsToItsRightEdgeAndTheWidthToZero)
{
    Actor left, right;
    left.position = vorlik::vec2(-1, 10);
    right.position = vorlik::vec2(4096, 10);
    left.update();
    right.update();
    EXPECT_FLOAT_EQ(left.position.x, 4095);
    EXPECT_FLOAT_EQ(right.position.x, 0);
    EXPECT_FLOAT_EQ(left.position.y, 10);
}

TEST(ActorTest, UpdateCopiesPositionScaleAndRotationOntoTheDrawable)
{
    Sprite sprite(nullptr, 10, 10);
    sprite.position = vorlik::vec3(1, 2, 3);
    Actor actor;
    actor.drawable = &sprite;
    actor.position = vorlik::vec2(100, 4200);
    actor.scale = -2;
    actor.rotation = 370;
    actor.update();
    EXPECT_FLOAT_EQ(sprite.position.x, 100);
    EXPECT_FLOAT_EQ(sprite.position.y, 104);
    EXPECT_EQ(sprite.position.z, 0.0f);
    EXPECT_EQ(sprite.scale, 2.0f);          // the drawable keeps the size of a scale
    EXPECT_FLOAT_EQ(sprite.rotation, 10.0f); // and a rotation within one turn
}

TEST(ActorTest, WithoutADrawableUpdateOnlyWraps)
{
    Actor actor;
    actor.position = vorlik::vec2(-4096 - 5, 0);
    actor.update();
    EXPECT_FLOAT_EQ(actor.position.x, 4091);
}

} // namespace
