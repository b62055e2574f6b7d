#include "art/Effects.h"

#include <cmath>

#include "core/Sdf.h"

namespace assetgen {

namespace {

constexpr int kStarWidth = 32, kStarHeight = 16;   // drawn up to 22 x 10
constexpr int kBoltSize = 32;                      // drawn 24 or 32
constexpr int kLaserLength = 128, kLaserWidth = 16; // powers of two: the beam repeats along u
constexpr int kReticleSize = 64;                   // drawn 38, its glow 40

template <class F>
Canvas lightField(int w, int h, F light)
{
    Canvas c(w, h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            float u = -1 + (x + 0.5f) * 2.0f / w, v = 1 - (y + 0.5f) * 2.0f / h;
            c.addLight(x, y, V3{1, 1, 1} * light(u, v));
        }
    c.lightToAlpha();
    return c;
}

// Falls to exactly zero at the picture's border, so scaled-down edges stay soft.
float edgeFade(float u, float v) { return smoothstep(0.95f, 0.75f, std::fabs(u)) * smoothstep(0.9f, 0.7f, std::fabs(v)); }

} // namespace

void makeStar(AssetSink& sink)
{
    // A round point of light with a soft halo and only a faint horizontal glint: drawn small and
    // by the hundred, a stronger streak turned the sky into rows of dashes.
    sink.picture("star", lightField(kStarWidth, kStarHeight, [](float u, float v) {
        float core = std::exp(-(u * u / 0.02f + v * v / 0.08f));
        float halo = 0.3f * std::exp(-(u * u / 0.08f + v * v / 0.32f));
        float glint = 0.12f * std::exp(-(u * u / 0.5f + v * v / 0.008f));
        return (core + halo + glint) * edgeFade(u, v);
    }));
}

void makePlasmaBullet(AssetSink& sink)
{
    // Added three times with a violet or green tint: only the small core may reach a third
    // of full light, so the core burns white and the rest stays a tinted falloff.
    sink.picture("plasmabullet", lightField(kBoltSize, kBoltSize, [](float u, float v) {
        float r2 = u * u + v * v;
        float core = 0.95f * std::exp(-r2 / 0.03f);
        float body = 0.45f * std::exp(-r2 / 0.12f);
        float halo = 0.18f * std::exp(-r2 / 0.45f);
        float ring = 0.05f * std::exp(-std::pow((std::sqrt(r2) - 0.42f) / 0.12f, 2.0f));
        return (core + body + halo + ring) * smoothstep(1.0f, 0.8f, std::sqrt(r2));
    }));
}

void makeLaser(AssetSink& sink)
{
    sink.picture("slaser", lightField(kLaserLength, kLaserWidth, [](float u, float v) {
        // u runs along the beam; every ripple has a whole number of periods over the
        // picture so the repeats meet without a seam.
        float phase = (u + 1) * kPi;
        float ripple = 0.85f + 0.1f * std::sin(2 * phase) + 0.05f * std::sin(6 * phase + 1.3f);
        float core = std::exp(-v * v / 0.07f);
        float body = 0.5f * std::exp(-v * v / 0.22f);
        float halo = 0.2f * std::exp(-v * v / 0.6f);
        return (core + (body + halo) * ripple) * smoothstep(1.0f, 0.8f, std::fabs(v));
    }));
}

void makeReticle(AssetSink& sink)
{
    // A ring broken where four ticks point at the centre, a dot, and four corner brackets.
    auto shape = [](V2 p) {
        float a = std::atan2(p.y, p.x);
        float fromAxis = std::fabs(a - (kPi / 2) * std::round(a / (kPi / 2)));
        float ring = fromAxis < 0.26f ? 1e9f : sdRing(p, 0.52f, 0.045f);
        float fromDiagonal = std::fabs(a - kPi / 4 - (kPi / 2) * std::round((a - kPi / 4) / (kPi / 2)));
        float brackets = fromDiagonal > 0.32f ? 1e9f : sdRing(p, 0.82f, 0.05f);
        float d = opUnion(ring, brackets);
        for (int i = 0; i < 4; ++i) {
            V2 q = rotate(p, i * kPi / 2);
            d = opUnion(d, sdSegment(q, {0, 0.26f}, {0, 0.66f}, 0.045f));
        }
        return opUnion(d, sdCircle(p, 0.07f));
    };
    Canvas mark(kReticleSize, kReticleSize);
    float pixel = 2.0f / kReticleSize;
    for (int y = 0; y < kReticleSize; ++y)
        for (int x = 0; x < kReticleSize; ++x) {
            V2 p{-1 + (x + 0.5f) * pixel, 1 - (y + 0.5f) * pixel};
            float d = shape(p);
            // Pale violet-white strokes with a thin dark edge that keeps them readable
            // over bright explosions.
            Px fill = solid({0.88f, 0.86f, 1.0f}, coverage(d, pixel));
            Px edge = solid({0.05f, 0.04f, 0.12f}, 0.8f * coverage(d - 1.6f * pixel, pixel));
            mark.at(x, y) = over(fill, edge);
        }
    sink.picture("reticle", mark);

    Canvas glow(kReticleSize, kReticleSize);
    for (int y = 0; y < kReticleSize; ++y)
        for (int x = 0; x < kReticleSize; ++x) {
            // The glow is drawn 40 wide against the mark's 38: scale so the shapes line up.
            V2 p{(-1 + (x + 0.5f) * pixel) * 40.0f / 38.0f, (1 - (y + 0.5f) * pixel) * 40.0f / 38.0f};
            float d = std::max(0.0f, shape(p));
            float light = std::exp(-d * d / 0.0015f) * 0.7f + std::exp(-d * d / 0.008f) * 0.25f;
            glow.addLight(x, y, V3{0.55f, 0.45f, 1.0f} * (light * smoothstep(1.0f, 0.85f, length(p) * 38.0f / 40.0f)));
        }
    glow.lightToAlpha();
    sink.picture("reticle_glow", glow);
}

} // namespace assetgen
