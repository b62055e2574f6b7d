#include "graphics/RenderBuffer.h"

#include "DisplayTest.h"

#include <GL/gl.h>
#include <GL/glext.h>

using vorlik::RenderBuffer;

namespace {
class RenderBufferTest : public DisplayTest {};

GLint boundRenderBuffer()
{
    GLint id = -1;
    glGetIntegerv(GL_RENDERBUFFER_BINDING_EXT, &id);
    return id;
}
} // namespace

TEST_F(RenderBufferTest, HasStorageOfItsSizeAndFormatAndIsLeftUnbound)
{
    RenderBuffer buffer(320, 200, GL_DEPTH_COMPONENT);
    EXPECT_EQ(buffer.width, 320u);
    EXPECT_EQ(buffer.height, 200u);
    EXPECT_EQ(boundRenderBuffer(), 0);
    buffer.bind();
    EXPECT_EQ(static_cast<GLuint>(boundRenderBuffer()), buffer.id);
    GLint w = 0, h = 0, depthBits = 0;
    glGetRenderbufferParameterivEXT(GL_RENDERBUFFER_EXT, GL_RENDERBUFFER_WIDTH_EXT, &w);
    glGetRenderbufferParameterivEXT(GL_RENDERBUFFER_EXT, GL_RENDERBUFFER_HEIGHT_EXT, &h);
    glGetRenderbufferParameterivEXT(GL_RENDERBUFFER_EXT, GL_RENDERBUFFER_DEPTH_SIZE_EXT, &depthBits);
    EXPECT_EQ(w, 320);
    EXPECT_EQ(h, 200);
    EXPECT_GT(depthBits, 0);
    glBindRenderbufferEXT(GL_RENDERBUFFER_EXT, 0);
}

TEST_F(RenderBufferTest, DestroyDeletesTheGlName)
{
    auto* buffer = new RenderBuffer(16, 16, GL_DEPTH_COMPONENT);
    const GLuint id = buffer->id;
    EXPECT_TRUE(glIsRenderbufferEXT(id));
    delete buffer;
    EXPECT_FALSE(glIsRenderbufferEXT(id));
}
