#include "art/SkyCube.h"

#include <gtest/gtest.h>

using namespace assetgen;

TEST(SkyCube, FaceOfInvertsFaceDirection)
{
    for (CubeFace face : kCubeFaces)
        for (float s : {-0.9f, -0.3f, 0.0f, 0.5f, 0.95f})
            for (float t : {-0.8f, 0.0f, 0.4f}) {
                CubeFace back;
                float s2, t2;
                faceOf(faceDirection(face, s, t), back, s2, t2);
                EXPECT_EQ(back, face) << faceName(face);
                EXPECT_NEAR(s2, s, 1e-5f);
                EXPECT_NEAR(t2, t, 1e-5f);
            }
}

TEST(SkyCube, FacesAreUprightAroundTheViewer)
{
    // Side faces: up in the picture is +Y; the front looks down -Z with +X to its right.
    EXPECT_GT(faceDirection(CubeFace::Front, 0, -1).y, 0);
    EXPECT_LT(faceDirection(CubeFace::Front, 0, 0).z, 0);
    EXPECT_GT(faceDirection(CubeFace::Front, 1, 0).x, 0);
    EXPECT_GT(faceDirection(CubeFace::Right, 0, 0).x, 0);
    EXPECT_GT(faceDirection(CubeFace::Top, 0, 0).y, 0);
    // The top face's bottom edge meets the front face's top edge.
    V3 a = faceDirection(CubeFace::Top, 0.3f, 1), b = faceDirection(CubeFace::Front, 0.3f, -1);
    EXPECT_NEAR(a.x, b.x, 1e-6f);
    EXPECT_NEAR(a.y, b.y, 1e-6f);
    EXPECT_NEAR(a.z, b.z, 1e-6f);
}
