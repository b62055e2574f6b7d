#include "art/Logo.h"

#include <cmath>
#include <string>

#include "text/FontFace.h"

namespace assetgen {

namespace {

constexpr int kWidth = 1024, kHeight = 256;
constexpr int kEm = 168;
constexpr float kTracking = 10;  // extra pixels between letters
const char* const kTitle = "KELVANE";

// Rasterises the title centred on the picture into a one-channel coverage canvas (in r).
Canvas letters()
{
    Canvas cov(kWidth, kHeight);
    FontFace face("DejaVuSans-Bold.ttf");
    face.setPixelSize(kEm);
    std::string text = kTitle;
    float width = -kTracking;
    for (char ch : text)
        width += face.advance(static_cast<uint8_t>(ch)) + kTracking;
    float pen = (kWidth - width) / 2;
    float baseline = kHeight / 2 + kEm * 0.36f;
    for (char ch : text) {
        Glyph g = face.glyph(static_cast<uint8_t>(ch));
        for (int y = 0; y < g.height; ++y)
            for (int x = 0; x < g.width; ++x) {
                int px = static_cast<int>(pen) + g.left + x, py = static_cast<int>(baseline) - g.top + y;
                if (px >= 0 && py >= 0 && px < kWidth && py < kHeight)
                    cov.at(px, py).r = std::max(cov.at(px, py).r, g.coverage[static_cast<size_t>(y) * g.width + x] / 255.0f);
            }
        pen += g.advance + kTracking;
    }
    return cov;
}

} // namespace

void makeLogo(AssetSink& sink)
{
    Canvas cov = letters();
    Canvas relief = cov;
    relief.blur(3.0f);
    Canvas edge = cov;
    edge.blur(2.0f);
    Canvas halo = cov;
    halo.blur(14.0f);
    const V3 light = normalize({-0.4f, 0.7f, 0.6f});
    Canvas out(kWidth, kHeight);
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            auto h = [&](int sx, int sy) {
                sx = std::min(kWidth - 1, std::max(0, sx));
                sy = std::min(kHeight - 1, std::max(0, sy));
                return relief.at(sx, sy).r;
            };
            V3 n = normalize({(h(x - 1, y) - h(x + 1, y)) * 4, (h(x, y + 1) - h(x, y - 1)) * 4, 1});
            float t = static_cast<float>(y - kHeight * 0.25f) / (kHeight * 0.5f);
            V3 fill = mix(V3{0.92f, 0.9f, 1.0f}, V3{0.42f, 0.28f, 0.92f}, clamp01(t));
            float diffuse = std::max(0.0f, dot(n, light));
            float specular = std::pow(std::max(0.0f, dot(n, normalize(light + V3{0, 0, 1}))), 24.0f);
            V3 c = fill * (0.55f + 0.55f * diffuse) + V3{1, 1, 1} * (specular * 0.6f);
            float letter = cov.at(x, y).r;
            float rim = clamp01(edge.at(x, y).r * 3.0f);
            float glow = clamp01(halo.at(x, y).r * 1.6f);
            float flare = 0.35f * std::exp(-std::pow((y - kHeight * 0.5f) / 5.0f, 2.0f)) *
                          std::exp(-std::pow((x - kWidth * 0.5f) / (kWidth * 0.32f), 2.0f));
            Px back = solid({0.35f, 0.25f, 0.95f}, clamp01(glow * 0.7f + flare));
            Px outline = over(solid({0.03f, 0.02f, 0.08f}, rim), back);
            out.at(x, y) = over(solid(c, letter), outline);
        }
    sink.picture("title", out);
}

} // namespace assetgen
