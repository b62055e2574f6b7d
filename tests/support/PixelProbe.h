// Helpers for tests that check what lands in the window: a pixel-exact projection with y
// pointing down (like the HUD) and reads of single pixels counted from the top-left corner.
#pragma once

#include <GL/gl.h>
#include <GL/glext.h>
#include <cstdint>
#include <ostream>

namespace pixelprobe {

struct Rgba {
    int r, g, b, a;
};

inline std::ostream& operator<<(std::ostream& out, const Rgba& p)
{
    return out << "(" << p.r << ", " << p.g << ", " << p.b << ", " << p.a << ")";
}

// Projection of window pixels, origin at the top-left, y down; identity model-view; the
// whole window as viewport; no program, no blending; cleared to opaque black.
inline void resetWindow(int width, int height)
{
    glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
    glViewport(0, 0, width, height);
    glUseProgram(0);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0.0, width, height, 0.0, -10.0, 10.0);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glReadBuffer(GL_BACK);
    glDisable(GL_BLEND);
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_CULL_FACE);
    glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
}

// The pixel at column x, row y counted from the top of the current read buffer.
inline Rgba readPixel(int x, int y, int height)
{
    uint8_t p[4] = {0, 0, 0, 0};
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(x, height - 1 - y, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, p);
    return Rgba{p[0], p[1], p[2], p[3]};
}

inline bool near(const Rgba& p, int r, int g, int b, int tolerance = 2)
{
    auto close = [tolerance](int x, int y) { return x - y <= tolerance && y - x <= tolerance; };
    return close(p.r, r) && close(p.g, g) && close(p.b, b);
}

} // namespace pixelprobe
