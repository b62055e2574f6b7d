#include "scene/NodeGeometry.h"

#include <gtest/gtest.h>

namespace {

TEST(NodeGeometryTest, PlacementScalesThenTurnsThenMovesInsideTheBase)
{
    vorlik::mat2 base;
    base.translate(1000, 0);
    const vorlik::mat2 t = placeNode(base, vorlik::vec2(10, 20), 90, 2);
    const vorlik::vec2 p = t * vorlik::vec2(3, 0);
    EXPECT_NEAR(p.x, 1010, 1e-4);
    EXPECT_NEAR(p.y, 26, 1e-4);
}

TEST(NodeGeometryTest, CornersRunClockwiseOnScreenFromTheTopLeft)
{
    vorlik::vec2 c[4];
    nodeCorners(vorlik::mat2(), vorlik::vec3(5, 0, 0), vorlik::vec3(10, 4, 0), c);
    EXPECT_EQ(c[0], vorlik::vec2(0, -2));
    EXPECT_EQ(c[1], vorlik::vec2(10, -2));
    EXPECT_EQ(c[2], vorlik::vec2(10, 2));
    EXPECT_EQ(c[3], vorlik::vec2(0, 2));
}

TEST(NodeGeometryTest, EnclosingRectOfATurnedSquareIsWider)
{
    const vorlik::mat2 t = placeNode(vorlik::mat2(), vorlik::vec2(0, 0), 45, 1);
    const Rect r = enclosingRect(t, vorlik::vec3(0, 0, 0), vorlik::vec3(10, 10, 0));
    EXPECT_NEAR(r.width, 14.1421356f, 1e-4);
    EXPECT_NEAR(r.height, 14.1421356f, 1e-4);
    EXPECT_NEAR(r.x, -7.0710678f, 1e-4);
    EXPECT_NEAR(r.y, -7.0710678f, 1e-4);
}

TEST(NodeGeometryTest, EmptyNodeEnclosesOnlyItsAnchorPoint)
{
    const Rect r = enclosingRect(placeNode(vorlik::mat2(), vorlik::vec2(4, 6), 0, 1), vorlik::vec3(1, 1, 0),
                                 vorlik::vec3(0, 0, 0));
    EXPECT_EQ(r.x, 5);
    EXPECT_EQ(r.y, 7);
    EXPECT_EQ(r.width, 0);
    EXPECT_EQ(r.height, 0);
}

} // namespace
