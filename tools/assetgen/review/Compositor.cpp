#include "review/Compositor.h"

#include <cmath>

namespace assetgen {

namespace {

int wrapIndex(int i, int n) { return ((i % n) + n) % n; }

} // namespace

Px sampleBilinear(const Picture& pic, float u, float v)
{
    float x = u * pic.width - 0.5f, y = v * pic.height - 0.5f;
    int x0 = static_cast<int>(std::floor(x)), y0 = static_cast<int>(std::floor(y));
    float fx = x - x0, fy = y - y0;
    Px out;
    for (int j = 0; j < 2; ++j)
        for (int i = 0; i < 2; ++i) {
            const uint8_t* t = pic.texel(wrapIndex(x0 + i, pic.width), wrapIndex(y0 + j, pic.height));
            float w = (i ? fx : 1 - fx) * (j ? fy : 1 - fy);
            out.r += t[0] * w;
            out.g += t[1] * w;
            out.b += t[2] * w;
            out.a += t[3] * w;
        }
    return out * (1.0f / 255.0f);
}

Compositor::Compositor(int width, int height, V3 background)
    : w_(width), h_(height), px_(static_cast<size_t>(width) * height, background)
{
}

void Compositor::fillRect(int x, int y, int w, int h, V3 colour)
{
    for (int j = std::max(0, y); j < std::min(h_, y + h); ++j)
        for (int i = std::max(0, x); i < std::min(w_, x + w); ++i)
            at(i, j) = colour;
}

void Compositor::draw(const Picture& pic, const Quad& q)
{
    if (pic.width == 0 || q.width <= 0 || q.height <= 0)
        return;
    float a = degreesToRadians(q.angleDeg);
    float c = std::cos(a), s = std::sin(a);
    float reach = 0.5f * std::sqrt(q.width * q.width + q.height * q.height) + 1;
    int x0 = std::max(0, static_cast<int>(q.cx - reach)), x1 = std::min(w_ - 1, static_cast<int>(q.cx + reach));
    int y0 = std::max(0, static_cast<int>(q.cy - reach)), y1 = std::min(h_ - 1, static_cast<int>(q.cy + reach));
    for (int y = y0; y <= y1; ++y)
        for (int x = x0; x <= x1; ++x) {
            float dx = x + 0.5f - q.cx, dy = y + 0.5f - q.cy;
            // Back into the quad's own frame (screen y points down, angles turn clockwise).
            float lx = c * dx + s * dy, ly = -s * dx + c * dy;
            float fu = lx / q.width + 0.5f, fv = ly / q.height + 0.5f;
            if (fu < 0 || fu > 1 || fv < 0 || fv > 1)
                continue;
            Px t = sampleBilinear(pic, q.u0 + (q.u1 - q.u0) * fu, q.v0 + (q.v1 - q.v0) * fv);
            float alpha = t.a * q.alpha;
            V3 src = V3{t.r, t.g, t.b} * q.tint;
            V3& dst = at(x, y);
            dst = q.blend == Blend::Add ? dst + src * alpha : mix(dst, src, alpha);
        }
}

void Compositor::text(const Picture& font, const std::string& s, float x, float y, float height, V3 colour, float alpha)
{
    float advance = height * font.width / font.height;
    for (size_t i = 0; i < s.size(); ++i) {
        unsigned char ch = static_cast<unsigned char>(s[i]);
        Quad q;
        q.cx = x + advance * (i + 0.5f);
        q.cy = y + height * 0.5f;
        q.width = advance;
        q.height = height;
        q.tint = colour;
        q.alpha = alpha;
        q.u0 = (ch % 16) / 16.0f;
        q.u1 = q.u0 + 1 / 16.0f;
        q.v0 = (ch / 16) / 16.0f;
        q.v1 = q.v0 + 1 / 16.0f;
        draw(font, q);
    }
}

void Compositor::paste(const Compositor& src, int x, int y)
{
    for (int j = 0; j < src.h_; ++j)
        for (int i = 0; i < src.w_; ++i)
            if (x + i >= 0 && y + j >= 0 && x + i < w_ && y + j < h_)
                at(x + i, y + j) = src.px_[static_cast<size_t>(j) * src.w_ + i];
}

Canvas Compositor::toCanvas() const
{
    Canvas c(w_, h_);
    for (int y = 0; y < h_; ++y)
        for (int x = 0; x < w_; ++x) {
            const V3& p = px_[static_cast<size_t>(y) * w_ + x];
            c.at(x, y) = solid({clamp01(p.x), clamp01(p.y), clamp01(p.z)}, 1);
        }
    return c;
}

} // namespace assetgen
