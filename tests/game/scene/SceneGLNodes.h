// Helpers for the scenes' pixel tests: a leaf that fills its rectangle with the inherited
// colour using plain GL, and a read-back of the whole window with the rows counted from the top.
#pragma once

#include "scene/Drawable.h"
#include "scene/SceneState.h"

#include "graphics/Image.h"
#include "graphics/Texture.h"

#include <GL/gl.h>
#include <GL/glext.h>

#include <cstdint>
#include <vector>

// Fills anchor +- size/2 with the state's colour the way the game's sprites draw: a white
// texel under the textured program that the scene has bound, so the composite that follows
// finds the same program in use as after any sprite.
class SolidQuad : public Drawable {
public:
    explicit SolidQuad(float width = 2.0f, float height = 2.0f) { setSize(width, height); }
    void draw(const SceneState& state) override
    {
        ++draws;
        const float left = anchor.x - size.x / 2, right = anchor.x + size.x / 2;
        const float top = anchor.y - size.y / 2, bottom = anchor.y + size.y / 2;
        const float corners[4][2] = {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
        const ByteColor c = state.color;
        const uint8_t colors[4][4] = {{c.r, c.g, c.b, c.a}, {c.r, c.g, c.b, c.a}, {c.r, c.g, c.b, c.a}, {c.r, c.g, c.b, c.a}};
        white().bind(GL_TEXTURE0);
        glVertexPointer(2, GL_FLOAT, 0, corners);
        glColorPointer(4, GL_UNSIGNED_BYTE, 0, colors);
        glDrawArrays(GL_QUADS, 0, 4);
    }
    int draws = 0;

private:
    // One opaque white texel, made on first use and kept for the test process.
    static vorlik::Texture& white()
    {
        static vorlik::Texture* texture = [] {
            vorlik::Image texel(1, 1);
            texel.setPixel(0, 0, 0xFFFFFFFFu);
            return new vorlik::Texture(&texel);
        }();
        return *texture;
    }
};

struct Pixel {
    int r, g, b;
};

// The pixels whose red, green or blue exceeds 40 and the box that encloses them.
struct LitArea {
    int count = 0, left = 1 << 30, top = 1 << 30, right = -1, bottom = -1;
};

// The window's back buffer as it is now; pixels addressed from the top-left corner.
class WindowPixels {
public:
    WindowPixels(int width, int height) : width_(width), height_(height), rgba_(size_t(width) * height * 4)
    {
        glBindFramebufferEXT(GL_FRAMEBUFFER_EXT, 0);
        glReadBuffer(GL_BACK);
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glReadPixels(0, 0, width, height, GL_RGBA, GL_UNSIGNED_BYTE, rgba_.data());
    }

    Pixel at(int x, int y) const
    {
        const uint8_t* p = &rgba_[(size_t(height_ - 1 - y) * width_ + x) * 4];
        return Pixel{p[0], p[1], p[2]};
    }

    LitArea lit() const
    {
        LitArea a;
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x) {
                const Pixel p = at(x, y);
                if (p.r <= 40 && p.g <= 40 && p.b <= 40) continue;
                ++a.count;
                a.left = x < a.left ? x : a.left;
                a.top = y < a.top ? y : a.top;
                a.right = x > a.right ? x : a.right;
                a.bottom = y > a.bottom ? y : a.bottom;
            }
        return a;
    }

private:
    int width_, height_;
    std::vector<uint8_t> rgba_;
};
