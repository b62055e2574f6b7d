#include "scene/Shaders.h"

#include "DisplayTest.h"
#include "graphics/Shader.h"
#include "graphics/ShaderProgram.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <array>
#include <fstream>
#include <sstream>
#include <string>
#include <unistd.h>

using vorlik::ShaderProgram;

namespace {
class ShadersTest : public DisplayTest {
protected:
    // Runs setupShaders from the source tree, whose "shaders" directory holds the programs.
    static void setupFromSourceTree()
    {
        char previous[4096];
        ASSERT_NE(getcwd(previous, sizeof previous), nullptr);
        ASSERT_EQ(chdir(KELVANE_SOURCE_DIR), 0);
        Shaders::setupShaders();
        ASSERT_EQ(chdir(previous), 0);
    }

    using Programs = std::array<ShaderProgram*, 7>;

    static std::string sourceOf(GLuint shader)
    {
        GLint length = 0;
        glGetShaderiv(shader, GL_SHADER_SOURCE_LENGTH, &length);
        std::string text(static_cast<size_t>(length), '\0');
        GLsizei got = 0;
        glGetShaderSource(shader, length, &got, text.data());
        text.resize(static_cast<size_t>(got));
        return text;
    }

    static std::string fileText(const std::string& path)
    {
        std::ifstream file(path);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }

    // The globals in loading order.
    static Programs all()
    {
        return {Shaders::color_shader_fixed, Shaders::texture_shader_fixed, Shaders::color_shader,
                Shaders::texture_shader, Shaders::color_extract_shader, Shaders::hblur_shader,
                Shaders::vblur_shader};
    }
};
} // namespace

TEST_F(ShadersTest, SetupLoadsTheSevenProgramsFromTheShadersDirectory)
{
    if (Shaders::color_shader_fixed != nullptr) GTEST_SKIP() << "shaders were set up earlier in this process";
    setupFromSourceTree();
    const Programs programs = all();
    for (int i = 0; i < 7; ++i) {
        ASSERT_NE(programs[i], nullptr) << i;
        EXPECT_NE(programs[i]->vertex, nullptr) << i;   // read from its file, not the default
        EXPECT_NE(programs[i]->fragment, nullptr) << i;
        GLint linked = GL_FALSE;
        glGetProgramiv(programs[i]->id, GL_LINK_STATUS, &linked);
        EXPECT_EQ(linked, GL_TRUE) << i;
    }
    EXPECT_GE(Shaders::texture_shader_fixed->uniform("texture"), 0);
}

TEST_F(ShadersTest, LaterCallsChangeNothing)
{
    setupFromSourceTree();
    const Programs before = all();
    setupFromSourceTree();
    const Programs after = all();
    for (int i = 0; i < 7; ++i) {
        EXPECT_NE(before[i], nullptr) << i;
        EXPECT_EQ(after[i], before[i]) << i;
    }
}

TEST_F(ShadersTest, EveryProgramIsADistinctObject)
{
    setupFromSourceTree();
    const Programs programs = all();
    for (int i = 0; i < 7; ++i)
        for (int j = i + 1; j < 7; ++j) EXPECT_NE(programs[i], programs[j]) << i << " " << j;
}

TEST_F(ShadersTest, EachGlobalHoldsTheProgramReadFromTheFilesOfItsName)
{
    setupFromSourceTree();
    const char* const names[7] = {"color_fixed", "texture_fixed", "color", "texture",
                                  "color_extract", "hblur", "vblur"};
    const Programs programs = all();
    for (int i = 0; i < 7; ++i) {
        const std::string base = std::string(KELVANE_SOURCE_DIR) + "/shaders/" + names[i];
        ASSERT_NE(programs[i]->vertex, nullptr) << names[i];
        ASSERT_NE(programs[i]->fragment, nullptr) << names[i];
        EXPECT_EQ(sourceOf(programs[i]->vertex->id), fileText(base + ".vert")) << names[i];
        EXPECT_EQ(sourceOf(programs[i]->fragment->id), fileText(base + ".frag")) << names[i];
    }
}

namespace {
GLint currentProgram()
{
    GLint program = -1;
    glGetIntegerv(GL_CURRENT_PROGRAM, &program);
    return program;
}
} // namespace

TEST_F(ShadersTest, UseTexturedMakesTheTexturedProgramCurrentWithItsSamplerOnUnitZero)
{
    setupFromSourceTree();
    Shaders::texture_shader_fixed->bind();
    Shaders::texture_shader_fixed->setUniform("texture", 3);
    ShaderProgram::unbind();
    Shaders::useTextured();
    EXPECT_EQ(currentProgram(), static_cast<GLint>(Shaders::texture_shader_fixed->id));
    GLint unit = -1;
    glGetUniformiv(Shaders::texture_shader_fixed->id, Shaders::texture_shader_fixed->uniform("texture"), &unit);
    EXPECT_EQ(unit, 0);
}

TEST_F(ShadersTest, UseColorMakesTheColourProgramCurrent)
{
    setupFromSourceTree();
    ShaderProgram::unbind();
    Shaders::useColor();
    EXPECT_EQ(currentProgram(), static_cast<GLint>(Shaders::color_shader_fixed->id));
}

TEST_F(ShadersTest, WithoutLoadedProgramsBothFallBackToTheFixedFunctionPipeline)
{
    setupFromSourceTree();
    ShaderProgram* const textured = Shaders::texture_shader_fixed;
    ShaderProgram* const colored = Shaders::color_shader_fixed;
    Shaders::texture_shader_fixed = nullptr;
    Shaders::color_shader_fixed = nullptr;
    textured->bind();
    Shaders::useTextured();
    EXPECT_EQ(currentProgram(), 0);
    colored->bind();
    Shaders::useColor();
    EXPECT_EQ(currentProgram(), 0);
    Shaders::texture_shader_fixed = textured;
    Shaders::color_shader_fixed = colored;
}
