#include "core/Canvas.h"

#include <algorithm>
#include <cmath>

namespace assetgen {

namespace {

// Passes of colour bleeding into transparent texels; enough for any filter footprint.
constexpr int kBleedPasses = 6;

uint8_t quantize(float v) { return static_cast<uint8_t>(std::lround(clamp01(v) * 255.0f)); }

void blurLine(const std::vector<Px>& src, std::vector<Px>& dst, int n, int stride, int start,
              const std::vector<float>& kernel)
{
    int radius = static_cast<int>(kernel.size()) / 2;
    for (int i = 0; i < n; ++i) {
        Px acc;
        for (int k = -radius; k <= radius; ++k) {
            int j = i + k;
            if (j < 0 || j >= n)
                continue;
            acc = acc + src[start + j * stride] * kernel[k + radius];
        }
        dst[start + i * stride] = acc;
    }
}

} // namespace

void Canvas::addLight(int x, int y, V3 light)
{
    Px& p = at(x, y);
    p.r += light.x;
    p.g += light.y;
    p.b += light.z;
}

void Canvas::lightToAlpha()
{
    for (Px& p : px_) {
        float a = clamp01(std::max({p.r, p.g, p.b}));
        p.r = std::min(p.r, a);
        p.g = std::min(p.g, a);
        p.b = std::min(p.b, a);
        p.a = a;
    }
}

void Canvas::blur(float sigma)
{
    int radius = std::max(1, static_cast<int>(std::ceil(sigma * 3)));
    std::vector<float> kernel(2 * radius + 1);
    float sum = 0;
    for (int k = -radius; k <= radius; ++k)
        sum += kernel[k + radius] = std::exp(-0.5f * k * k / (sigma * sigma));
    for (float& k : kernel)
        k /= sum;
    std::vector<Px> tmp(px_.size());
    for (int y = 0; y < h_; ++y)
        blurLine(px_, tmp, w_, 1, y * w_, kernel);
    for (int x = 0; x < w_; ++x)
        blurLine(tmp, px_, h_, w_, x, kernel);
}

Picture toPicture(const Canvas& c)
{
    Picture pic;
    pic.width = c.width();
    pic.height = c.height();
    pic.rgba.resize(static_cast<size_t>(pic.width) * pic.height * 4);
    std::vector<uint8_t> known(static_cast<size_t>(pic.width) * pic.height);
    for (int y = 0; y < pic.height; ++y)
        for (int x = 0; x < pic.width; ++x) {
            const Px& p = c.at(x, y);
            uint8_t* t = &pic.rgba[(static_cast<size_t>(y) * pic.width + x) * 4];
            t[3] = quantize(p.a);
            if (t[3] == 0)
                continue;
            float inv = 1.0f / p.a;
            t[0] = quantize(p.r * inv);
            t[1] = quantize(p.g * inv);
            t[2] = quantize(p.b * inv);
            known[static_cast<size_t>(y) * pic.width + x] = 1;
        }
    for (int pass = 0; pass < kBleedPasses; ++pass) {
        std::vector<uint8_t> next = known;
        for (int y = 0; y < pic.height; ++y)
            for (int x = 0; x < pic.width; ++x) {
                if (known[static_cast<size_t>(y) * pic.width + x])
                    continue;
                int sum[3] = {0, 0, 0}, n = 0;
                for (int dy = -1; dy <= 1; ++dy)
                    for (int dx = -1; dx <= 1; ++dx) {
                        int nx = x + dx, ny = y + dy;
                        if (nx < 0 || ny < 0 || nx >= pic.width || ny >= pic.height)
                            continue;
                        if (!known[static_cast<size_t>(ny) * pic.width + nx])
                            continue;
                        const uint8_t* s = pic.texel(nx, ny);
                        sum[0] += s[0], sum[1] += s[1], sum[2] += s[2];
                        ++n;
                    }
                if (n == 0)
                    continue;
                uint8_t* t = &pic.rgba[(static_cast<size_t>(y) * pic.width + x) * 4];
                for (int k = 0; k < 3; ++k)
                    t[k] = static_cast<uint8_t>((sum[k] + n / 2) / n);
                next[static_cast<size_t>(y) * pic.width + x] = 1;
            }
        known.swap(next);
    }
    return pic;
}

} // namespace assetgen
