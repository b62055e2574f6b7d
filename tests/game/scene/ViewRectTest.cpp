#include "scene/ViewRect.h"

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

TEST(ViewRectTest, WithoutWrappingOnlyTheViewIsListed)
{
    vorlik::Stack<ViewRect> views(128);
    buildViewRects(views, vorlik::vec2(10, 10), vorlik::vec2(1280, 720), vorlik::vec2(kWorld, kWorld), false);
    expectRects(views, {{-640, -360, 1280, 720, 0, 0}});
}

TEST(ViewRectTest, AwayFromTheEdgesOnlyTheViewIsListed)
{
    vorlik::Stack<ViewRect> views(128);
    buildViewRects(views, vorlik::vec2(2048, 2048), vorlik::vec2(1280, 720), vorlik::vec2(kWorld, kWorld), true);
    expectRects(views, {{-640, -360, 1280, 720, 0, 0}});
}

TEST(ViewRectTest, NearTheTopLeftCornerTheTopAndLeftCopiesFollowTheView)
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

TEST(ViewRectTest, NearTheBottomRightCornerTheRightAndBottomCopiesFollowTheView)
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

TEST(ViewRectTest, AViewAsLargeAsTheWorldListsAllNineInTheirOrder)
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

TEST(ViewRectTest, RebuildingResetsTheList)
{
    vorlik::Stack<ViewRect> views(128);
    buildViewRects(views, vorlik::vec2(640, 360), vorlik::vec2(1280, 720), vorlik::vec2(1280, 720), true);
    buildViewRects(views, vorlik::vec2(2048, 2048), vorlik::vec2(1280, 720), vorlik::vec2(kWorld, kWorld), true);
    EXPECT_EQ(views.count, 1u);
}

TEST(ViewRectTest, TheFirstRectangleHoldingACornerOfANodeIsFound)
{
    vorlik::Stack<ViewRect> views(4);
    views.push(ViewRect{0, 0, 100, 100, vorlik::vec2(0, 0)});
    views.push(ViewRect{50, 50, 100, 100, vorlik::vec2(7, 7)});
    views.push(ViewRect{200, 0, 100, 100, vorlik::vec2(9, 9)});
    EXPECT_EQ(findViewRect(views, Rect{60, 60, 10, 10}), &views[0]);
    EXPECT_EQ(findViewRect(views, Rect{120, 120, 10, 10}), &views[1]);
    // Only the bottom-left corner (190, 20) lies outside; the top-right (210, 10) is in the third.
    EXPECT_EQ(findViewRect(views, Rect{190, 10, 20, 10}), &views[2]);
}

TEST(ViewRectTest, CornersOnTheEdgeCountAsInside)
{
    vorlik::Stack<ViewRect> views(1);
    views.push(ViewRect{0, 0, 100, 100, vorlik::vec2(0, 0)});
    EXPECT_EQ(findViewRect(views, Rect{100, 100, 10, 10}), &views[0]);
    EXPECT_EQ(findViewRect(views, Rect{-10, -10, 10, 10}), &views[0]);
    EXPECT_EQ(findViewRect(views, Rect{100.5f, 0, 10, 10}), nullptr);
}

TEST(ViewRectTest, ARectangleLargerThanTheViewWithNoCornerInsideIsNotFound)
{
    vorlik::Stack<ViewRect> views(1);
    views.push(ViewRect{0, 0, 100, 100, vorlik::vec2(0, 0)});
    EXPECT_EQ(findViewRect(views, Rect{-50, -50, 200, 200}), nullptr);
}

} // namespace
