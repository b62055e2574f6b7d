// Every uniform setter of ShaderProgram uploads its value with the matching GL call, read
// back through glGetUniform.
#include "graphics/ShaderProgram.h"

#include "DisplayTest.h"
#include "graphics/Shader.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <vector>

using vorlik::mat2;
using vorlik::mat4;
using vorlik::Shader;
using vorlik::ShaderProgram;
using vorlik::vec2;
using vorlik::vec3;
using vorlik::vec4;

namespace {
class UniformSetterTest : public DisplayTest {
protected:
    void SetUp() override
    {
        DisplayTest::SetUp();
        if (IsSkipped()) return;
        fragment = new Shader(Shader::kFragment,
            "#version 120\n"
            "uniform int i1; uniform float f1; uniform vec2 v2; uniform vec3 v3; uniform vec4 v4;\n"
            "uniform mat3x2 m32; uniform mat4 m4;\n"
            "uniform int ia[3]; uniform float fa[3]; uniform vec2 v2a[2]; uniform vec3 v3a[2];\n"
            "uniform vec4 v4a[2]; uniform mat3x2 m32a[2]; uniform mat4 m4a[2];\n"
            "void main() {\n"
            "  float s = float(i1) + f1 + v2.x + v3.x + v4.x + m32[0][0] + m4[0][0];\n"
            "  s += float(ia[0] + ia[1] + ia[2]) + fa[0] + fa[1] + fa[2];\n"
            "  s += v2a[0].x + v2a[1].x + v3a[0].x + v3a[1].x + v4a[0].x + v4a[1].x;\n"
            "  s += m32a[0][0][0] + m32a[1][0][0] + m4a[0][0][0] + m4a[1][0][0];\n"
            "  gl_FragColor = vec4(s);\n"
            "}\n", 0);
        program = new ShaderProgram();
        program->attach(fragment);
        program->link();
        GLint linked = GL_FALSE;
        glGetProgramiv(program->id, GL_LINK_STATUS, &linked);
        ASSERT_EQ(linked, GL_TRUE);
        program->bind();
    }

    void TearDown() override
    {
        if (IsSkipped()) return;
        ShaderProgram::unbind();
        delete program;
        delete fragment;
    }

    std::vector<float> floats(const char* name, int n) const
    {
        std::vector<float> out(16, -999.0f);
        glGetUniformfv(program->id, program->uniform(name), out.data());
        out.resize(n);
        return out;
    }

    int integer(const char* name) const
    {
        GLint v = -999;
        glGetUniformiv(program->id, program->uniform(name), &v);
        return v;
    }

    Shader* fragment = nullptr;
    ShaderProgram* program = nullptr;
};
} // namespace

TEST_F(UniformSetterTest, SingleIntAndFloat)
{
    program->setUniform("i1", 7);
    program->setUniform("f1", 2.5f);
    EXPECT_EQ(integer("i1"), 7);
    EXPECT_EQ(floats("f1", 1), std::vector<float>({2.5f}));
}

TEST_F(UniformSetterTest, SingleVectors)
{
    program->setUniform("v2", vec2(1, 2));
    program->setUniform("v3", vec3(3, 4, 5));
    program->setUniform("v4", vec4(6, 7, 8, 9));
    EXPECT_EQ(floats("v2", 2), std::vector<float>({1, 2}));
    EXPECT_EQ(floats("v3", 3), std::vector<float>({3, 4, 5}));
    EXPECT_EQ(floats("v4", 4), std::vector<float>({6, 7, 8, 9}));
}

TEST_F(UniformSetterTest, Matrix3x2TakesTheSixFloatsInOrder)
{
    program->setUniform("m32", mat2(1, 2, 3, 4, 5, 6));
    EXPECT_EQ(floats("m32", 6), std::vector<float>({1, 2, 3, 4, 5, 6}));
}

TEST_F(UniformSetterTest, Matrix4IsColumnMajorNotTransposed)
{
    mat4 m;
    for (int i = 0; i < 16; ++i) m.m[i] = static_cast<float>(i + 1);
    program->setUniform("m4", m);
    EXPECT_EQ(floats("m4", 16), std::vector<float>(m.m, m.m + 16));
}

TEST_F(UniformSetterTest, ArraysOfIntsAndFloats)
{
    const int32_t ints[3] = {4, 5, 6};
    const float values[3] = {0.5f, 1.5f, 2.5f};
    program->setUniform("ia", ints, 3);
    program->setUniform("fa", values, 3);
    EXPECT_EQ(integer("ia[2]"), 6);
    EXPECT_EQ(integer("ia[0]"), 4);
    EXPECT_EQ(floats("fa[1]", 1), std::vector<float>({1.5f}));
    EXPECT_EQ(floats("fa[2]", 1), std::vector<float>({2.5f}));
}

TEST_F(UniformSetterTest, ArraysOfVectors)
{
    const vec2 twos[2] = {vec2(1, 2), vec2(3, 4)};
    const vec3 threes[2] = {vec3(1, 2, 3), vec3(4, 5, 6)};
    const vec4 fours[2] = {vec4(1, 2, 3, 4), vec4(5, 6, 7, 8)};
    program->setUniform("v2a", twos, 2);
    program->setUniform("v3a", threes, 2);
    program->setUniform("v4a", fours, 2);
    EXPECT_EQ(floats("v2a[1]", 2), std::vector<float>({3, 4}));
    EXPECT_EQ(floats("v3a[1]", 3), std::vector<float>({4, 5, 6}));
    EXPECT_EQ(floats("v4a[1]", 4), std::vector<float>({5, 6, 7, 8}));
}

TEST_F(UniformSetterTest, ArraysOfMatrices)
{
    const mat2 pair[2] = {mat2(1, 2, 3, 4, 5, 6), mat2(7, 8, 9, 10, 11, 12)};
    mat4 quads[2];
    quads[1].m[0] = 42.0f;
    program->setUniform("m32a", pair, 2);
    program->setUniform("m4a", quads, 2);
    EXPECT_EQ(floats("m32a[1]", 6), std::vector<float>({7, 8, 9, 10, 11, 12}));
    EXPECT_EQ(floats("m4a[1]", 1), std::vector<float>({42.0f}));
    const mat4 identity;
    EXPECT_EQ(floats("m4a[0]", 16), std::vector<float>(identity.m, identity.m + 16));
}
