#include "graphics/ShaderProgram.h"

#include "DisplayTest.h"
#include "PixelProbe.h"
#include "graphics/Shader.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <algorithm>
#include <cstdio>
#include <string>
#include <sys/stat.h>
#include <vector>

using vorlik::mat4;
using vorlik::Shader;
using vorlik::ShaderProgram;
using vorlik::vec4;

namespace {
// Read during static initialisation, before any program exists in this process.
Shader* const kDefaultVertexBeforeAnyProgram = ShaderProgram::default_vs;
Shader* const kDefaultFragmentBeforeAnyProgram = ShaderProgram::default_fs;

const char* const kGreenFragment = "#version 120\nvoid main() { gl_FragColor = vec4(0.0, 1.0, 0.0, 1.0); }\n";
const char* const kPassVertex =
    "#version 120\nvoid main() { gl_FrontColor = gl_Color; gl_Position = ftransform(); }\n";

class ShaderProgramTest : public CleanWindowTest {
protected:
    void SetUp() override
    {
        CleanWindowTest::SetUp();
        if (IsSkipped()) return;
        while (glGetError() != GL_NO_ERROR) {}
    }

    // A fresh directory for one test's shader files.
    static std::string directory(const char* name)
    {
        const std::string path = ::testing::TempDir() + "shaders_" + name;
        mkdir(path.c_str(), 0755);
        return path;
    }

    static void writeText(const std::string& path, const std::string& text)
    {
        FILE* file = std::fopen(path.c_str(), "w");
        std::fputs(text.c_str(), file);
        std::fclose(file);
    }

    static GLint linkStatus(const ShaderProgram& program)
    {
        GLint status = -1;
        glGetProgramiv(program.id, GL_LINK_STATUS, &status);
        return status;
    }

    static std::vector<GLuint> attached(const ShaderProgram& program)
    {
        GLuint ids[8] = {};
        GLsizei count = 0;
        glGetAttachedShaders(program.id, 8, &count, ids);
        return std::vector<GLuint>(ids, ids + count);
    }

    static bool has(const std::vector<GLuint>& ids, GLuint id)
    {
        return std::find(ids.begin(), ids.end(), id) != ids.end();
    }

    // A 100 x 100 quad at (10, 10) in the given vertex colour.
    static void drawQuad(GLubyte r, GLubyte g, GLubyte b)
    {
        glBegin(GL_QUADS);
        glColor4ub(r, g, b, 255);
        glVertex2f(10, 10);
        glVertex2f(110, 10);
        glVertex2f(110, 110);
        glVertex2f(10, 110);
        glEnd();
    }

    static pixelprobe::Rgba quadCentre() { return pixelprobe::readPixel(60, 60, kHeight); }
};
} // namespace

TEST_F(ShaderProgramTest, DefaultStagesAreNullUntilTheFirstProgramAndThenCompiled)
{
    EXPECT_EQ(kDefaultVertexBeforeAnyProgram, nullptr);
    EXPECT_EQ(kDefaultFragmentBeforeAnyProgram, nullptr);
    ShaderProgram program;
    ASSERT_NE(ShaderProgram::default_vs, nullptr);
    ASSERT_NE(ShaderProgram::default_fs, nullptr);
    GLint status = 0;
    glGetShaderiv(ShaderProgram::default_vs->id, GL_COMPILE_STATUS, &status);
    EXPECT_EQ(status, GL_TRUE);
    glGetShaderiv(ShaderProgram::default_fs->id, GL_COMPILE_STATUS, &status);
    EXPECT_EQ(status, GL_TRUE);

    Shader* const shared = ShaderProgram::default_vs;
    ShaderProgram second;
    EXPECT_EQ(ShaderProgram::default_vs, shared);
}

TEST_F(ShaderProgramTest, DefaultSourcesAreTheFixedFunctionPassThrough)
{
    ShaderProgram program;
    char text[512] = {};
    glGetShaderSource(ShaderProgram::default_vs->id, sizeof text, nullptr, text);
    EXPECT_STREQ(text, "void main() { gl_TexCoord[0] = gl_MultiTexCoord0; gl_FrontColor = gl_Color; "
                       "gl_BackColor = gl_Color; gl_Position = ftransform(); }");
    glGetShaderSource(ShaderProgram::default_fs->id, sizeof text, nullptr, text);
    EXPECT_STREQ(text, "void main() { gl_FragColor = gl_Color; }");
}

TEST_F(ShaderProgramTest, NewProgramHasEmptySlotsAndAGlProgram)
{
    ShaderProgram program;
    EXPECT_EQ(program.vertex, nullptr);
    EXPECT_EQ(program.fragment, nullptr);
    EXPECT_EQ(program.geometry, nullptr);
    EXPECT_TRUE(glIsProgram(program.id));
}

TEST_F(ShaderProgramTest, AttachRemembersEachStageInTheSlotOfItsType)
{
    Shader vertex(Shader::kVertex, kPassVertex, 0);
    Shader fragment(Shader::kFragment, kGreenFragment, 0);
    Shader unknown(8, kGreenFragment, 0);
    ShaderProgram program;
    program.attach(nullptr);
    program.attach(&unknown);
    EXPECT_EQ(program.vertex, nullptr);
    EXPECT_EQ(program.fragment, nullptr);
    EXPECT_EQ(program.geometry, nullptr);
    program.attach(&vertex);
    program.attach(&fragment);
    EXPECT_EQ(program.vertex, &vertex);
    EXPECT_EQ(program.fragment, &fragment);
    EXPECT_TRUE(has(attached(program), vertex.id));
    EXPECT_TRUE(has(attached(program), fragment.id));
    while (glGetError() != GL_NO_ERROR) {}
}

TEST_F(ShaderProgramTest, LinkFillsMissingStagesWithTheDefaultsInGlOnly)
{
    Shader fragment(Shader::kFragment, kGreenFragment, 0);
    ShaderProgram program;
    program.attach(&fragment);
    program.link();
    EXPECT_EQ(program.vertex, nullptr);
    EXPECT_TRUE(has(attached(program), ShaderProgram::default_vs->id));
    EXPECT_FALSE(has(attached(program), ShaderProgram::default_fs->id));
    EXPECT_EQ(linkStatus(program), GL_TRUE);
}

TEST_F(ShaderProgramTest, DestroyDetachesButLeavesTheCallersStages)
{
    Shader fragment(Shader::kFragment, kGreenFragment, 0);
    auto* program = new ShaderProgram();
    program->attach(&fragment);
    program->link();
    const GLuint id = program->id;
    delete program;
    EXPECT_FALSE(glIsProgram(id));
    EXPECT_TRUE(glIsShader(fragment.id));
    GLint deleteFlag = GL_TRUE;
    glGetShaderiv(fragment.id, GL_DELETE_STATUS, &deleteFlag);
    EXPECT_EQ(deleteFlag, GL_FALSE);
}

TEST_F(ShaderProgramTest, DestroyingALoadedProgramReleasesTheStagesReadForIt)
{
    const std::string dir = directory("released");
    writeText(dir + "/pair.vert", kPassVertex);
    writeText(dir + "/pair.frag", kGreenFragment);
    ShaderProgram* program = ShaderProgram::load(dir.c_str(), "pair");
    ASSERT_NE(program->vertex, nullptr);
    ASSERT_NE(program->fragment, nullptr);
    const GLuint vertexId = program->vertex->id;
    const GLuint fragmentId = program->fragment->id;
    ASSERT_TRUE(glIsShader(vertexId));
    delete program;
    EXPECT_FALSE(glIsShader(vertexId));
    EXPECT_FALSE(glIsShader(fragmentId));
    EXPECT_TRUE(glIsShader(ShaderProgram::default_vs->id));
    EXPECT_TRUE(glIsShader(ShaderProgram::default_fs->id));
}

TEST_F(ShaderProgramTest, BindAndUnbindSwitchTheCurrentProgram)
{
    ShaderProgram program;
    program.link();
    program.bind();
    GLint current = 0;
    glGetIntegerv(GL_CURRENT_PROGRAM, &current);
    EXPECT_EQ(static_cast<GLuint>(current), program.id);
    ShaderProgram::unbind();
    glGetIntegerv(GL_CURRENT_PROGRAM, &current);
    EXPECT_EQ(current, 0);
}

TEST_F(ShaderProgramTest, OnlyAFragFileUsesTheDefaultVertexShader)
{
    const std::string dir = directory("fragonly");
    writeText(dir + "/green.frag", kGreenFragment);
    ShaderProgram* program = ShaderProgram::load(dir.c_str(), "green");
    EXPECT_EQ(program->vertex, nullptr);
    ASSERT_NE(program->fragment, nullptr);
    EXPECT_EQ(program->geometry, nullptr);
    EXPECT_TRUE(has(attached(*program), ShaderProgram::default_vs->id));
    EXPECT_EQ(linkStatus(*program), GL_TRUE);
    program->bind();
    drawQuad(255, 0, 0);
    EXPECT_TRUE(pixelprobe::near(quadCentre(), 0, 255, 0)) << quadCentre();
    ShaderProgram::unbind();
    delete program;
}

TEST_F(ShaderProgramTest, OnlyAVertFileUsesTheDefaultFragmentShaderDrawingPlainVertexColour)
{
    const std::string dir = directory("vertonly");
    writeText(dir + "/pass.vert", kPassVertex);
    ShaderProgram* program = ShaderProgram::load(dir.c_str(), "pass");
    ASSERT_NE(program->vertex, nullptr);
    EXPECT_EQ(program->fragment, nullptr);
    EXPECT_TRUE(has(attached(*program), ShaderProgram::default_fs->id));
    EXPECT_EQ(linkStatus(*program), GL_TRUE);
    program->bind();
    drawQuad(40, 80, 200);
    EXPECT_TRUE(pixelprobe::near(quadCentre(), 40, 80, 200)) << quadCentre();
    ShaderProgram::unbind();
    delete program;
}

TEST_F(ShaderProgramTest, NameWithNoFilesGivesTheDefaultProgramDrawingPlainVertexColour)
{
    ShaderProgram* program = ShaderProgram::load(directory("empty").c_str(), "nothing");
    EXPECT_EQ(program->vertex, nullptr);
    EXPECT_EQ(program->fragment, nullptr);
    EXPECT_EQ(program->geometry, nullptr);
    EXPECT_EQ(linkStatus(*program), GL_TRUE);
    program->bind();
    drawQuad(200, 100, 50);
    EXPECT_TRUE(pixelprobe::near(quadCentre(), 200, 100, 50)) << quadCentre();
    ShaderProgram::unbind();
    delete program;
}

TEST_F(ShaderProgramTest, AllThreeStagesAreReadFromTheirFiles)
{
    const std::string dir = directory("three");
    writeText(dir + "/full.vert", kPassVertex);
    writeText(dir + "/full.geom",
              "#version 150 compatibility\n"
              "layout(triangles) in;\n"
              "layout(triangle_strip, max_vertices = 3) out;\n"
              "void main() {\n"
              "  for (int i = 0; i < 3; ++i) { gl_Position = gl_in[i].gl_Position; EmitVertex(); }\n"
              "  EndPrimitive();\n"
              "}\n");
    writeText(dir + "/full.frag", kGreenFragment);
    ShaderProgram* program = ShaderProgram::load(dir.c_str(), "full");
    ASSERT_NE(program->vertex, nullptr);
    ASSERT_NE(program->geometry, nullptr);
    ASSERT_NE(program->fragment, nullptr);
    EXPECT_EQ(program->vertex->type, Shader::kVertex);
    EXPECT_EQ(program->geometry->type, Shader::kGeometry);
    EXPECT_EQ(program->fragment->type, Shader::kFragment);
    EXPECT_EQ(attached(*program).size(), 3u);
    delete program;
}

TEST_F(ShaderProgramTest, SourceLongerThanTheReservedBufferIsReadWhole)
{
    const std::string dir = directory("long");
    const std::string padding = "// " + std::string(10000, 'x') + "\n";
    writeText(dir + "/long.frag", "#version 120\n" + padding + padding +
                                      "void main() { gl_FragColor = vec4(0.0, 0.0, 1.0, 1.0); }\n");
    ShaderProgram* program = ShaderProgram::load(dir.c_str(), "long");
    ASSERT_NE(program->fragment, nullptr);
    GLint length = 0;
    glGetShaderiv(program->fragment->id, GL_SHADER_SOURCE_LENGTH, &length);
    EXPECT_GT(length, 20000);
    EXPECT_EQ(linkStatus(*program), GL_TRUE);
    program->bind();
    drawQuad(255, 0, 0);
    EXPECT_TRUE(pixelprobe::near(quadCentre(), 0, 0, 255)) << quadCentre();
    ShaderProgram::unbind();
    delete program;
}

TEST_F(ShaderProgramTest, ShaderFileThatDoesNotCompileDoesNotCrash)
{
    const std::string dir = directory("broken");
    writeText(dir + "/broken.frag", "void main() { this will not compile }\n");
    ShaderProgram* program = ShaderProgram::load(dir.c_str(), "broken");
    ASSERT_NE(program, nullptr);
    EXPECT_EQ(linkStatus(*program), GL_FALSE);
    program->bind();
    program->setUniform("anything", 1.0f);
    drawQuad(255, 255, 255);
    ShaderProgram::unbind();
    delete program;
    while (glGetError() != GL_NO_ERROR) {}
}

TEST_F(ShaderProgramTest, UniformNotInTheProgramIsIgnored)
{
    ShaderProgram program;
    program.link();
    program.bind();
    EXPECT_EQ(program.uniform("missing"), -1);
    program.setUniform("missing", 3);
    program.setUniform("missing", 1.5f);
    program.setUniform("missing", vec4(1, 2, 3, 4));
    program.setUniform("missing", mat4());
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    ShaderProgram::unbind();
}

TEST_F(ShaderProgramTest, AttributeGivesTheLocationOrMinusOne)
{
    Shader vertex(Shader::kVertex,
                  "#version 120\nattribute vec4 weight;\n"
                  "void main() { gl_FrontColor = weight; gl_Position = ftransform(); }\n", 0);
    ShaderProgram program;
    program.attach(&vertex);
    program.link();
    EXPECT_GE(program.attribute("weight"), 0);
    EXPECT_EQ(program.attribute("missing"), -1);
}
