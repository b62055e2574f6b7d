#include "scene/SceneRenderer.h"

#include "SceneOverBlackTest.h"
#include "graphics/ShaderProgram.h"
#include "scene/DirectScene2D.h"
#include "scene/Drawable.h"
#include "scene/SceneState.h"
#include "scene/Shaders.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <gtest/gtest.h>
#include <cstring>
#include <unistd.h>

namespace {

TEST(SceneRendererBlendTest, NormalIsTestedFirstThenAdditiveThenModulate)
{
    const BlendFactors normal = blendFactorsFor(BLEND_NORMAL);
    EXPECT_EQ(normal.source, uint32_t(GL_SRC_ALPHA));
    EXPECT_EQ(normal.destination, uint32_t(GL_ONE_MINUS_SRC_ALPHA));
    const BlendFactors additive = blendFactorsFor(BLEND_ADDITIVE);
    EXPECT_EQ(additive.source, uint32_t(GL_SRC_ALPHA));
    EXPECT_EQ(additive.destination, uint32_t(GL_ONE));
    const BlendFactors modulate = blendFactorsFor(BLEND_MODULATE);
    EXPECT_EQ(modulate.source, uint32_t(GL_SRC_ALPHA));
    EXPECT_EQ(modulate.destination, uint32_t(GL_SRC_COLOR));
    EXPECT_EQ(blendFactorsFor(BLEND_NORMAL | BLEND_ADDITIVE).destination, uint32_t(GL_ONE_MINUS_SRC_ALPHA));
    EXPECT_EQ(blendFactorsFor(BLEND_ADDITIVE | BLEND_MODULATE).destination, uint32_t(GL_ONE));
}

TEST(SceneRendererBlendTest, AnEmptyOrUnknownFieldBlendsAsNormal)
{
    EXPECT_EQ(blendFactorsFor(0).destination, uint32_t(GL_ONE_MINUS_SRC_ALPHA));
    EXPECT_EQ(blendFactorsFor(0x800).destination, uint32_t(GL_ONE_MINUS_SRC_ALPHA));
}

// A leaf that reads back the GL state the renderer set up for it.
class StateProbe : public Drawable {
public:
    void draw(const SceneState&) override
    {
        glGetIntegerv(GL_CURRENT_PROGRAM, &program);
        glGetIntegerv(GL_BLEND_SRC, &blendSource);
        glGetIntegerv(GL_BLEND_DST, &blendDestination);
        glGetFloatv(GL_PROJECTION_MATRIX, projection);
        glGetFloatv(GL_MODELVIEW_MATRIX, modelView);
        textureArray = glIsEnabled(GL_TEXTURE_COORD_ARRAY);
        normalArray = glIsEnabled(GL_NORMAL_ARRAY);
        blending = glIsEnabled(GL_BLEND);
        depthTest = glIsEnabled(GL_DEPTH_TEST);
        sampler = -1;
        glGetUniformiv(static_cast<GLuint>(program), glGetUniformLocation(static_cast<GLuint>(program), "texture"), &sampler);
        // The default arrays, copied while the renderer's pointers are still in force.
        GLvoid* colorArray = nullptr;
        GLvoid* texCoordArray = nullptr;
        glGetPointerv(GL_COLOR_ARRAY_POINTER, &colorArray);
        glGetPointerv(GL_TEXTURE_COORD_ARRAY_POINTER, &texCoordArray);
        glGetIntegerv(GL_COLOR_ARRAY_SIZE, &colorSize);
        glGetIntegerv(GL_COLOR_ARRAY_TYPE, &colorType);
        glGetIntegerv(GL_TEXTURE_COORD_ARRAY_SIZE, &texCoordSize);
        glGetIntegerv(GL_TEXTURE_COORD_ARRAY_TYPE, &texCoordType);
        std::memcpy(colors, colorArray, sizeof(colors));
        std::memcpy(texCoords, texCoordArray, sizeof(texCoords));
    }
    GLint program = 0, blendSource = 0, blendDestination = 0, sampler = -1;
    GLfloat projection[16] = {}, modelView[16] = {};
    GLboolean textureArray = GL_FALSE, normalArray = GL_TRUE, blending = GL_FALSE, depthTest = GL_TRUE;
    GLint colorSize = 0, colorType = 0, texCoordSize = 0, texCoordType = 0;
    GLubyte colors[16] = {};
    GLfloat texCoords[8] = {};
};

// The HUD scene over black, with GL state that a frame must change before its first node.
class SceneRendererTest : public SceneOverBlackTest<DirectScene2D> {
protected:
    void SetUp() override
    {
        SceneOverBlackTest::SetUp();
        if (IsSkipped()) return;
        hud = scene;
        glEnable(GL_DEPTH_TEST);
        glEnableClientState(GL_NORMAL_ARRAY);
        glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    }

    DirectScene2D* hud = nullptr;
};

TEST_F(SceneRendererTest, NodeIsDrawnUnderTheTexturedProgramWithItsBlendAndMatrices)
{
    StateProbe probe;
    probe.position = vorlik::vec3(100, 50, 0);
    probe.setBlendMode(BLEND_ADDITIVE);
    hud->add(&probe);
    hud->render();

    EXPECT_EQ(GLuint(probe.program), Shaders::texture_shader_fixed->id);
    EXPECT_EQ(probe.sampler, 0);
    EXPECT_EQ(probe.blendSource, GL_SRC_ALPHA);
    EXPECT_EQ(probe.blendDestination, GL_ONE);
    EXPECT_TRUE(probe.textureArray);
    EXPECT_FALSE(probe.normalArray);
    EXPECT_TRUE(probe.blending);
    EXPECT_FALSE(probe.depthTest);
    // Model-view: the HUD camera (-640, -360) then the node's own position.
    EXPECT_FLOAT_EQ(probe.modelView[12], 100 - 640);
    EXPECT_FLOAT_EQ(probe.modelView[13], 50 - 360);
    // Orthographic, one unit a pixel, y down.
    EXPECT_FLOAT_EQ(probe.projection[0], 2.0f / 1280);
    EXPECT_FLOAT_EQ(probe.projection[5], -2.0f / 720);
}

TEST_F(SceneRendererTest, PerspectiveNodeGetsTheFrustumAndTheCameraModelView)
{
    StateProbe probe;
    probe.position = vorlik::vec3(100, 50, 0);
    probe.flags |= DRAW_PERSPECTIVE;
    hud->add(&probe);
    hud->render();

    EXPECT_FLOAT_EQ(probe.modelView[12], -640);
    EXPECT_FLOAT_EQ(probe.modelView[13], -360);
    EXPECT_FLOAT_EQ(probe.modelView[14], -2);
    EXPECT_FLOAT_EQ(probe.projection[11], -1);
    EXPECT_FLOAT_EQ(probe.projection[0], 2.0f / 640);
}

TEST_F(SceneRendererTest, NodeDrawStartsWithOpaqueWhiteColoursAndTheUnitSquare)
{
    StateProbe probe;
    probe.position = vorlik::vec3(100, 50, 0);
    hud->add(&probe);
    hud->render();

    EXPECT_EQ(probe.colorSize, 4);
    EXPECT_EQ(probe.colorType, GL_UNSIGNED_BYTE);
    for (GLubyte channel : probe.colors) EXPECT_EQ(channel, 255);
    EXPECT_EQ(probe.texCoordSize, 2);
    EXPECT_EQ(probe.texCoordType, GL_FLOAT);
    const GLfloat unitSquare[8] = {0, 0, 1, 0, 1, 1, 0, 1};
    for (int i = 0; i < 8; ++i) EXPECT_EQ(probe.texCoords[i], unitSquare[i]) << "coordinate " << i;
}

TEST_F(SceneRendererTest, ModulatedNodeBlendsWithTheSourceColour)
{
    StateProbe probe;
    probe.position = vorlik::vec3(100, 50, 0);
    probe.setBlendMode(BLEND_MODULATE);
    hud->add(&probe);
    hud->render();

    EXPECT_EQ(probe.blendSource, GL_SRC_ALPHA);
    EXPECT_EQ(probe.blendDestination, GL_SRC_COLOR);
}

} // namespace
