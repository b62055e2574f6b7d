#include "scene/DirectScene2D.h"

#include "SceneOverBlackTest.h"
#include "SceneGLNodes.h"
#include "scene/Group.h"
#include "scene/Scene2D.h"

#include <gtest/gtest.h>

namespace {

// The HUD scene over black.
class DirectScene2DTest : public SceneOverBlackTest<DirectScene2D> {
protected:
    void SetUp() override
    {
        SceneOverBlackTest::SetUp();
        hud = scene;
    }

    DirectScene2D* hud = nullptr;
};

TEST_F(DirectScene2DTest, WorldIsTheScreenWithTheCameraAtItsCentre)
{
    EXPECT_EQ(hud->width, kWidth);
    EXPECT_EQ(hud->height, kHeight);
    EXPECT_EQ(hud->worldWidth, float(kWidth));
    EXPECT_EQ(hud->worldHeight, float(kHeight));
    EXPECT_EQ(hud->camera.x, 640);
    EXPECT_EQ(hud->camera.y, 360);
    EXPECT_EQ(hud->view, &hud->camera);
}

TEST_F(DirectScene2DTest, TopLeftAnchoredNodeAtTheOriginStartsAtTheWindowsCorner)
{
    SolidQuad box(30, 20);
    box.setAnchor(ANCHOR_TOP_LEFT);
    hud->add(&box);
    hud->render();

    const LitArea lit = WindowPixels(kWidth, kHeight).lit();
    EXPECT_EQ(lit.left, 0);
    EXPECT_EQ(lit.top, 0);
    EXPECT_EQ(lit.right, 29);
    EXPECT_EQ(lit.bottom, 19);
}

TEST_F(DirectScene2DTest, NodeWhollyBelowTheScreenIsDrawnOneScreenHeightUp)
{
    SolidQuad box(20, 20);
    box.setAnchor(ANCHOR_TOP_LEFT);
    box.position = vorlik::vec3(600, kHeight + 100, 0);
    hud->add(&box);
    hud->render();

    EXPECT_EQ(box.draws, 1);
    const LitArea lit = WindowPixels(kWidth, kHeight).lit();
    EXPECT_EQ(lit.left, 600);
    EXPECT_EQ(lit.top, 100);
    EXPECT_EQ(lit.right, 619);
    EXPECT_EQ(lit.bottom, 119);
}

TEST_F(DirectScene2DTest, GroupPlacesAndTintsItsChildren)
{
    Group box;
    box.position = vorlik::vec3(100, 30, 0);
    box.color = ByteColor{128, 255, 255, 255};
    SolidQuad counter(10, 10);
    counter.setAnchor(ANCHOR_TOP_LEFT);
    counter.position = vorlik::vec3(15, 12, 0);
    hud->add(&box);
    box.add(&counter);
    hud->render();

    const WindowPixels pixels(kWidth, kHeight);
    const LitArea lit = pixels.lit();
    EXPECT_EQ(lit.left, 115);
    EXPECT_EQ(lit.top, 42);
    EXPECT_EQ(lit.right, 124);
    EXPECT_EQ(lit.bottom, 51);
    const Pixel tinted = pixels.at(120, 47);
    EXPECT_NEAR(tinted.r, 128, 2);
    EXPECT_GT(tinted.g, 250);
}

TEST_F(DirectScene2DTest, HudIsDrawnOverTheWorldWithoutClearingIt)
{
    Scene2D world(-1, -1);
    world.debugBounds = false;
    SolidQuad ground(200, 200);
    ground.color = ByteColor{0, 0, 255, 255};
    ground.position = vorlik::vec3(640, 360, 0);
    world.add(&ground);
    SolidQuad marker(20, 20);
    marker.color = ByteColor{255, 0, 0, 255};
    marker.position = vorlik::vec3(640, 360, 0);
    hud->add(&marker);

    world.render();
    hud->render();

    const WindowPixels pixels(kWidth, kHeight);
    const Pixel middle = pixels.at(640, 360);
    EXPECT_GT(middle.r, 200);
    EXPECT_LT(middle.b, 40);
    const Pixel around = pixels.at(700, 400);
    EXPECT_GT(around.b, 200);
    EXPECT_LT(around.r, 40);
}

TEST_F(DirectScene2DTest, KeepsItsOwnWorkingListsApartFromTheWorlds)
{
    SolidQuad box(20, 20);
    hud->add(&box);
    hud->render();
    Scene2D world(-1, -1);
    EXPECT_NE(&hud->scratch.views, &world.scratch.views);
    EXPECT_EQ(hud->scratch.views.count, 9u);
    EXPECT_EQ(world.scratch.views.count, 0u);
}

} // namespace
