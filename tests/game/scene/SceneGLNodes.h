// Helpers for the scenes' pixel tests: a sprite that fills its rectangle with the inherited
// colour, and a read-back of the whole window with the rows counted from the top, which can
// also be saved as a PNG file to look at.
#pragma once

#include "scene/SceneState.h"
#include "scene/Sprite.h"

#include "PngEncoder.h"
#include "graphics/Image.h"
#include "graphics/Texture.h"

#include <GL/gl.h>
#include <GL/glext.h>

#include <cstdint>
#include <cstdio>
#include <vector>

// A Sprite over one white texel: a solid rectangle anchor +- size/2 in the inherited colour,
// drawn the way every picture of the game is drawn. Counts its draws.
class SolidQuad : public Sprite {
public:
    explicit SolidQuad(float width = 2.0f, float height = 2.0f) : Sprite(&white(), width, height) {}
    void draw(const SceneState& state) override
    {
        ++draws;
        Sprite::draw(state);
    }
    int draws = 0;

private:
    // Made on first use and kept for the test process.
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

    LitArea lit() const { return litIn(0, 0, width_ - 1, height_ - 1, 40); }

    // The pixels of the area (x0, y0)-(x1, y1), both corners included, whose red, green or
    // blue exceeds threshold, and the box that encloses them.
    LitArea litIn(int x0, int y0, int x1, int y1, int threshold) const
    {
        LitArea a;
        for (int y = y0; y <= y1; ++y)
            for (int x = x0; x <= x1; ++x) {
                const Pixel p = at(x, y);
                if (p.r <= threshold && p.g <= threshold && p.b <= threshold) continue;
                ++a.count;
                a.left = x < a.left ? x : a.left;
                a.top = y < a.top ? y : a.top;
                a.right = x > a.right ? x : a.right;
                a.bottom = y > a.bottom ? y : a.bottom;
            }
        return a;
    }

    // Writes the pixels as an opaque PNG file; a path that cannot be written is skipped.
    void savePng(const char* path) const
    {
        std::vector<uint8_t> rgba;
        rgba.reserve(size_t(width_) * height_ * 4);
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x) {
                const Pixel p = at(x, y);
                rgba.insert(rgba.end(), {uint8_t(p.r), uint8_t(p.g), uint8_t(p.b), 255});
            }
        const std::vector<uint8_t> png = pngtest::encode(width_, height_, rgba);
        if (FILE* f = std::fopen(path, "wb")) {
            std::fwrite(png.data(), 1, png.size(), f);
            std::fclose(f);
        }
    }

private:
    int width_, height_;
    std::vector<uint8_t> rgba_;
};
