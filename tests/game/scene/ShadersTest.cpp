#include "scene/Shaders.h"

#include "DisplayTest.h"
#include "graphics/ShaderProgram.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <array>
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
