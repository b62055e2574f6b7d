#include "graphics/RenderBuffer.h"

#include <GL/gl.h>
#include <GL/glext.h>

namespace vorlik {

RenderBuffer::RenderBuffer(uint32_t w, uint32_t h, uint32_t format)
    : id(0), width(w), height(h)
{
    glGenRenderbuffersEXT(1, &id);
    glBindRenderbufferEXT(GL_RENDERBUFFER_EXT, id);
    glRenderbufferStorageEXT(GL_RENDERBUFFER_EXT, format, static_cast<GLsizei>(width),
                             static_cast<GLsizei>(height));
    glBindRenderbufferEXT(GL_RENDERBUFFER_EXT, 0);
}

RenderBuffer::~RenderBuffer()
{
    glDeleteRenderbuffersEXT(1, &id);
}

void RenderBuffer::bind()
{
    glBindRenderbufferEXT(GL_RENDERBUFFER_EXT, id);
}

} // namespace vorlik
