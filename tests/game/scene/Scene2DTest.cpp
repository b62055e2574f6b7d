#include "scene/Scene2D.h"

#include "SceneOverBlackTest.h"
#include "SceneGLNodes.h"
#include "graphics/FrameBuffer.h"
#include "graphics/ShaderProgram.h"
#include "graphics/Texture.h"
#include "scene/Group.h"
#include "scene/Shaders.h"

#include <gtest/gtest.h>

namespace {

constexpr float kWorld = 4096.0f;

// The world scene over black, with the game's 4096 x 4096 world.
class Scene2DTest : public SceneOverBlackTest<Scene2D> {
protected:
    void SetUp() override
    {
        SceneOverBlackTest::SetUp();
        if (IsSkipped()) return;
        world = scene;
        world->worldWidth = world->worldHeight = kWorld;
    }

    Scene2D* world = nullptr;
};

GLint programInUse()
{
    GLint program = -1;
    glGetIntegerv(GL_CURRENT_PROGRAM, &program);
    return program;
}

TEST_F(Scene2DTest, TargetHasTheWindowSizeWithFourColoursAndDepth)
{
    ASSERT_NE(world->target, nullptr);
    EXPECT_EQ(world->width, kWidth);
    EXPECT_EQ(world->height, kHeight);
    EXPECT_EQ(world->target->width, uint32_t(kWidth));
    EXPECT_EQ(world->target->height, uint32_t(kHeight));
    for (int i = 0; i < 4; ++i) {
        EXPECT_NE(world->target->color[i], nullptr);
        EXPECT_EQ(world->textures[i], world->target->color[i]);
    }
    EXPECT_NE(world->target->depth, nullptr);
    EXPECT_EQ(world->camera.x, 640);
    EXPECT_EQ(world->camera.y, 360);
}

TEST_F(Scene2DTest, NodeLandsWhereTheCameraTransformPutsIt)
{
    world->camera.x = 2048;
    world->camera.y = 2048;
    SolidQuad quad(20, 20);
    quad.color = ByteColor{255, 0, 0, 255};
    quad.position = vorlik::vec3(2048 + 100, 2048 + 50, 0);
    world->add(&quad);
    world->render();

    const WindowPixels pixels(kWidth, kHeight);
    const Pixel centre = pixels.at(740, 410);
    EXPECT_GT(centre.r, 200);
    EXPECT_LT(centre.g, 40);
    const LitArea lit = pixels.lit();
    EXPECT_EQ(lit.left, 730);
    EXPECT_EQ(lit.top, 400);
    EXPECT_EQ(lit.right, 749);
    EXPECT_EQ(lit.bottom, 419);
}

TEST_F(Scene2DTest, ZoomAndTurnOfTheCameraMoveTheNode)
{
    world->camera.x = 2048;
    world->camera.y = 2048;
    world->camera.zoom = 2;
    world->camera.rotation = 90;
    SolidQuad quad(10, 10);
    quad.position = vorlik::vec3(2048 + 50, 2048, 0); // 50 right of the camera
    world->add(&quad);
    world->render();

    // Doubled to 100 and turned a quarter: straight above the centre on screen.
    const LitArea lit = WindowPixels(kWidth, kHeight).lit();
    EXPECT_NEAR((lit.left + lit.right) / 2.0, 640, 1.0);
    EXPECT_NEAR((lit.top + lit.bottom) / 2.0, 360 - 100, 1.0);
    EXPECT_NEAR(lit.right - lit.left + 1, 20, 1.0);
}

TEST_F(Scene2DTest, ObjectNearTheFarCornerIsDrawnOnceUpAndLeftOfTheCentre)
{
    world->camera.x = 10;
    world->camera.y = 10;
    SolidQuad object(8, 8);
    object.color = ByteColor{0, 255, 0, 255};
    object.position = vorlik::vec3(4090, 4090, 0);
    world->add(&object);
    world->render();

    EXPECT_EQ(object.draws, 1);
    const LitArea lit = WindowPixels(kWidth, kHeight).lit();
    EXPECT_EQ(lit.count, 64);
    EXPECT_EQ(lit.left, 640 - 16 - 4);
    EXPECT_EQ(lit.top, 360 - 16 - 4);
    EXPECT_EQ(lit.right, 640 - 16 + 3);
    EXPECT_EQ(lit.bottom, 360 - 16 + 3);
}

TEST_F(Scene2DTest, PerspectiveNodeIsDrawnOneUnitPerPixelThroughTheCamera)
{
    world->camera.x = 2048;
    world->camera.y = 2048;
    SolidQuad flat(20, 20);
    flat.flags |= DRAW_PERSPECTIVE;
    // Drawn in world coordinates: the camera model-view replaces the node's own transform.
    flat.anchor = vorlik::vec3(2048 - 200, 2048 + 100, 0);
    world->add(&flat);
    world->render();

    const LitArea lit = WindowPixels(kWidth, kHeight).lit();
    EXPECT_NEAR(lit.left, 640 - 200 - 10, 1);
    EXPECT_NEAR(lit.top, 360 + 100 - 10, 1);
    EXPECT_NEAR(lit.right - lit.left + 1, 20, 1);
}

TEST_F(Scene2DTest, AdditiveNodeAddsToWhatIsBelow)
{
    world->camera.x = 2048;
    world->camera.y = 2048;
    SolidQuad below(40, 40), glow(40, 40);
    below.color = ByteColor{100, 0, 0, 255};
    glow.color = ByteColor{100, 0, 0, 255};
    below.position = glow.position = vorlik::vec3(2048, 2048, 0);
    glow.setBlendMode(BLEND_ADDITIVE);
    world->add(&below);
    world->add(&glow);
    world->render();

    EXPECT_NEAR(WindowPixels(kWidth, kHeight).at(640, 360).r, 200, 3);
}

TEST_F(Scene2DTest, WorldOutlineIsDrawnWhenDebugBoundsIsOn)
{
    world->debugBounds = true;
    world->camera.x = 100;
    world->camera.y = 100;
    // The composite runs under the program the last draw left bound: a textured node, as in
    // the game, rather than the outline's colour program.
    SolidQuad dark(2, 2);
    dark.color = ByteColor{0, 0, 0, 255};
    dark.position = vorlik::vec3(100, 100, 0);
    world->add(&dark);
    world->render();

    // The world's top edge runs along y = 0, 100 pixels above the centre row.
    const WindowPixels pixels(kWidth, kHeight);
    EXPECT_GT(pixels.at(800, 260).r, 60);
    EXPECT_LT(pixels.at(800, 250).r, 40);
    EXPECT_LT(pixels.at(800, 300).r, 40);
}

TEST_F(Scene2DTest, EachRenderStartsFromAClearedTarget)
{
    world->camera.x = 2048;
    world->camera.y = 2048;
    SolidQuad quad(20, 20);
    quad.position = vorlik::vec3(2048 - 200, 2048, 0);
    world->add(&quad);
    world->render();
    quad.position = vorlik::vec3(2048 + 200, 2048, 0);
    glClear(GL_COLOR_BUFFER_BIT);
    world->render();

    // Only the second place shows: the first frame's picture is gone from the target.
    const LitArea lit = WindowPixels(kWidth, kHeight).lit();
    EXPECT_EQ(lit.count, 400);
    EXPECT_EQ(lit.left, 640 + 200 - 10);
}

TEST_F(Scene2DTest, EmptyWorldCompositesUnderTheProgramLeftInUseByTheLastDraw)
{
    // During the fade into the game the world is empty and the fader drew last: its colour
    // program paints the composite's quad in its opaque white vertex colour.
    glClearColor(0, 0, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glClearColor(0, 0, 0, 1);
    Shaders::useColor();
    const GLint colorProgram = programInUse();
    world->render();

    EXPECT_EQ(programInUse(), colorProgram);
    const WindowPixels pixels(kWidth, kHeight);
    for (int x : {0, 640, 1279}) {
        EXPECT_GT(pixels.at(x, 360).r, 245) << "x " << x;
        EXPECT_GT(pixels.at(x, 360).g, 245) << "x " << x;
        EXPECT_GT(pixels.at(x, 360).b, 245) << "x " << x;
    }
}

TEST_F(Scene2DTest, EmptyWorldUnderTheTexturedProgramCompositesItsClearedTarget)
{
    glClearColor(0, 0, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glClearColor(0, 0, 0, 1);
    Shaders::useTextured(); // as a title text leaves it
    world->render();

    const WindowPixels pixels(kWidth, kHeight);
    for (int x : {0, 640, 1279}) {
        EXPECT_LT(pixels.at(x, 360).r, 10) << "x " << x;
        EXPECT_LT(pixels.at(x, 360).b, 10) << "x " << x;
    }
}

TEST_F(Scene2DTest, CompositeOfANonEmptyWorldRunsUnderTheTexturedProgramItsNodesLeft)
{
    world->camera.x = world->camera.y = 2048;
    SolidQuad quad(20, 20);
    quad.position = vorlik::vec3(2048, 2048, 0);
    world->add(&quad);
    Shaders::useColor();
    world->render();
    EXPECT_EQ(programInUse(), static_cast<GLint>(Shaders::texture_shader_fixed->id));
    const WindowPixels pixels(kWidth, kHeight);
    EXPECT_LT(pixels.at(100, 100).r, 10); // the cleared target, not the quad's white
    EXPECT_GT(pixels.at(640, 360).r, 200);
}

TEST_F(Scene2DTest, CompositeBlendsNormallyWhateverTheLastNodeUsed)
{
    // The window holds blue; the target is cleared to opaque black around one additive node.
    glClearColor(0, 0, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT);
    glClearColor(0, 0, 0, 1);
    world->camera.x = 2048;
    world->camera.y = 2048;
    SolidQuad glow(20, 20);
    glow.color = ByteColor{255, 0, 0, 255};
    glow.position = vorlik::vec3(2048, 2048, 0);
    glow.setBlendMode(BLEND_ADDITIVE);
    world->add(&glow);
    world->render();

    // The opaque target covers the blue: an additive composite would have kept it.
    const WindowPixels pixels(kWidth, kHeight);
    EXPECT_LT(pixels.at(100, 100).b, 40);
    EXPECT_GT(pixels.at(640, 360).r, 200);
    EXPECT_LT(pixels.at(640, 360).b, 40);
}

TEST_F(Scene2DTest, RenderAllocatesNothingOnceItsListsHaveGrown)
{
    std::vector<Group> groups(200);
    std::vector<SolidQuad> quads(200);
    Container* parent = world;
    for (size_t i = 0; i < groups.size(); ++i) {
        parent->add(&groups[i]);
        parent->add(&quads[i]);
        parent = &groups[i];
    }
    world->render();
    const SceneScratch& lists = world->scratch;
    const ViewRect* views = lists.views.data;
    const SceneState* states = lists.states.data;
    Drawable* const* siblings = lists.siblings.data;
    const uint32_t capacities[3] = {lists.views.capacity, lists.states.capacity, lists.siblings.capacity};
    EXPECT_GE(capacities[1], 200u);
    // Around the world's corners, so the view list changes while the tree stays on view.
    const float corners[5][2] = {{10, 10}, {4090, 10}, {4090, 4090}, {10, 4090}, {2048, 2048}};
    for (const auto& at : corners) {
        world->camera.x = at[0];
        world->camera.y = at[1];
        world->render();
    }
    EXPECT_EQ(lists.views.data, views);
    EXPECT_EQ(lists.states.data, states);
    EXPECT_EQ(lists.siblings.data, siblings);
    EXPECT_EQ(lists.views.capacity, capacities[0]);
    EXPECT_EQ(lists.states.capacity, capacities[1]);
    EXPECT_EQ(lists.siblings.capacity, capacities[2]);
    EXPECT_EQ(quads[199].draws, 5);
}

} // namespace
