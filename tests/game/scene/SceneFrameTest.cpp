#include "scene/SceneFrame.h"

#include "SceneTestNodes.h"
#include "scene/SceneScratch.h"
#include "scene/SceneTraversal.h"

#include <gtest/gtest.h>

namespace {

constexpr float kWorld = 4096.0f;

struct ExpectedRect {
    float x, y, width, height, offsetX, offsetY;
};

void expectRects(const vorlik::Stack<ViewRect>& views, std::initializer_list<ExpectedRect> expected)
{
    ASSERT_EQ(views.count, expected.size());
    uint32_t i = 0;
    for (const ExpectedRect& e : expected) {
        const ViewRect& v = views[i];
        EXPECT_FLOAT_EQ(v.x, e.x) << "rect " << i;
        EXPECT_FLOAT_EQ(v.y, e.y) << "rect " << i;
        EXPECT_FLOAT_EQ(v.width, e.width) << "rect " << i;
        EXPECT_FLOAT_EQ(v.height, e.height) << "rect " << i;
        EXPECT_FLOAT_EQ(v.offset.x, e.offsetX) << "rect " << i;
        EXPECT_FLOAT_EQ(v.offset.y, e.offsetY) << "rect " << i;
        ++i;
    }
}

TEST(SceneFrameTest, WithoutWrappingOnlyTheViewIsListed)
{
    vorlik::Stack<ViewRect> views(128);
    buildViewRects(views, vorlik::vec2(10, 10), vorlik::vec2(1280, 720), vorlik::vec2(kWorld, kWorld), false);
    expectRects(views, {{-640, -360, 1280, 720, 0, 0}});
}

TEST(SceneFrameTest, AwayFromTheEdgesOnlyTheViewIsListed)
{
    vorlik::Stack<ViewRect> views(128);
    buildViewRects(views, vorlik::vec2(2048, 2048), vorlik::vec2(1280, 720), vorlik::vec2(kWorld, kWorld), true);
    expectRects(views, {{-640, -360, 1280, 720, 0, 0}});
}

TEST(SceneFrameTest, NearTheTopLeftCornerTheTopAndLeftCopiesFollowTheView)
{
    vorlik::Stack<ViewRect> views(128);
    buildViewRects(views, vorlik::vec2(10, 10), vorlik::vec2(1280, 720), vorlik::vec2(kWorld, kWorld), true);
    expectRects(views, {
                           {-640, -360, 1280, 720, 0, 0},
                           {-640, 4096 - 1440, 1280, 2880, 0, -4096},
                           {4096 - 1280, 4096 - 1440, 2560, 2880, -4096, -4096},
                           {4096 - 1280, -360, 2560, 720, -4096, 0},
                       });
}

TEST(SceneFrameTest, NearTheBottomRightCornerTheRightAndBottomCopiesFollowTheView)
{
    vorlik::Stack<ViewRect> views(128);
    buildViewRects(views, vorlik::vec2(4000, 4000), vorlik::vec2(1280, 720), vorlik::vec2(kWorld, kWorld), true);
    expectRects(views, {
                           {-640, -360, 1280, 720, 0, 0},
                           {-640 - 4096, -360, 2560, 720, 4096, 0},
                           {-640, -360 - 4096, 1280, 1440, 0, 4096},
                           {-640 - 4096, -360 - 4096, 2560, 1440, 4096, 4096},
                       });
}

TEST(SceneFrameTest, AViewAsLargeAsTheWorldListsAllNineInTheirOrder)
{
    // The HUD: the world is the screen and the camera sits at its centre.
    vorlik::Stack<ViewRect> views(128);
    buildViewRects(views, vorlik::vec2(640, 360), vorlik::vec2(1280, 720), vorlik::vec2(1280, 720), true);
    expectRects(views, {
                           {-640, -360, 1280, 720, 0, 0},
                           {-640, 720 - 1440, 1280, 2880, 0, -720},
                           {1280 - 1280, 720 - 1440, 2560, 2880, -1280, -720},
                           {1280 - 1280, -360, 2560, 720, -1280, 0},
                           {-640 - 1280, 720 - 1440, 2560, 2880, 1280, -720},
                           {-640 - 1280, -360, 2560, 720, 1280, 0},
                           {-640, -360 - 720, 1280, 1440, 0, 720},
                           {1280 - 1280, -360 - 720, 2560, 1440, -1280, 720},
                           {-640 - 1280, -360 - 720, 2560, 1440, 1280, 720},
                       });
}

TEST(SceneFrameTest, RebuildingResetsTheList)
{
    vorlik::Stack<ViewRect> views(128);
    buildViewRects(views, vorlik::vec2(640, 360), vorlik::vec2(1280, 720), vorlik::vec2(1280, 720), true);
    buildViewRects(views, vorlik::vec2(2048, 2048), vorlik::vec2(1280, 720), vorlik::vec2(kWorld, kWorld), true);
    EXPECT_EQ(views.count, 1u);
}

TEST(SceneFrameTest, ObjectNearTheFarCornerIsDrawnOnceUpAndLeftOfTheCentre)
{
    // Camera at (10, 10) in the 4096 world; an 8 x 8 object at (4090, 4090).
    SceneScratch scratch;
    buildViewRects(scratch.views, vorlik::vec2(10, 10), vorlik::vec2(1280, 720), vorlik::vec2(kWorld, kWorld), true);
    SceneState initial{};
    initial.views = &scratch.views;
    initial.transform.translate(-10, -10);
    TestContainer world;
    RecordingLeaf object(8, 8);
    object.position = vorlik::vec3(4090, 4090, 0);
    world.add(&object);
    RecordingSink sink;
    traverseScene(world.first, initial, TraversalSwitches(), scratch, sink);
    ASSERT_EQ(sink.calls.size(), 1u);
    const vorlik::vec2 centre = sink.calls[0].state.transform * vorlik::vec2(0, 0);
    EXPECT_FLOAT_EQ(centre.x, -16);
    EXPECT_FLOAT_EQ(centre.y, -16);
}

} // namespace
