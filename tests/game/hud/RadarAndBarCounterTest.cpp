// Radar and BarCounter: the two HUD nodes that are declared but never made. Both are plain
// visible nodes that draw nothing.
#include "hud/BarCounter.h"
#include "hud/Radar.h"

#include "SceneOverBlackTest.h"
#include "scene/DirectScene2D.h"

#include <gtest/gtest.h>

namespace {

template <class Node> class UnusedHudNode : public SceneOverBlackTest<DirectScene2D> {
};

using UnusedHudNodes = ::testing::Types<Radar, BarCounter>;
TYPED_TEST_SUITE(UnusedHudNode, UnusedHudNodes);

TYPED_TEST(UnusedHudNode, IsAVisiblePlainNodeWithNothingOfItsOwn)
{
    TypeParam node;
    EXPECT_EQ(node.flags, Drawable::kDefaultFlags);
    EXPECT_EQ(node.size.x, 0.0f);
    EXPECT_EQ(node.size.y, 0.0f);
    EXPECT_EQ(node.parent, nullptr);
}

TYPED_TEST(UnusedHudNode, DrawsNothingOnTheHud)
{
    TypeParam node;
    node.setSize(256, 256);
    node.position = vorlik::vec3(640, 360, 0);
    this->scene->add(&node);
    this->scene->render();
    EXPECT_TRUE(pixelprobe::near(pixelprobe::readPixel(640, 360, this->kHeight), 0, 0, 0, 0));
    EXPECT_TRUE(pixelprobe::near(pixelprobe::readPixel(520, 240, this->kHeight), 0, 0, 0, 0));
}

} // namespace
