#include "graphics/FrameBuffer.h"

#include "DisplayTest.h"
#include "PixelProbe.h"
#include "graphics/RenderBuffer.h"
#include "graphics/Texture.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <vector>

using vorlik::FrameBuffer;
using vorlik::RenderBuffer;
using vorlik::Texture;

namespace {
using FrameBufferTest = CleanWindowTest;

GLint boundFrameBuffer()
{
    GLint id = -1;
    glGetIntegerv(GL_FRAMEBUFFER_BINDING_EXT, &id);
    return id;
}

struct Viewport {
    GLint x, y, w, h;
};

Viewport viewport()
{
    GLint v[4] = {-1, -1, -1, -1};
    glGetIntegerv(GL_VIEWPORT, v);
    return Viewport{v[0], v[1], v[2], v[3]};
}

GLint attachedName(GLenum attachment)
{
    GLint name = -1;
    glGetFramebufferAttachmentParameterivEXT(GL_FRAMEBUFFER_EXT, attachment,
                                             GL_FRAMEBUFFER_ATTACHMENT_OBJECT_NAME_EXT, &name);
    return name;
}
} // namespace

TEST_F(FrameBufferTest, Flags1And16GiveOneColourTextureAndADepthBuffer)
{
    FrameBuffer target(640, 480, FrameBuffer::kColor0 | FrameBuffer::kDepth);
    EXPECT_EQ(target.width, 640u);
    EXPECT_EQ(target.height, 480u);
    ASSERT_NE(target.color[0], nullptr);
    EXPECT_EQ(target.color[0]->width, 640);
    EXPECT_EQ(target.color[0]->height, 480);
    EXPECT_EQ(target.color[0]->format, static_cast<uint32_t>(GL_RGBA8));
    EXPECT_EQ(target.color[1], nullptr);
    EXPECT_EQ(target.color[2], nullptr);
    EXPECT_EQ(target.color[3], nullptr);
    ASSERT_NE(target.depth, nullptr);
    EXPECT_EQ(target.depth->width, 640u);
    EXPECT_EQ(target.stencil, nullptr);

    target.bind();
    EXPECT_EQ(glCheckFramebufferStatusEXT(GL_FRAMEBUFFER_EXT), static_cast<GLenum>(GL_FRAMEBUFFER_COMPLETE_EXT));
    EXPECT_EQ(static_cast<GLuint>(attachedName(GL_COLOR_ATTACHMENT0_EXT)), target.color[0]->id);
    EXPECT_EQ(static_cast<GLuint>(attachedName(GL_DEPTH_ATTACHMENT_EXT)), target.depth->id);
    FrameBuffer::unbind();
}

TEST_F(FrameBufferTest, EachColourFlagFillsItsOwnSlot)
{
    FrameBuffer target(64, 32, FrameBuffer::kColor1 | FrameBuffer::kColor3);
    EXPECT_EQ(target.color[0], nullptr);
    ASSERT_NE(target.color[1], nullptr);
    EXPECT_EQ(target.color[2], nullptr);
    ASSERT_NE(target.color[3], nullptr);
    EXPECT_EQ(target.depth, nullptr);
    target.bind();
    EXPECT_EQ(static_cast<GLuint>(attachedName(GL_COLOR_ATTACHMENT1_EXT)), target.color[1]->id);
    EXPECT_EQ(static_cast<GLuint>(attachedName(GL_COLOR_ATTACHMENT3_EXT)), target.color[3]->id);
    FrameBuffer::unbind();
}

TEST_F(FrameBufferTest, ConstructionLeavesTheWindowBound)
{
    FrameBuffer target(64, 64, 31);
    EXPECT_EQ(boundFrameBuffer(), 0);
}

TEST_F(FrameBufferTest, AllFourColourTexturesCountInUsedMemoryUntilDestroyed)
{
    const uint32_t before = Texture::usedMemory;
    auto* target = new FrameBuffer(640, 480, 31);
    EXPECT_EQ(Texture::usedMemory - before, 4u * 640u * 480u * 4u);
    const GLuint id = target->id;
    delete target;
    EXPECT_EQ(Texture::usedMemory, before);
    EXPECT_FALSE(glIsFramebufferEXT(id));
}

TEST_F(FrameBufferTest, BindSetsTheViewportToTheTargetSize)
{
    FrameBuffer target(320, 240, FrameBuffer::kColor0);
    target.bind();
    EXPECT_EQ(static_cast<GLuint>(boundFrameBuffer()), target.id);
    const Viewport v = viewport();
    EXPECT_EQ(v.w, 320);
    EXPECT_EQ(v.h, 240);
    FrameBuffer::unbind();
}

TEST_F(FrameBufferTest, UnbindRestoresTheWholeWindowNotThePreviousViewport)
{
    FrameBuffer target(320, 240, FrameBuffer::kColor0);
    glViewport(10, 20, 100, 50);
    target.bind();
    FrameBuffer::unbind();
    EXPECT_EQ(boundFrameBuffer(), 0);
    const Viewport v = viewport();
    EXPECT_EQ(v.x, 0);
    EXPECT_EQ(v.y, 0);
    EXPECT_EQ(v.w, kWidth);
    EXPECT_EQ(v.h, kHeight);
}

TEST_F(FrameBufferTest, DrawingLandsInTheColourTextureNotTheWindow)
{
    FrameBuffer target(64, 64, FrameBuffer::kColor0 | FrameBuffer::kDepth);
    target.bind();
    glClearColor(1.0f, 0.0f, 0.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    FrameBuffer::unbind();
    glClearColor(0.0f, 0.0f, 0.0f, 1.0f);

    std::vector<uint8_t> texels(64 * 64 * 4);
    glBindTexture(GL_TEXTURE_2D, target.color[0]->id);
    glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, texels.data());
    EXPECT_EQ(texels[0], 255);
    EXPECT_EQ(texels[1], 0);
    EXPECT_TRUE(pixelprobe::near(pixelprobe::readPixel(10, 10, kHeight), 0, 0, 0));
}

TEST_F(FrameBufferTest, StencilBufferSetByTheOwnerIsDeletedWithTheTarget)
{
    auto* target = new FrameBuffer(16, 16, FrameBuffer::kColor0);
    target->stencil = new RenderBuffer(16, 16, GL_STENCIL_INDEX8_EXT);
    const GLuint stencil = target->stencil->id;
    delete target;
    EXPECT_FALSE(glIsRenderbufferEXT(stencil));
}
