#include "graphics/FrameBuffer.h"

#include "graphics/RenderBuffer.h"
#include "graphics/Texture.h"
#include "graphics/WindowSize.h"

#include <GL/gl.h>
#include <GL/glext.h>

namespace vorlik {

FrameBuffer::FrameBuffer(uint32_t w, uint32_t h, uint32_t flags)
    : id(0), width(w), height(h), color{}, depth(nullptr), stencil(nullptr)
{
    glGenFramebuffersEXT(1, &id);
    glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, id);
    for (int i = 0; i < kMaxColors; ++i) {
        if ((flags & (kColor0 << i)) == 0) continue;
        color[i] = new Texture(static_cast<int32_t>(width), static_cast<int32_t>(height), 0,
                               GL_TEXTURE_2D, GL_RGBA8);
        // The core entry point, unlike every other frame-buffer call here; the EXT and core
        // attachment points share their values.
        glFramebufferTexture2D(GL_FRAMEBUFFER_EXT, GL_COLOR_ATTACHMENT0_EXT + i, GL_TEXTURE_2D,
                               color[i]->id, 0);
    }
    if ((flags & kDepth) != 0) {
        depth = new RenderBuffer(width, height, GL_DEPTH_COMPONENT);
        glFramebufferRenderbufferEXT(GL_FRAMEBUFFER_EXT, GL_DEPTH_ATTACHMENT_EXT,
                                     GL_RENDERBUFFER_EXT, depth->id);
    }
    glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
}

FrameBuffer::~FrameBuffer()
{
    glDeleteFramebuffersEXT(1, &id);
    for (Texture* texture : color) delete texture;
    delete depth;
    delete stencil;
}

void FrameBuffer::bind()
{
    glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, id);
    glViewport(0, 0, static_cast<GLsizei>(width), static_cast<GLsizei>(height));
}

void FrameBuffer::unbind()
{
    glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
    const WindowSize window = windowSize();
    glViewport(0, 0, window.width, window.height);
}

} // namespace vorlik
