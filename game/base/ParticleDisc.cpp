#include "base/ParticleDisc.h"

#include "graphics/Color.h"
#include "graphics/Image.h"
#include "math/scalar.h"
#include "math/vec2.h"

#include <cstdlib>

using vorlik::Color;

namespace {
constexpr uint16_t kOpaque = 255;
constexpr int kRedShift = 16; // bit positions in 0xRRGGBB
constexpr int kGreenShift = 8;
constexpr int kBlueShift = 0;

// One channel of two 0xRRGGBB colours, eased from the rim's value toward the centre's by f in
// [0, 1], fraction dropped.
uint16_t channel(uint32_t rim, uint32_t centre, int shift, float f)
{
    const float a = static_cast<float>((rim >> shift) & 0xFFu);
    const float b = static_cast<float>((centre >> shift) & 0xFFu);
    return static_cast<uint16_t>(vorlik::smoothLerp(f, a, b));
}
} // namespace

void drawDisc(vorlik::Image& image, int32_t cx, int32_t cy, int32_t radius, uint32_t rimRgb,
              uint32_t centreRgb)
{
    const float r = static_cast<float>(radius);
    for (int32_t y = cy - radius; y < cy + radius; ++y) {
        for (int32_t x = cx - radius; x < cx + radius; ++x) {
            const float d = vorlik::vec2(static_cast<float>(std::abs(x - cx)),
                                         static_cast<float>(std::abs(y - cy))).length();
            if (d > r) continue;
            const float f = 1.0f - d / r; // 1 at the centre, 0 on the rim
            image.setPixel(x, y, Color::pack(channel(rimRgb, centreRgb, kRedShift, f),
                                             channel(rimRgb, centreRgb, kGreenShift, f),
                                             channel(rimRgb, centreRgb, kBlueShift, f), kOpaque));
        }
    }
}
