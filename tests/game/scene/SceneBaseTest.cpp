#include "scene/SceneBase.h"

#include "SceneTestNodes.h"

#include <gtest/gtest.h>

namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 720;

// The shared scene part on its own: no GL is needed to prepare a frame.
class SceneBaseTest : public ::testing::Test {
protected:
    SceneBase scene{kWidth, kHeight};
    const vorlik::Stack<ViewRect>& views = scene.scratch.views;
    SceneBase::Frame frame;
};

vorlik::vec4 project(const vorlik::mat4& projection, float x, float y, float z)
{
    const vorlik::vec4 clip = projection * vorlik::vec4(x, y, z, 1);
    return vorlik::vec4(clip.x / clip.w, clip.y / clip.w, clip.z / clip.w, 1);
}

TEST_F(SceneBaseTest, StartsLookingAtTheCentreOfItsPixels)
{
    EXPECT_EQ(scene.width, kWidth);
    EXPECT_EQ(scene.height, kHeight);
    EXPECT_EQ(scene.camera.x, 640);
    EXPECT_EQ(scene.camera.y, 360);
    EXPECT_EQ(scene.camera.zoom, 1);
    EXPECT_EQ(scene.camera.rotation, 0);
    EXPECT_EQ(scene.lastCamera.x, 0);
    EXPECT_EQ(scene.lastCamera.zoom, 1);
    EXPECT_EQ(scene.view, &scene.camera);
    EXPECT_EQ(scene.worldWidth, 1280);
    EXPECT_EQ(scene.worldHeight, 720);
    EXPECT_TRUE(scene.debugBounds);
    EXPECT_TRUE(scene.wrapWorld);
    EXPECT_TRUE(scene.cullTransparent);
    EXPECT_TRUE(scene.bloom);
    EXPECT_EQ(scene.bloomRadius, 80.0f);
    EXPECT_EQ(scene.bloomPasses, 2.0f);
    EXPECT_EQ(scene.bloomStrength, 10.0f);
    EXPECT_EQ(scene.bloomThreshold, 0.5f);
    EXPECT_EQ(scene.bloomTint.a, 255);
    EXPECT_EQ(scene.bloomMix, 0.1f);
    EXPECT_EQ(scene.count, 0u);
}

TEST_F(SceneBaseTest, ZoomAtOrBelowAHundredthIsRaisedToAHundredthAndWrittenBack)
{
    scene.camera.zoom = 0;
    scene.prepareFrame(frame);
    EXPECT_FLOAT_EQ(scene.camera.zoom, 0.01f);
    scene.camera.zoom = -3;
    scene.prepareFrame(frame);
    EXPECT_FLOAT_EQ(scene.camera.zoom, 0.01f);
    EXPECT_FLOAT_EQ(frame.state.transform.m0, 0.01f);
    scene.camera.zoom = 0.005f;
    scene.prepareFrame(frame);
    EXPECT_FLOAT_EQ(scene.camera.zoom, 0.01f);
    scene.camera.zoom = 0.02f;
    scene.prepareFrame(frame);
    EXPECT_FLOAT_EQ(scene.camera.zoom, 0.02f);
}

TEST_F(SceneBaseTest, ZoomIsReadThroughTheViewPointer)
{
    WorldView other;
    other.zoom = 0;
    scene.view = &other;
    scene.prepareFrame(frame);
    EXPECT_FLOAT_EQ(other.zoom, 0.01f);
    EXPECT_FLOAT_EQ(scene.camera.zoom, 1);
}

TEST_F(SceneBaseTest, ViewSizeGrowsAsTheZoomShrinks)
{
    scene.worldWidth = scene.worldHeight = 100000;
    scene.camera.x = scene.camera.y = 50000;
    scene.camera.zoom = 0.5f;
    scene.prepareFrame(frame);
    ASSERT_EQ(views.count, 1u);
    EXPECT_FLOAT_EQ(views[0].width, 2560);
    EXPECT_FLOAT_EQ(views[0].height, 1440);
}

TEST_F(SceneBaseTest, CameraIsWrappedForTheFrameButNotStored)
{
    scene.worldWidth = scene.worldHeight = 4096;
    scene.camera.x = 4106;
    scene.camera.y = -10;
    scene.prepareFrame(frame);
    EXPECT_FLOAT_EQ(frame.camera.x, 10);
    EXPECT_FLOAT_EQ(frame.camera.y, 4086);
    EXPECT_FLOAT_EQ(scene.camera.x, 4106);
    EXPECT_FLOAT_EQ(scene.camera.y, -10);
    const vorlik::vec2 p = frame.state.transform * vorlik::vec2(10, 4086);
    EXPECT_FLOAT_EQ(p.x, 0);
    EXPECT_FLOAT_EQ(p.y, 0);
}

TEST_F(SceneBaseTest, WithoutWrappingTheCameraIsUsedAsItIs)
{
    scene.worldWidth = scene.worldHeight = 4096;
    scene.wrapWorld = false;
    scene.camera.x = 5000;
    scene.prepareFrame(frame);
    EXPECT_FLOAT_EQ(frame.camera.x, 5000);
    EXPECT_EQ(views.count, 1u);
}

TEST_F(SceneBaseTest, CameraTransformScalesTurnsAndCentresTheCamera)
{
    scene.worldWidth = scene.worldHeight = 4096;
    scene.camera.x = 1000;
    scene.camera.y = 1000;
    scene.camera.zoom = 2;
    scene.camera.rotation = 90;
    scene.prepareFrame(frame);
    // A point 10 units to the right of the camera: doubled, then turned by -90 degrees.
    const vorlik::vec2 p = frame.state.transform * vorlik::vec2(1010, 1000);
    EXPECT_NEAR(p.x, 0, 1e-3);
    EXPECT_NEAR(p.y, -20, 1e-3);
}

TEST_F(SceneBaseTest, ProjectionPutsTheOriginAtTheCentreWithYDown)
{
    scene.prepareFrame(frame);
    const vorlik::vec4 topLeft = project(*frame.state.projection, -640, -360, 0);
    EXPECT_FLOAT_EQ(topLeft.x, -1);
    EXPECT_FLOAT_EQ(topLeft.y, 1);
    const vorlik::vec4 bottomRight = project(*frame.state.projection, 640, 360, 0);
    EXPECT_FLOAT_EQ(bottomRight.x, 1);
    EXPECT_FLOAT_EQ(bottomRight.y, -1);
}

TEST_F(SceneBaseTest, PerspectiveShowsOneUnitPerPixelThroughTheCameraModelView)
{
    scene.camera.x = 0;
    scene.camera.y = 0;
    scene.wrapWorld = false;
    scene.prepareFrame(frame);
    const vorlik::vec4 eye = frame.state.cameraModelView * vorlik::vec4(640, 360, 0, 1);
    const vorlik::vec4 corner = project(*frame.state.perspective, eye.x, eye.y, eye.z);
    EXPECT_FLOAT_EQ(corner.x, 1);
    EXPECT_FLOAT_EQ(corner.y, -1);
    EXPECT_GT(corner.z, -1);
    EXPECT_LT(corner.z, 1);
}

TEST_F(SceneBaseTest, DisplacementIsTheCameraMoveSinceTheLastFrame)
{
    scene.prepareFrame(frame);
    EXPECT_EQ(frame.state.cameraDelta, vorlik::vec2(640, 360));
    scene.camera.x += 5;
    scene.camera.y -= 3;
    scene.camera.rotation = 12;
    scene.prepareFrame(frame);
    EXPECT_EQ(frame.state.cameraDelta, vorlik::vec2(5, -3));
    EXPECT_EQ(scene.lastCamera.x, 645);
    EXPECT_EQ(scene.lastCamera.y, 357);
    EXPECT_EQ(scene.lastCamera.rotation, 12);
}

TEST_F(SceneBaseTest, InitialStateIsOpaqueWhiteOverTheFramesViews)
{
    scene.prepareFrame(frame);
    EXPECT_EQ(frame.state.views, &views);
    EXPECT_EQ(frame.state.color.r, 255);
    EXPECT_EQ(frame.state.color.a, 255);
    EXPECT_EQ(frame.state.projection, &frame.projection);
    EXPECT_EQ(frame.state.perspective, &frame.perspective);
}

TEST_F(SceneBaseTest, AFrameBeginsThenOutlinesTheWorldThenDrawsTheTreeInOrderThenEnds)
{
    RecordingLeaf a, b;
    a.position = vorlik::vec3(640, 360, 0);
    b.position = vorlik::vec3(650, 370, 0);
    scene.add(&a);
    scene.add(&b);
    scene.worldWidth = 4096;
    scene.worldHeight = 2048;
    RecordingSink sink;
    scene.drawFrame(sink);
    EXPECT_EQ(sink.events, "bornrne");
    ASSERT_EQ(sink.calls.size(), 2u);
    EXPECT_EQ(sink.calls[0].node, &a);
    EXPECT_EQ(sink.calls[1].node, &b);
    EXPECT_EQ(sink.outlineSize, vorlik::vec2(4096, 2048));
    EXPECT_EQ(sink.outlineState.views, &views);
}

TEST_F(SceneBaseTest, WithoutDebugBoundsAFrameHasNoOutlines)
{
    RecordingLeaf a;
    a.position = vorlik::vec3(640, 360, 0);
    scene.add(&a);
    scene.debugBounds = false;
    RecordingSink sink;
    scene.drawFrame(sink);
    EXPECT_EQ(sink.events, "bne");
}

TEST_F(SceneBaseTest, AFrameRemembersTheCameraAndUsesTheScenesOwnLists)
{
    scene.debugBounds = false;
    scene.camera.x = 10;
    scene.camera.y = 10;
    scene.worldWidth = scene.worldHeight = 4096;
    RecordingSink sink;
    scene.drawFrame(sink);
    EXPECT_EQ(scene.lastCamera.x, 10);
    EXPECT_EQ(views.count, 4u); // the view and its copies across the top, left and top-left
    SceneBase other(kWidth, kHeight);
    EXPECT_NE(&other.scratch.views, &scene.scratch.views);
    EXPECT_EQ(other.scratch.views.count, 0u);
}

TEST_F(SceneBaseTest, ObjectNearTheFarCornerIsDrawnOnceUpAndLeftOfTheCentre)
{
    // Camera at (10, 10) in the 4096 world; an 8 x 8 object at (4090, 4090).
    scene.debugBounds = false;
    scene.worldWidth = scene.worldHeight = 4096;
    scene.camera.x = 10;
    scene.camera.y = 10;
    RecordingLeaf object(8, 8);
    object.position = vorlik::vec3(4090, 4090, 0);
    scene.add(&object);
    RecordingSink sink;
    scene.drawFrame(sink);
    ASSERT_EQ(sink.calls.size(), 1u);
    const vorlik::vec2 centre = sink.calls[0].state.transform * vorlik::vec2(0, 0);
    EXPECT_FLOAT_EQ(centre.x, -16);
    EXPECT_FLOAT_EQ(centre.y, -16);
}

} // namespace

namespace {

// Where the frame's camera transform puts a world point, in window pixels.
vorlik::vec2 onWindow(const SceneBase::Frame& frame, const vorlik::vec2& world)
{
    return frame.state.transform * world + vorlik::vec2(kWidth / 2.0f, kHeight / 2.0f);
}

TEST_F(SceneBaseTest, TheWindowCentreIsTheCameraPoint)
{
    scene.camera.x = 1000;
    scene.camera.y = 3000;
    EXPECT_EQ(scene.windowToWorld(640, 360), vorlik::vec2(1000, 3000));
}

TEST_F(SceneBaseTest, WindowToWorldUndoesTheCameraUnderZoomAndRotation)
{
    scene.worldWidth = scene.worldHeight = 4096;
    scene.camera.x = 2000;
    scene.camera.y = 1500;
    scene.camera.zoom = 0.9f;
    scene.camera.rotation = 30;
    scene.prepareFrame(frame);
    for (const auto& pixel : {vorlik::vec2(0, 0), vorlik::vec2(1279, 719), vorlik::vec2(900, 100)}) {
        const vorlik::vec2 back = onWindow(frame, scene.windowToWorld(pixel.x, pixel.y));
        EXPECT_NEAR(back.x, pixel.x, 0.01) << pixel.x << ", " << pixel.y;
        EXPECT_NEAR(back.y, pixel.y, 0.01) << pixel.x << ", " << pixel.y;
    }
    // At zoom 0.9 a pixel 90 right of the centre is 100 world units right of the camera.
    scene.camera.rotation = 0;
    EXPECT_NEAR(scene.windowToWorld(640 + 90, 360).x, 2100, 0.01);
}

TEST_F(SceneBaseTest, NearTheSeamTheWorldPointStaysBesideTheCameraAsStored)
{
    // A ship at x 4090 with the camera led past the edge to 4100: the render wraps the camera
    // to 4, but the mouse at the centre still points at 4100, ten units ahead of the ship.
    scene.worldWidth = scene.worldHeight = 4096;
    scene.camera.x = 4100;
    scene.camera.y = 2048;
    const vorlik::vec2 p = scene.windowToWorld(640 + 50, 360);
    EXPECT_FLOAT_EQ(p.x, 4150);
    EXPECT_FLOAT_EQ(p.y, 2048);
    scene.camera.x = -30;
    EXPECT_FLOAT_EQ(scene.windowToWorld(640 - 20, 360).x, -50);
}

TEST_F(SceneBaseTest, AZoomAtOrBelowAHundredthCountsAsAHundredth)
{
    scene.camera.zoom = 0;
    EXPECT_FLOAT_EQ(scene.windowToWorld(641, 360).x, 640 + 100);
}

TEST_F(SceneBaseTest, InAScreenSizedSceneAWindowPixelIsItsOwnPoint)
{
    EXPECT_EQ(scene.windowToWorld(17, 23), vorlik::vec2(17, 23));
}

} // namespace
