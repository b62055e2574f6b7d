// Fixture for pixel tests of scene leaves (Sprite, Text): a window with the scene's GL state
// for one node (pixel projection with y down, texturing and blending on) and the game's
// textured fixed-function program from the source tree in Shaders::texture_shader_fixed.
// Each test draws a node itself, the way the scene's traversal would, and reads the window.
#pragma once

#include "DisplayTest.h"
#include "graphics/ShaderProgram.h"
#include "scene/Drawable.h"
#include "scene/SceneState.h"
#include "scene/Shaders.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <string>

class LeafDrawTest : public CleanWindowTest {
protected:
    void SetUp() override
    {
        CleanWindowTest::SetUp();
        if (IsSkipped()) return;
        static vorlik::ShaderProgram* textured = vorlik::ShaderProgram::load(
            (std::string(KELVANE_SOURCE_DIR) + "/shaders").c_str(), "texture_fixed");
        saved = Shaders::texture_shader_fixed;
        Shaders::texture_shader_fixed = textured;
        glEnable(GL_TEXTURE_2D);
        setBlend(GL_ONE_MINUS_SRC_ALPHA);
    }

    void TearDown() override
    {
        if (IsSkipped()) return;
        Shaders::texture_shader_fixed = saved;
        vorlik::ShaderProgram::unbind();
        glDisable(GL_BLEND);
        glDisable(GL_TEXTURE_2D);
    }

    // Normal blending is (GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA), additive (GL_SRC_ALPHA, GL_ONE).
    static void setBlend(GLenum destination)
    {
        glEnable(GL_BLEND);
        glBlendFunc(GL_SRC_ALPHA, destination);
    }

    static SceneState stateWithColor(uint8_t r, uint8_t g, uint8_t b, uint8_t a)
    {
        SceneState state{};
        state.color = ByteColor{r, g, b, a};
        return state;
    }

    // The node drawn at its position, as the scene's model-view would place it.
    static void drawAt(Drawable& node, const SceneState& state)
    {
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glTranslatef(node.position.x, node.position.y, 0.0f);
        node.draw(state);
        glLoadIdentity();
    }

    static pixelprobe::Rgba at(int x, int y) { return pixelprobe::readPixel(x, y, kHeight); }

    vorlik::ShaderProgram* saved = nullptr;
};
