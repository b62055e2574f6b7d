#include "graphics/Texture.h"

#include "DisplayTest.h"
#include "graphics/Color.h"
#include "graphics/Image.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <cstddef>
#include <vector>

using vorlik::Color;
using vorlik::Image;
using vorlik::Texture;

namespace {
class TextureTest : public DisplayTest {};

GLint levelParameter(GLenum target, GLenum name)
{
    GLint value = -1;
    glGetTexLevelParameteriv(target, 0, name, &value);
    return value;
}

GLint parameter(GLenum target, GLenum name)
{
    GLint value = -1;
    glGetTexParameteriv(target, name, &value);
    return value;
}

std::vector<uint32_t> texels(const Texture& texture)
{
    std::vector<uint32_t> out(static_cast<size_t>(texture.width) * texture.height);
    glBindTexture(GL_TEXTURE_2D, texture.id);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, out.data());
    return out;
}
} // namespace

TEST(TextureLayout, FieldsAreInTheDocumentedOrder)
{
    EXPECT_LT(offsetof(Texture, unit), offsetof(Texture, id));
    EXPECT_LT(offsetof(Texture, id), offsetof(Texture, uScale));
    EXPECT_LT(offsetof(Texture, uScale), offsetof(Texture, vScale));
    EXPECT_LT(offsetof(Texture, vScale), offsetof(Texture, width));
    EXPECT_LT(offsetof(Texture, width), offsetof(Texture, height));
    EXPECT_LT(offsetof(Texture, height), offsetof(Texture, depth));
    EXPECT_LT(offsetof(Texture, depth), offsetof(Texture, target));
    EXPECT_LT(offsetof(Texture, target), offsetof(Texture, format));
}

TEST_F(TextureTest, Image100x50IsPaddedTo128x64WithScales0_78125)
{
    const uint32_t before = Texture::usedMemory;
    Image image(100, 50);
    Texture texture(&image);
    EXPECT_EQ(texture.width, 128);
    EXPECT_EQ(texture.height, 64);
    EXPECT_FLOAT_EQ(texture.uScale, 0.78125f);
    EXPECT_FLOAT_EQ(texture.vScale, 0.78125f);
    EXPECT_EQ(Texture::usedMemory - before, 32768u);
    glBindTexture(GL_TEXTURE_2D, texture.id);
    EXPECT_EQ(levelParameter(GL_TEXTURE_2D, GL_TEXTURE_WIDTH), 128);
    EXPECT_EQ(levelParameter(GL_TEXTURE_2D, GL_TEXTURE_HEIGHT), 64);
}

TEST_F(TextureTest, PaddedPictureSitsInTheTopLeftCornerOverZeroes)
{
    Color::init();
    Image image(3, 5);
    image.setPixel(0, 0, Color::pack(1, 2, 3, 4));
    image.setPixel(2, 4, Color::pack(9, 8, 7, 6));
    Texture texture(&image);
    ASSERT_EQ(texture.width, 4);
    ASSERT_EQ(texture.height, 8);
    EXPECT_FLOAT_EQ(texture.uScale, 0.75f);
    EXPECT_FLOAT_EQ(texture.vScale, 0.625f);
    const std::vector<uint32_t> stored = texels(texture);
    EXPECT_EQ(stored[0], Color::pack(1, 2, 3, 4));
    EXPECT_EQ(stored[4 * 4 + 2], Color::pack(9, 8, 7, 6));
    EXPECT_EQ(stored[3], 0u);
    EXPECT_EQ(stored[7 * 4 + 3], 0u);
}

TEST_F(TextureTest, Image64x64UploadsDirectlyWithScalesOne)
{
    Color::init();
    const uint32_t before = Texture::usedMemory;
    Image image(64, 64);
    image.setPixel(63, 63, Color::pack(10, 20, 30, 40));
    Texture texture(&image);
    EXPECT_EQ(texture.width, 64);
    EXPECT_EQ(texture.height, 64);
    EXPECT_FLOAT_EQ(texture.uScale, 1.0f);
    EXPECT_FLOAT_EQ(texture.vScale, 1.0f);
    EXPECT_EQ(Texture::usedMemory - before, 64u * 64u * 4u);
    EXPECT_EQ(texels(texture)[64 * 64 - 1], Color::pack(10, 20, 30, 40));
}

TEST_F(TextureTest, TextureFromImageIsRgba8LinearAndRepeating)
{
    Image image(16, 16);
    Texture texture(&image);
    EXPECT_EQ(texture.unit, static_cast<uint32_t>(GL_TEXTURE0));
    EXPECT_EQ(texture.target, static_cast<uint32_t>(GL_TEXTURE_2D));
    EXPECT_EQ(texture.format, static_cast<uint32_t>(GL_RGBA8));
    EXPECT_TRUE(glIsTexture(texture.id));
    glBindTexture(GL_TEXTURE_2D, texture.id);
    EXPECT_EQ(parameter(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S), GL_REPEAT);
    EXPECT_EQ(parameter(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T), GL_REPEAT);
    EXPECT_EQ(parameter(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER), GL_LINEAR);
    EXPECT_EQ(parameter(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER), GL_LINEAR);
}

TEST_F(TextureTest, NullImageGivesATextureWithoutStorage)
{
    const uint32_t before = Texture::usedMemory;
    {
        Texture texture(nullptr);
        EXPECT_EQ(texture.width, 0);
        EXPECT_EQ(texture.height, 0);
        EXPECT_FLOAT_EQ(texture.uScale, 1.0f);
        EXPECT_EQ(Texture::usedMemory, before);
        glBindTexture(GL_TEXTURE_2D, texture.id);
        EXPECT_EQ(levelParameter(GL_TEXTURE_2D, GL_TEXTURE_WIDTH), 0);
    }
    EXPECT_EQ(Texture::usedMemory, before);
}

TEST_F(TextureTest, EmptyTexture4x4IsRaisedTo8x8)
{
    Texture texture(4, 4, 0, GL_TEXTURE_2D, GL_RGBA8);
    EXPECT_EQ(texture.width, 8);
    EXPECT_EQ(texture.height, 8);
    EXPECT_EQ(texture.depth, 2);
    glBindTexture(GL_TEXTURE_2D, texture.id);
    EXPECT_EQ(levelParameter(GL_TEXTURE_2D, GL_TEXTURE_WIDTH), 8);
    EXPECT_EQ(levelParameter(GL_TEXTURE_2D, GL_TEXTURE_HEIGHT), 8);
    EXPECT_EQ(parameter(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S), GL_CLAMP_TO_EDGE);
    EXPECT_EQ(parameter(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T), GL_CLAMP_TO_EDGE);
    EXPECT_EQ(parameter(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER), GL_LINEAR);
}

TEST_F(TextureTest, EmptyTextureKeepsLargerSizesAndLeavesItsTargetUnbound)
{
    Texture texture(640, 480, 7, GL_TEXTURE_2D, GL_RGBA8);
    EXPECT_EQ(texture.width, 640);
    EXPECT_EQ(texture.height, 480);
    EXPECT_EQ(texture.depth, 7);
    GLint bound = -1;
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
    EXPECT_EQ(bound, 0);
}

TEST_F(TextureTest, Empty3dTextureHasItsDepthAndCountsOneSlice)
{
    const uint32_t before = Texture::usedMemory;
    Texture texture(16, 16, 1, GL_TEXTURE_3D, GL_RGBA8);
    EXPECT_EQ(texture.depth, 2);
    EXPECT_EQ(Texture::usedMemory - before, 16u * 16u * 4u);
    glBindTexture(GL_TEXTURE_3D, texture.id);
    EXPECT_EQ(levelParameter(GL_TEXTURE_3D, GL_TEXTURE_DEPTH), 2);
    EXPECT_EQ(parameter(GL_TEXTURE_3D, GL_TEXTURE_WRAP_R), GL_CLAMP_TO_EDGE);
    glBindTexture(GL_TEXTURE_3D, 0);
}

TEST_F(TextureTest, Empty1dTextureHasItsWidth)
{
    Texture texture(32, 1, 0, GL_TEXTURE_1D, GL_RGBA8);
    EXPECT_EQ(texture.height, 8);
    glBindTexture(GL_TEXTURE_1D, texture.id);
    EXPECT_EQ(levelParameter(GL_TEXTURE_1D, GL_TEXTURE_WIDTH), 32);
    glBindTexture(GL_TEXTURE_1D, 0);
}

TEST_F(TextureTest, EmptyTextureOfAnotherTargetHasNoStorageButStillCounts)
{
    const uint32_t before = Texture::usedMemory;
    {
        Texture texture(16, 16, 0, GL_TEXTURE_CUBE_MAP, GL_RGBA8);
        EXPECT_EQ(texture.target, static_cast<uint32_t>(GL_TEXTURE_CUBE_MAP));
        EXPECT_TRUE(glIsTexture(texture.id));
        EXPECT_EQ(Texture::usedMemory - before, 16u * 16u * 4u);
        glBindTexture(GL_TEXTURE_CUBE_MAP, texture.id);
        EXPECT_EQ(levelParameter(GL_TEXTURE_CUBE_MAP_POSITIVE_X, GL_TEXTURE_WIDTH), 0);
        glBindTexture(GL_TEXTURE_CUBE_MAP, 0);
    }
    EXPECT_EQ(Texture::usedMemory, before);
}

TEST_F(TextureTest, DestroyingATextureGivesBackItsMemoryAndName)
{
    const uint32_t before = Texture::usedMemory;
    auto* texture = new Texture(100, 100, 0, GL_TEXTURE_2D, GL_RGBA8);
    const GLuint name = texture->id;
    EXPECT_EQ(Texture::usedMemory - before, 40000u);
    delete texture;
    EXPECT_EQ(Texture::usedMemory, before);
    EXPECT_FALSE(glIsTexture(name));
}

TEST_F(TextureTest, BindRemembersTheUnitAndUnbindClearsIt)
{
    Image image(8, 8);
    Texture texture(&image);
    texture.bind(GL_TEXTURE1);
    EXPECT_EQ(texture.unit, static_cast<uint32_t>(GL_TEXTURE1));
    GLint active = 0, bound = 0;
    glGetIntegerv(GL_ACTIVE_TEXTURE, &active);
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
    EXPECT_EQ(active, GL_TEXTURE1);
    EXPECT_EQ(static_cast<GLuint>(bound), texture.id);

    glActiveTexture(GL_TEXTURE0);
    texture.unbind();
    glGetIntegerv(GL_ACTIVE_TEXTURE, &active);
    glGetIntegerv(GL_TEXTURE_BINDING_2D, &bound);
    EXPECT_EQ(active, GL_TEXTURE1);
    EXPECT_EQ(bound, 0);
    glActiveTexture(GL_TEXTURE0);
}
