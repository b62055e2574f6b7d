// A GL render buffer (through GL_EXT_framebuffer_object): storage a FrameBuffer renders into
// but that is never sampled, such as its depth buffer. Owns its GL name.
#pragma once

#include <cstdint>
#include <type_traits>

namespace vorlik {

class RenderBuffer {
public:
    uint32_t id;     // GL render buffer name
    uint32_t width;  // pixels
    uint32_t height; // pixels

    // Storage of the given internal format, e.g. GL_DEPTH_COMPONENT.
    RenderBuffer(uint32_t width, uint32_t height, uint32_t format);
    ~RenderBuffer();

    RenderBuffer(const RenderBuffer&) = delete;
    RenderBuffer& operator=(const RenderBuffer&) = delete;

    void bind();
};

static_assert(!std::is_copy_constructible_v<RenderBuffer>, "RenderBuffer owns a GL name");

} // namespace vorlik
