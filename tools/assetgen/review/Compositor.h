// Compositor: an opaque RGB surface that draws finished pictures the way the game's renderer
// does: textured quads sampled bilinearly without mipmaps, tinted, turned, and blended either
// over what is there (source alpha, one minus source alpha) or added to it (source alpha, one).
// Text is drawn as the game draws it: one cell of a 16 x 16 font grid per character, each
// (picture width / picture height) times as wide as it is high. For review pictures only.
#pragma once

#include <string>
#include <vector>

#include "core/Canvas.h"

namespace assetgen {

enum class Blend { Over, Add };

struct Quad {
    float cx = 0, cy = 0;          // centre, pixels (y down)
    float width = 0, height = 0;   // drawn size, pixels
    float angleDeg = 0;            // clockwise on screen, as the game turns drawables
    V3 tint{1, 1, 1};
    float alpha = 1;
    Blend blend = Blend::Over;
    float u0 = 0, v0 = 0, u1 = 1, v1 = 1;  // texture coordinates, repeating outside 0..1
};

class Compositor {
public:
    Compositor(int width, int height, V3 background);

    int width() const { return w_; }
    int height() const { return h_; }
    V3& at(int x, int y) { return px_[static_cast<size_t>(y) * w_ + x]; }

    void fillRect(int x, int y, int w, int h, V3 colour);
    void draw(const Picture& pic, const Quad& q);
    // Text with its top-left corner at (x, y), characters `height` pixels high.
    void text(const Picture& font, const std::string& s, float x, float y, float height, V3 colour = {1, 1, 1},
              float alpha = 1);
    static float textWidth(const Picture& font, const std::string& s, float height)
    {
        return font.height ? s.size() * height * font.width / font.height : 0;
    }
    // Copies a block of another compositor to (x, y).
    void paste(const Compositor& src, int x, int y);
    Canvas toCanvas() const;

private:
    int w_, h_;
    std::vector<V3> px_;
};

// Bilinear sample at texture coordinates (u, v), repeating like GL_REPEAT; straight RGBA 0..1.
Px sampleBilinear(const Picture& pic, float u, float v);

} // namespace assetgen
