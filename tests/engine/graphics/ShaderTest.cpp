#include "graphics/Shader.h"

#include "DisplayTest.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <string>

using vorlik::Shader;

namespace {
class ShaderTest : public DisplayTest {};

GLint compileStatus(GLuint id)
{
    GLint status = -1;
    glGetShaderiv(id, GL_COMPILE_STATUS, &status);
    return status;
}

GLint shaderType(GLuint id)
{
    GLint type = -1;
    glGetShaderiv(id, GL_SHADER_TYPE, &type);
    return type;
}

const char* const kVertexSource = "#version 120\nvoid main() { gl_Position = ftransform(); }\n";
const char* const kFragmentSource = "#version 120\nvoid main() { gl_FragColor = vec4(1.0); }\n";
const char* const kGeometrySource =
    "#version 150 compatibility\n"
    "layout(triangles) in;\n"
    "layout(triangle_strip, max_vertices = 3) out;\n"
    "void main() {\n"
    "  for (int i = 0; i < 3; ++i) { gl_Position = gl_in[i].gl_Position; EmitVertex(); }\n"
    "  EndPrimitive();\n"
    "}\n";
} // namespace

TEST(ShaderTypes, StageTypesMapToGlShaderTypes)
{
    EXPECT_EQ(Shader::glType(1), static_cast<uint32_t>(GL_VERTEX_SHADER));
    EXPECT_EQ(Shader::glType(2), static_cast<uint32_t>(GL_FRAGMENT_SHADER));
    EXPECT_EQ(Shader::glType(4), 0x8DD9u);
    EXPECT_EQ(Shader::glType(0), 0u);
    EXPECT_EQ(Shader::glType(3), 0u);
    EXPECT_EQ(Shader::glType(8), 0u);
}

TEST_F(ShaderTest, VertexStageCompiles)
{
    Shader shader(Shader::kVertex, kVertexSource, 0);
    EXPECT_EQ(shader.type, Shader::kVertex);
    ASSERT_TRUE(glIsShader(shader.id));
    EXPECT_EQ(shaderType(shader.id), GL_VERTEX_SHADER);
    EXPECT_EQ(compileStatus(shader.id), GL_TRUE);
}

TEST_F(ShaderTest, FragmentStageCompiles)
{
    Shader shader(Shader::kFragment, kFragmentSource, 0);
    EXPECT_EQ(shaderType(shader.id), GL_FRAGMENT_SHADER);
    EXPECT_EQ(compileStatus(shader.id), GL_TRUE);
}

TEST_F(ShaderTest, GeometryStageCompiles)
{
    Shader shader(Shader::kGeometry, kGeometrySource, 0);
    EXPECT_EQ(shaderType(shader.id), GL_GEOMETRY_SHADER);
    EXPECT_EQ(compileStatus(shader.id), GL_TRUE);
}

TEST_F(ShaderTest, UnknownTypeCreatesNothing)
{
    Shader shader(3, kVertexSource, 0);
    EXPECT_EQ(shader.id, 0u);
    EXPECT_EQ(shader.type, 3);
}

TEST_F(ShaderTest, ExplicitLengthLimitsTheSource)
{
    const std::string text = std::string(kFragmentSource) + "this tail is not GLSL";
    Shader cut(Shader::kFragment, text.c_str(), static_cast<uint32_t>(std::string(kFragmentSource).size()));
    EXPECT_EQ(compileStatus(cut.id), GL_TRUE);
    Shader whole(Shader::kFragment, text.c_str(), 0);
    EXPECT_EQ(compileStatus(whole.id), GL_FALSE);
}

TEST_F(ShaderTest, BrokenSourceFailsToCompileWithoutCrashing)
{
    Shader shader(Shader::kFragment, "void main() { this is not GLSL }", 0);
    EXPECT_TRUE(glIsShader(shader.id));
    EXPECT_EQ(compileStatus(shader.id), GL_FALSE);
}

TEST_F(ShaderTest, NullSourceCompilesAsEmpty)
{
    Shader shader(Shader::kFragment, nullptr, 0);
    EXPECT_TRUE(glIsShader(shader.id));
}

TEST_F(ShaderTest, DestroyingAShaderDeletesItsGlObject)
{
    auto* shader = new Shader(Shader::kVertex, kVertexSource, 0);
    const GLuint id = shader->id;
    delete shader;
    EXPECT_FALSE(glIsShader(id));
}
