#include "art/Sky.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "core/Noise.h"
#include "core/Rng.h"

namespace assetgen {

namespace {

constexpr uint64_t kNebulaSeed = 0x4e45425541ull;
constexpr uint64_t kStarSeed = 0x53544152ull;
constexpr int kStars = 9000;
constexpr float kHaloFrom = 0.45f;  // stars brighter than this get a soft glow
constexpr float kHaloWidth = 5.0f;  // the glow's width in star radii
constexpr int kDriftStep = 3;  // texels between samples of the slow fields; divides 1023
constexpr float kCloudLight = 0.55f;
constexpr float kFilamentLight = 0.7f;

const V3 kDeepSpace{0.006f, 0.007f, 0.018f};
const V3 kViolet{0.36f, 0.11f, 0.52f};
const V3 kTeal{0.07f, 0.24f, 0.46f};
const V3 kRose{0.62f, 0.24f, 0.42f};
// The nebula gathers about a tilted band round the sky, like a galaxy's plane.
const V3 kBandAxis = normalize({0.35f, 0.8f, -0.45f});

// The slowly varying part of the nebula: how space is warped and which hue it takes.
struct Drift {
    V3 warp;
    float hue = 0;
};

Drift drift(const Noise& n, V3 d)
{
    Drift f;
    f.warp = {n.fbm(d * 1.3f + V3{3.1f, 0, 0}, 3), n.fbm(d * 1.3f + V3{0, 7.7f, 0}, 3), n.fbm(d * 1.3f + V3{0, 0, 5.3f}, 3)};
    V3 q = d * 1.7f + f.warp * 0.75f;
    f.hue = smoothstep(-0.35f, 0.35f, n.fbm(q * 0.8f + V3{4.0f, 1.0f, 8.0f}, 3));
    return f;
}

V3 nebula(const Noise& n, V3 d, const Drift& f)
{
    V3 q = d * 1.7f + f.warp * 0.75f;
    float band = std::exp(-std::pow(dot(d, kBandAxis) + 0.25f * f.warp.x, 2.0f) / 0.25f);
    float density = smoothstep(-0.15f, 0.65f, n.fbm(q * 2.1f, 6) + 0.35f * band);
    float dust = smoothstep(0.0f, 0.45f, n.fbm(q * 3.3f + V3{9.1f, 2.2f, 4.4f}, 4));
    float filaments = std::pow(n.ridged(q * 3.2f + V3{1.7f, 5.5f, 2.9f}, 4), 5.0f);
    V3 colour = mix(kViolet, kTeal, f.hue);
    float cloud = density * density * (0.45f + 0.55f * band) * (1 - 0.75f * dust);
    return kDeepSpace + colour * (cloud * kCloudLight) +
           mix(kRose, V3{0.35f, 0.45f, 0.9f}, f.hue) * (filaments * cloud * kFilamentLight);
}

struct SkyStar {
    V3 dir;
    V3 colour;
    float radius; // texels
    float halo;   // strength of a wide soft glow round the brightest stars, 0 for most
};

std::vector<SkyStar> skyStars()
{
    Rng rng(kStarSeed);
    std::vector<SkyStar> stars;
    stars.reserve(kStars);
    for (int i = 0; i < kStars; ++i) {
        V3 d;
        do
            d = {rng.uniform(-1, 1), rng.uniform(-1, 1), rng.uniform(-1, 1)};
        while (dot(d, d) > 1 || dot(d, d) < 1e-4f);
        float bright = std::pow(rng.unit(), 6.0f) * 0.9f + 0.05f;
        float warmth = rng.unit();
        V3 tint = warmth < 0.5f ? mix(V3{0.7f, 0.8f, 1.0f}, V3{1, 1, 1}, warmth * 2) : mix(V3{1, 1, 1}, V3{1.0f, 0.85f, 0.65f}, warmth * 2 - 1);
        float halo = bright > kHaloFrom ? 0.12f * (bright - kHaloFrom) / (1 - kHaloFrom) : 0.0f;
        stars.push_back({normalize(d), tint * bright, 0.55f + 0.6f * bright, halo});
    }
    return stars;
}

} // namespace

void makeSkyFace(AssetSink& sink, CubeFace face)
{
    static const Noise noise(kNebulaSeed);
    Canvas c(kSkySize, kSkySize);
    const float step = 2.0f / (kSkySize - 1);
    // The slow fields on a coarse grid that also lies on the face's edges, so neighbouring
    // faces interpolate the same values along the edge they share.
    const int grid = (kSkySize - 1) / kDriftStep + 1;
    std::vector<Drift> coarse(static_cast<size_t>(grid) * grid);
    for (int j = 0; j < grid; ++j)
        for (int i = 0; i < grid; ++i)
            coarse[static_cast<size_t>(j) * grid + i] =
                drift(noise, normalize(faceDirection(face, -1 + i * kDriftStep * step, -1 + j * kDriftStep * step)));
    for (int y = 0; y < kSkySize; ++y)
        for (int x = 0; x < kSkySize; ++x) {
            int i = std::min(x / kDriftStep, grid - 2), j = std::min(y / kDriftStep, grid - 2);
            float fx = (x - i * kDriftStep) / static_cast<float>(kDriftStep);
            float fy = (y - j * kDriftStep) / static_cast<float>(kDriftStep);
            const Drift& a = coarse[static_cast<size_t>(j) * grid + i];
            const Drift& b = coarse[static_cast<size_t>(j) * grid + i + 1];
            const Drift& e = coarse[static_cast<size_t>(j + 1) * grid + i];
            const Drift& g = coarse[static_cast<size_t>(j + 1) * grid + i + 1];
            Drift f;
            f.warp = mix(mix(a.warp, b.warp, fx), mix(e.warp, g.warp, fx), fy);
            f.hue = mixf(mixf(a.hue, b.hue, fx), mixf(e.hue, g.hue, fx), fy);
            V3 d = normalize(faceDirection(face, -1 + x * step, -1 + y * step));
            c.at(x, y) = solid(nebula(noise, d, f), 1);
        }
    // Stars are splatted wherever they land near this face, also just beyond its edges, so
    // a star on an edge shows on both faces.
    for (const SkyStar& star : skyStars()) {
        V3 onFace = faceDirection(face, 0, 0);
        float facing = dot(star.dir, onFace);
        if (facing <= 0)
            continue;
        V3 local = star.dir * (1.0f / facing);
        V3 sAxis = faceDirection(face, 1, 0) - onFace, tAxis = faceDirection(face, 0, 1) - onFace;
        float px = (dot(local, sAxis) + 1) / step, py = (dot(local, tAxis) + 1) / step;
        // Texels cover less angle toward the edges, so the reach allows twice the radius.
        int reach = static_cast<int>(std::ceil(star.radius * (star.halo > 0 ? 6 * kHaloWidth : 6))) + 1;
        if (px < -reach || py < -reach || px > kSkySize + reach || py > kSkySize + reach)
            continue;
        // The weight depends on the angle between the texel's direction and the star's,
        // so a star on an edge lights both faces' edge texels alike.
        const float sigma = star.radius * step;
        for (int y = static_cast<int>(py) - reach; y <= static_cast<int>(py) + reach; ++y)
            for (int x = static_cast<int>(px) - reach; x <= static_cast<int>(px) + reach; ++x) {
                if (x < 0 || y < 0 || x >= kSkySize || y >= kSkySize)
                    continue;
                V3 d = normalize(faceDirection(face, -1 + x * step, -1 + y * step)) - star.dir;
                float w = std::exp(-dot(d, d) / (2 * sigma * sigma));
                if (star.halo > 0)
                    w += star.halo * std::exp(-dot(d, d) / (2 * kHaloWidth * kHaloWidth * sigma * sigma));
                Px& p = c.at(x, y);
                p.r += star.colour.x * w;
                p.g += star.colour.y * w;
                p.b += star.colour.z * w;
            }
    }
    for (int y = 0; y < kSkySize; ++y)
        for (int x = 0; x < kSkySize; ++x) {
            Px& p = c.at(x, y);
            p = {clamp01(p.r), clamp01(p.g), clamp01(p.b), 1};
        }
    sink.picture(faceName(face), c);
}

} // namespace assetgen
