#include "scene/Effect.h"

#include "SceneTestNodes.h"

#include <gtest/gtest.h>

namespace {

TEST(EffectTest, IsVisibleUntransformedAndNormallyBlended)
{
    RecordingEffect effect;
    EXPECT_EQ(effect.flags, 0x103u);
    EXPECT_EQ(effect.parent, nullptr);
    EXPECT_EQ(effect.scale, 1.0f);
}

TEST(EffectTest, KeepsTheDrawableOperations)
{
    TestContainer scene;
    RecordingEffect effect;
    scene.add(&effect);
    effect.setBlendMode(BLEND_ADDITIVE);
    effect.setVisible(false);
    EXPECT_EQ(effect.flags, 0x202u);
    effect.removeFromParent();
    EXPECT_EQ(scene.count, 0u);
}

} // namespace
