// Canvas: a floating-point RGBA picture with premultiplied colour, the working surface of
// every generator. Picture: the finished 8-bit, straight-alpha form that is written to PNG
// and that the contact sheet samples the way the game's renderer will (bilinear, no mipmaps).
#pragma once

#include <cstdint>
#include <vector>

#include "core/Vec.h"

namespace assetgen {

struct Px {
    float r = 0, g = 0, b = 0, a = 0; // premultiplied
};
inline Px operator+(Px p, Px q) { return {p.r + q.r, p.g + q.g, p.b + q.b, p.a + q.a}; }
inline Px operator*(Px p, float s) { return {p.r * s, p.g * s, p.b * s, p.a * s}; }
// Straight colour c with coverage a, premultiplied.
inline Px solid(V3 c, float a) { return {c.x * a, c.y * a, c.z * a, a}; }
// p drawn over q.
inline Px over(Px p, Px q) { return p + q * (1 - p.a); }

class Canvas {
public:
    Canvas(int width, int height) : w_(width), h_(height), px_(static_cast<size_t>(width) * height) {}

    int width() const { return w_; }
    int height() const { return h_; }
    Px& at(int x, int y) { return px_[static_cast<size_t>(y) * w_ + x]; }
    const Px& at(int x, int y) const { return px_[static_cast<size_t>(y) * w_ + x]; }

    // Adds light for additive pictures (alpha is settled later by lightToAlpha).
    void addLight(int x, int y, V3 light);
    // Turns accumulated light into the least alpha that reproduces it under additive
    // (source alpha, one) blending: alpha = brightest channel, colour = light / alpha.
    void lightToAlpha();
    // Separable Gaussian blur of all four channels, sigma in pixels; edges clamp to empty.
    void blur(float sigma);

private:
    int w_, h_;
    std::vector<Px> px_;
};

struct Picture {
    int width = 0, height = 0;
    std::vector<uint8_t> rgba; // straight alpha, rows top to bottom

    const uint8_t* texel(int x, int y) const { return &rgba[(static_cast<size_t>(y) * width + x) * 4]; }
};

// Quantises a canvas into a picture. Fully transparent texels take the colour of their
// nearest visible neighbours, so linear filtering never drags black into soft edges.
Picture toPicture(const Canvas& c);

} // namespace assetgen
