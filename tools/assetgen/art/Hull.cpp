#include "art/Hull.h"

#include <cmath>

#include "core/Noise.h"

namespace assetgen {

namespace {

// Key light from the upper left and in front of the viewer; the game turns the ships, so
// it stays mostly overhead and reads right at any heading.
const V3 kLight = normalize({-0.45f, 0.5f, 0.74f});
const V3 kSpace{0.16f, 0.17f, 0.26f};   // ambient from the cool sky
const V3 kSun{1.0f, 0.96f, 0.9f};
constexpr int kSubsamples = 3;          // per axis
constexpr float kOcclusionReach = 1.0f / 50;   // blur of the height field, in picture widths
constexpr float kOcclusionStrength = 10.0f;    // darkening per unit of height below the surroundings
constexpr float kOcclusionFloor = 0.45f;

float bevelProfile(float d, float bevel)
{
    float s = clamp01(-d / bevel);
    return bevel * 0.7f * (1 - (1 - s) * (1 - s));
}

V3 shade(const HullSample& s, V3 n)
{
    const Material& m = s.mat;
    float diffuse = std::max(0.0f, dot(n, kLight));
    V3 h = normalize(kLight + V3{0, 0, 1});
    float specular = std::pow(std::max(0.0f, dot(n, h)), 28.0f) * m.gloss;
    float up = 0.5f + 0.5f * n.z;
    V3 c = m.albedo * (kSpace * (0.6f + 0.8f * up) + kSun * (diffuse * 0.95f)) + kSun * specular;
    if (m.glass > 0) {
        // Glass: dark tint, a sky reflection rising toward the edges, one sharp highlight.
        float fres = std::pow(1 - std::max(0.0f, n.z), 2.0f);
        V3 g = m.albedo * (0.25f + 0.35f * diffuse) + V3{0.35f, 0.4f, 0.6f} * fres;
        g = g + kSun * std::pow(std::max(0.0f, dot(n, h)), 60.0f) * 1.3f;
        c = mix(c, g, m.glass);
    }
    c = c * (1 - 0.6f * s.groove);
    return c + m.emit;
}

} // namespace

void HullBuilder::part(float d, float base, float bevel, const Material& m)
{
    s_.dist = std::min(s_.dist, d);
    inLastPart_ = d < 0;
    if (d >= 0)
        return;
    s_.height = std::max(s_.height, base + bevelProfile(d, bevel));
    s_.mat = m;
    s_.groove = 0;
}

void HullBuilder::seam(float d, float width)
{
    if (s_.dist >= 0)
        return;
    float g = 1 - smoothstep(0.0f, width, std::fabs(d));
    s_.groove = std::max(s_.groove, g);
    s_.height -= g * width * 0.5f;
}

void HullBuilder::paint(float d, V3 colour, float softness)
{
    if (s_.dist >= 0)
        return;
    float t = 1 - smoothstep(-softness, softness, d);
    s_.mat.albedo = mix(s_.mat.albedo, colour, t);
}

void HullBuilder::plating(V2 cell, float seamWidth, float variation)
{
    if (!inLastPart_)
        return;
    V2 m = mirrorX(p_);
    float gx = m.x / cell.x, gy = m.y / cell.y;
    float dx = std::fabs(gx - std::round(gx)) * cell.x, dy = std::fabs(gy - std::round(gy)) * cell.y;
    if (seamWidth > 0)
        seam(std::min(dx, dy), seamWidth);
    // A small integer hash of the plate picks its shade.
    uint32_t h = static_cast<uint32_t>(static_cast<int>(std::floor(gx)) * 73856093) ^
                 static_cast<uint32_t>(static_cast<int>(std::floor(gy)) * 19349663);
    h ^= h >> 13;
    h *= 0x5bd1e995u;
    h ^= h >> 15;
    float shade = 1 + variation * ((h & 1023) / 511.5f - 1);
    s_.mat.albedo = s_.mat.albedo * shade;
}

HullPictures renderHull(int size, const HullDesign& design, const LightDesign& extraLight, const HullStyle& style)
{
    HullPictures out{Canvas(size, size), Canvas(size, size)};
    Canvas emission(size, size);
    Noise grime(style.grimeSeed);
    const float pixel = 2.0f / size;
    const float sub = pixel / kSubsamples;
    // Ambient occlusion: a surface lying below its surroundings (a wing root beside the
    // fuselage, a nozzle in its housing) gets less of the sky's light.
    Canvas heights(size, size);
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            HullSample s = design({-1 + (x + 0.5f) * pixel, 1 - (y + 0.5f) * pixel});
            heights.at(x, y).r = s.dist < 0 ? s.height : 0;
        }
    Canvas surroundings = heights;
    surroundings.blur(size * kOcclusionReach);
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            Px body;
            V3 emit, rim;
            for (int sy = 0; sy < kSubsamples; ++sy)
                for (int sx = 0; sx < kSubsamples; ++sx) {
                    V2 p{-1 + (x + (sx + 0.5f) / kSubsamples) * pixel, 1 - (y + (sy + 0.5f) / kSubsamples) * pixel};
                    HullSample s = design(p);
                    float cov = coverage(s.dist, sub);
                    if (cov <= 0)
                        continue;
                    float hx = design({p.x + sub, p.y}).height - design({p.x - sub, p.y}).height;
                    float hy = design({p.x, p.y + sub}).height - design({p.x, p.y - sub}).height;
                    V3 n = normalize({-hx / (2 * sub), -hy / (2 * sub), 1});
                    float dirt = 0.9f + 0.1f * grime.fbm({p.x * 9, p.y * 9, 0.5f}, 3);
                    V3 c = shade(s, n) * dirt;
                    body = body + solid(c, cov);
                    emit = emit + s.mat.emit * cov;
                    // Rim light: a thin band inside the outline, brightest where the surface
                    // turns away from the viewer.
                    float band = 1 - smoothstep(0.0f, 2.5f * pixel, -s.dist);
                    rim = rim + style.rimLight * (band * cov * (0.4f + 0.6f * (1 - n.z)));
                }
            float inv = 1.0f / (kSubsamples * kSubsamples);
            float occlusion = std::max(kOcclusionFloor, 1 - kOcclusionStrength * std::max(0.0f, surroundings.at(x, y).r - heights.at(x, y).r));
            Px shaded = body * inv;
            out.body.at(x, y) = {shaded.r * occlusion, shaded.g * occlusion, shaded.b * occlusion, shaded.a};
            emission.at(x, y) = solid(emit * inv, 1);
            out.glow.addLight(x, y, rim * (inv * style.rimStrength));
        }
    Canvas halo = emission;
    halo.blur(style.haloSigma);
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x) {
            const Px& e = emission.at(x, y);
            const Px& h = halo.at(x, y);
            V2 p{-1 + (x + 0.5f) * pixel, 1 - (y + 0.5f) * pixel};
            // Free light fades out before the picture's border, so nothing is cut off there.
            float window = smoothstep(1.0f, 0.88f, std::fabs(p.x)) * smoothstep(1.0f, 0.88f, std::fabs(p.y));
            V3 free = extraLight ? extraLight(p) * window : V3{};
            out.glow.addLight(x, y, V3{e.r + 1.6f * h.r, e.g + 1.6f * h.g, e.b + 1.6f * h.b} * 0.8f + free);
        }
    out.glow.lightToAlpha();
    return out;
}

V3 lightDot(V2 p, V2 c, float r, V3 colour)
{
    V2 d = p - c;
    return colour * std::exp(-dot(d, d) / (2 * r * r));
}

V3 lightFlame(V2 p, V2 c, V2 dir, float w, float len, float strength)
{
    V2 d = p - c;
    float along = dot(d, dir);
    float across = d.x * dir.y - d.y * dir.x;
    // A wide soft bloom round the nozzle, warm orange.
    V3 bloom = V3{1.0f, 0.38f, 0.1f} * (0.3f * strength * std::exp(-dot(d, d) / (2 * 6.0f * w * w)));
    if (along < -w * 2)
        return bloom;
    float t = std::max(0.0f, along) / len;
    float width = w * (1.0f - 0.65f * std::min(t, 1.0f)) + 1e-4f;
    float core = std::exp(-(across * across) / (2 * width * width * 0.25f)) * std::exp(-t * t * 3.0f);
    float plume = std::exp(-(across * across) / (2 * width * width)) * std::exp(-t * 2.2f);
    if (along < 0) {
        float back = std::exp(-(along * along) / (2 * w * w * 0.2f));
        core *= back;
        plume *= back;
    }
    V3 hot{1.0f, 0.92f, 0.7f}, orange{1.0f, 0.42f, 0.08f}, red{0.75f, 0.08f, 0.03f};
    V3 tint = t < 0.3f ? mix(hot, orange, t / 0.3f) : mix(orange, red, std::min(1.0f, (t - 0.3f) / 0.7f));
    return (hot * core * 0.9f + tint * plume * 0.7f) * strength + bloom;
}

} // namespace assetgen
