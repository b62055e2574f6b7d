// The GLSL programs in the game's shaders directory: every one compiles and links under this
// GL, and each does what its name says.
#include "DisplayTest.h"
#include "PixelProbe.h"
#include "graphics/FullscreenQuad.h"
#include "graphics/Image.h"
#include "graphics/Shader.h"
#include "graphics/ShaderProgram.h"
#include "graphics/Texture.h"
#include "graphics/Color.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <filesystem>
#include <memory>
#include <set>
#include <string>

using vorlik::Color;
using vorlik::Image;
using vorlik::Shader;
using vorlik::ShaderProgram;
using vorlik::Texture;

namespace {
const std::string kShaderDir = std::string(KELVANE_SOURCE_DIR) + "/shaders";
constexpr int kSide = 64; // texels and pixels of the post-processing tests

class ShippedShadersTest : public CleanWindowTest {
protected:
    static std::unique_ptr<ShaderProgram> load(const char* name)
    {
        return std::unique_ptr<ShaderProgram>(ShaderProgram::load(kShaderDir.c_str(), name));
    }

    static GLint compiled(const Shader* stage)
    {
        GLint status = GL_FALSE;
        glGetShaderiv(stage->id, GL_COMPILE_STATUS, &status);
        return status;
    }

    static GLint linked(const ShaderProgram& program)
    {
        GLint status = GL_FALSE;
        glGetProgramiv(program.id, GL_LINK_STATUS, &status);
        return status;
    }

    // Draws texture through program over a kSide x kSide viewport in the window's corner,
    // one pixel per texel, and returns the pixel at (x, y) counted from the bottom.
    static pixelprobe::Rgba pass(ShaderProgram& program, Texture& texture, int x, int y)
    {
        glViewport(0, 0, kSide, kSide);
        texture.bind(GL_TEXTURE0);
        program.bind();
        program.setUniform("texture", 0);
        vorlik::drawFullscreenQuad();
        ShaderProgram::unbind();
        glViewport(0, 0, kWidth, kHeight);
        return pixelprobe::readPixel(x, kHeight - 1 - y, kHeight);
    }
};

std::set<std::string> programNames()
{
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(kShaderDir)) {
        const std::string ext = entry.path().extension().string();
        if (ext == ".vert" || ext == ".frag" || ext == ".geom") names.insert(entry.path().stem().string());
    }
    return names;
}
} // namespace

TEST_F(ShippedShadersTest, TheSevenProgramsOfTheGameAreThere)
{
    const std::set<std::string> names = programNames();
    for (const char* name : {"color_fixed", "texture_fixed", "color", "texture", "color_extract", "hblur", "vblur"}) {
        EXPECT_EQ(names.count(name), 1u) << name;
        EXPECT_TRUE(std::filesystem::exists(kShaderDir + "/" + name + ".vert")) << name;
        EXPECT_TRUE(std::filesystem::exists(kShaderDir + "/" + name + ".frag")) << name;
    }
}

TEST_F(ShippedShadersTest, EveryProgramCompilesAndLinks)
{
    const std::set<std::string> names = programNames();
    ASSERT_FALSE(names.empty());
    for (const std::string& name : names) {
        auto program = load(name.c_str());
        for (const Shader* stage : {program->vertex, program->geometry, program->fragment}) {
            if (stage == nullptr) continue;
            EXPECT_EQ(compiled(stage), GL_TRUE) << name << " stage " << int(stage->type);
        }
        EXPECT_EQ(linked(*program), GL_TRUE) << name;
    }
}

TEST_F(ShippedShadersTest, TexturedFixedProgramNamesItsSamplerTexture)
{
    auto program = load("texture_fixed");
    EXPECT_GE(program->uniform("texture"), 0);
}

TEST_F(ShippedShadersTest, ColorFixedDrawsTheVertexColourThroughTheGlMatrices)
{
    auto program = load("color_fixed");
    program->bind();
    glBegin(GL_QUADS);
    glColor4ub(30, 160, 90, 255);
    glVertex2f(100, 100); glVertex2f(200, 100); glVertex2f(200, 200); glVertex2f(100, 200);
    glEnd();
    ShaderProgram::unbind();
    EXPECT_TRUE(pixelprobe::near(pixelprobe::readPixel(150, 150, kHeight), 30, 160, 90));
    EXPECT_TRUE(pixelprobe::near(pixelprobe::readPixel(250, 150, kHeight), 0, 0, 0));
}

TEST_F(ShippedShadersTest, TextureFixedModulatesUnitZeroByTheVertexColour)
{
    Color::init();
    Image image(2, 2);
    image.replace(0, Color::pack(200, 100, 50, 255));
    Texture texture(&image);
    texture.bind(GL_TEXTURE0);
    auto program = load("texture_fixed");
    program->bind();
    program->setUniform("texture", 0);
    glBegin(GL_QUADS);
    glColor4ub(128, 255, 255, 255);
    glTexCoord2f(0, 0); glVertex2f(100, 100);
    glTexCoord2f(1, 0); glVertex2f(200, 100);
    glTexCoord2f(1, 1); glVertex2f(200, 200);
    glTexCoord2f(0, 1); glVertex2f(100, 200);
    glEnd();
    ShaderProgram::unbind();
    const pixelprobe::Rgba p = pixelprobe::readPixel(150, 150, kHeight);
    EXPECT_TRUE(pixelprobe::near(p, 100, 100, 50)) << p;
}

TEST_F(ShippedShadersTest, ColorExtractKeepsBrightPixelsAndDarkensDimOnes)
{
    Color::init();
    Image image(kSide, kSide);
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x)
            image.setPixel(x, y, x < kSide / 2 ? Color::pack(255, 255, 255, 255) : Color::pack(60, 60, 60, 255));
    Texture texture(&image);
    auto program = load("color_extract");
    program->bind();
    program->setUniform("threshold", 0.5f);
    EXPECT_TRUE(pixelprobe::near(pass(*program, texture, 10, 10), 255, 255, 255));
    EXPECT_TRUE(pixelprobe::near(pass(*program, texture, 50, 10), 0, 0, 0));
}

TEST_F(ShippedShadersTest, HblurSpreadsAcrossButNotAlong)
{
    Color::init();
    Image image(kSide, kSide);
    for (int y = 0; y < kSide; ++y) image.setPixel(kSide / 2, y, Color::pack(255, 255, 255, 255));
    Texture texture(&image);
    auto program = load("hblur");
    program->bind();
    program->setUniform("texelWidth", 1.0f / kSide);
    const pixelprobe::Rgba centre = pass(*program, texture, kSide / 2, 20);
    const pixelprobe::Rgba twoAside = pass(*program, texture, kSide / 2 + 2, 20);
    const pixelprobe::Rgba farAside = pass(*program, texture, kSide / 2 + 8, 20);
    EXPECT_NEAR(centre.r, 58, 2);   // 0.227 of the line stays in place
    EXPECT_NEAR(twoAside.r, 31, 2); // 0.122 lands two texels away
    EXPECT_EQ(farAside.r, 0);
}

TEST_F(ShippedShadersTest, VblurSpreadsAlongTheOtherAxis)
{
    Color::init();
    Image image(kSide, kSide);
    for (int y = 0; y < kSide; ++y) image.setPixel(kSide / 2, y, Color::pack(255, 255, 255, 255));
    Texture texture(&image);
    auto program = load("vblur");
    program->bind();
    program->setUniform("texelHeight", 1.0f / kSide);
    EXPECT_NEAR(pass(*program, texture, kSide / 2, 20).r, 255, 2);
    EXPECT_EQ(pass(*program, texture, kSide / 2 + 2, 20).r, 0);
}
