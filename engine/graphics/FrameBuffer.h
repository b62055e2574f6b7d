// An off-screen render target (GL_EXT_framebuffer_object) with up to four RGBA8 colour
// textures and an optional depth render buffer, all of one size. The world scene draws into
// one and composites it to the window. Completeness is never checked.
#pragma once

#include <cstdint>
#include <type_traits>

namespace vorlik {

class RenderBuffer;
class Texture;

class FrameBuffer {
public:
    // Creation flags: which attachments to make.
    static constexpr uint32_t kColor0 = 1;
    static constexpr uint32_t kColor1 = 2;
    static constexpr uint32_t kColor2 = 4;
    static constexpr uint32_t kColor3 = 8;
    static constexpr uint32_t kDepth = 16;
    static constexpr int kMaxColors = 4;

    uint32_t id;                  // GL frame buffer name
    uint32_t width;               // pixels, of every attachment
    uint32_t height;
    Texture* color[kMaxColors];   // colour attachments 0 to 3, owned, null where absent
    RenderBuffer* depth;          // depth attachment, owned, or null
    RenderBuffer* stencil;        // never made; deleted with the others if someone sets it

    FrameBuffer(uint32_t width, uint32_t height, uint32_t flags);
    ~FrameBuffer();

    FrameBuffer(const FrameBuffer&) = delete;
    FrameBuffer& operator=(const FrameBuffer&) = delete;

    // Renders into this target from now on; the viewport becomes the target's size.
    void bind();
    // Renders into the window again, with the viewport over the whole window (not whatever
    // viewport was set before bind).
    static void unbind();
};

static_assert(!std::is_copy_constructible_v<FrameBuffer>, "FrameBuffer owns GL objects");

} // namespace vorlik
