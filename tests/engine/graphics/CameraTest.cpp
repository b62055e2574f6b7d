#include "graphics/Camera.h"

#include "DisplayTest.h"
#include "math/mat4.h"
#include "math/vec4.h"

#include <GL/gl.h>
#include <gtest/gtest.h>

using vorlik::Camera;
using vorlik::mat4;
using vorlik::vec3;
using vorlik::vec4;

namespace {

void expectNear(const mat4& actual, const mat4& expected, float tolerance = 1e-5f)
{
    for (int i = 0; i < 16; ++i) EXPECT_NEAR(actual.m[i], expected.m[i], tolerance) << "m" << i;
}

mat4 glMatrix(GLenum which)
{
    mat4 m;
    glGetFloatv(which, m.m);
    return m;
}

Camera placed(const vec3& position, const vec3& target)
{
    Camera c;
    c.position = position;
    c.target = target;
    return c;
}

} // namespace

TEST(Camera, DefaultsAreAFortyFiveDegreeViewFromPointOneToOneHundred)
{
    const Camera c;
    EXPECT_EQ(c.fieldOfView, 45.0f);
    EXPECT_EQ(c.nearPlane, 0.1f);
    EXPECT_EQ(c.farPlane, 100.0f);
    EXPECT_EQ(c.up, vec3(0.0f, 1.0f, 0.0f));
}

TEST(Camera, ModeSevenAppliesTheWholeCameraAndModeSixLeavesOutItsPosition)
{
    EXPECT_EQ(Camera::kApplyAll, 7u);
    EXPECT_EQ(Camera::kApplyWithoutTranslation, 6u);
    EXPECT_EQ(Camera::kApplyWithoutTranslation & Camera::kApplyTranslation, 0u);
}

TEST(Camera, ProjectionIsTheFrustumOfItsFieldOfViewAndDepthRange)
{
    Camera c;
    c.fieldOfView = 50.0f;
    expectNear(c.projection(16.0f / 9.0f), mat4::perspective(50.0f, 16.0f / 9.0f, 0.1f, 100.0f));
}

TEST(Camera, WholeCameraIsTheLookAtFromPositionToTarget)
{
    const Camera c = placed(vec3(-25.0f, 9.0f, 3.0f), vec3(0.0f, 2.5f, 1.0f));
    expectNear(c.modelView(Camera::kApplyAll), mat4::lookAt(c.position, c.target, c.up), 1e-4f);
}

TEST(Camera, TargetLandsInTheCentreOfThePicture)
{
    const Camera c = placed(vec3(4.0f, -2.0f, 7.0f), vec3(-1.0f, 3.0f, 0.5f));
    const vec4 clip = c.projection(1.5f) * c.modelView(Camera::kApplyAll) * vec4(c.target.x, c.target.y, c.target.z, 1.0f);
    EXPECT_NEAR(clip.x / clip.w, 0.0f, 1e-5f);
    EXPECT_NEAR(clip.y / clip.w, 0.0f, 1e-5f);
    EXPECT_GT(clip.w, 0.0f); // in front of the eye
}

TEST(Camera, WithoutItsPositionOnlyTheLineOfSightCounts)
{
    // Two cameras looking the same way from far apart turn the world identically, and the
    // origin stays at the eye.
    const Camera near = placed(vec3(0.0f, 0.0f, 0.0f), vec3(1.0f, 0.5f, -2.0f));
    const Camera far = placed(vec3(40.0f, -30.0f, 12.0f), vec3(41.0f, -29.5f, 10.0f));
    const mat4 a = near.modelView(Camera::kApplyRotation);
    expectNear(far.modelView(Camera::kApplyRotation), a);
    const vec4 origin = a * vec4(0.0f, 0.0f, 0.0f, 1.0f);
    EXPECT_NEAR(origin.x, 0.0f, 1e-6f);
    EXPECT_NEAR(origin.y, 0.0f, 1e-6f);
    EXPECT_NEAR(origin.z, 0.0f, 1e-6f);
}

TEST(Camera, TranslationAloneMovesThePositionToTheOrigin)
{
    const Camera c = placed(vec3(3.0f, 4.0f, 5.0f), vec3(0.0f, 0.0f, 0.0f));
    const vec4 eye = c.modelView(Camera::kApplyTranslation) * vec4(3.0f, 4.0f, 5.0f, 1.0f);
    EXPECT_EQ(eye.x, 0.0f);
    EXPECT_EQ(eye.y, 0.0f);
    EXPECT_EQ(eye.z, 0.0f);
    expectNear(c.modelView(0), mat4());
}

using CameraApplyTest = CleanWindowTest;

TEST_F(CameraApplyTest, ModeSevenLoadsTheProjectionForTheViewportAndTheWholeView)
{
    const Camera c = placed(vec3(-25.0f, 9.0f, 0.0f), vec3(0.0f, 2.5f, 1.0f));
    glMatrixMode(GL_PROJECTION);
    c.apply(Camera::kApplyAll);
    GLint mode = 0;
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    EXPECT_EQ(mode, GL_MODELVIEW);
    expectNear(glMatrix(GL_PROJECTION_MATRIX), c.projection(static_cast<float>(kWidth) / kHeight));
    expectNear(glMatrix(GL_MODELVIEW_MATRIX), c.modelView(Camera::kApplyAll), 1e-4f);
}

TEST_F(CameraApplyTest, ModeSixReplacesTheModelViewWithTheTurnAlone)
{
    const Camera c = placed(vec3(-25.0f, 9.0f, 0.0f), vec3(0.0f, 2.5f, 1.0f));
    glMatrixMode(GL_MODELVIEW);
    glTranslatef(100.0f, 0.0f, 0.0f);
    c.apply(Camera::kApplyWithoutTranslation);
    expectNear(glMatrix(GL_MODELVIEW_MATRIX), c.modelView(Camera::kApplyRotation));
}

TEST_F(CameraApplyTest, ProjectionAloneLeavesTheModelViewAsItWas)
{
    glMatrixMode(GL_MODELVIEW);
    glTranslatef(1.0f, 2.0f, 3.0f);
    const mat4 before = glMatrix(GL_MODELVIEW_MATRIX);
    Camera().apply(Camera::kApplyProjection);
    expectNear(glMatrix(GL_MODELVIEW_MATRIX), before);
}
