#include "art/Powerup.h"

#include <cmath>

#include "art/Palette.h"
#include "core/Sdf.h"

namespace assetgen {

namespace {

constexpr int kTurns = 4;          // whole turns per loop of 256 frames (2.56 s each)
constexpr int kSubsamples = 3;     // per axis
constexpr float kRadius = 0.62f;   // of the coin, in cell units (cell = [-1, 1])
constexpr float kThickness = 0.12f;

const V3 kLight = normalize({-0.5f, 0.6f, 0.8f});
const V3 kGreen{0.15f, 0.85f, 0.3f};
const V3 kDeepGreen{0.03f, 0.3f, 0.1f};
const V3 kGold{0.9f, 0.95f, 0.7f};

// The embossed emblem on both faces: a plus inside a ring.
float emblem(V2 p)
{
    float plus = opUnion(sdRoundBox(p, {0.3f, 0.085f}, 0.03f), sdRoundBox(p, {0.085f, 0.3f}, 0.03f));
    return opUnion(plus, sdRing(p, 0.45f, 0.035f));
}

struct Hit {
    bool hit = false;
    V3 colour;
    float specular = 0;
};

// Orthographic ray along -z through (x, y) at spin angle a about the vertical axis.
Hit trace(float x, float y, float a)
{
    Hit h;
    float ca = std::cos(a), sa = std::sin(a);
    // Object space: the coin's faces look along +-z, its rim is the circle x^2 + y^2 = R^2.
    // The view ray (x, y, z0 - t) turned by -a about y.
    V3 o{x * ca, y, x * sa};   // ray origin at z = 0 in view space, turned
    V3 d{sa, 0, -ca};          // view direction (0, 0, -1) turned
    float best = 1e9f;
    V3 normal;
    V2 facePoint;
    bool onFace = false;
    // Faces at z = +-thickness.
    for (float zf : {kThickness, -kThickness}) {
        if (std::fabs(d.z) < 1e-6f)
            continue;
        float t = (zf - o.z) / d.z;
        V3 p = o + d * t;
        if (p.x * p.x + p.y * p.y <= kRadius * kRadius && t < best) {
            best = t;
            normal = {0, 0, zf > 0 ? 1.0f : -1.0f};
            facePoint = {p.x / kRadius, p.y / kRadius};
            onFace = true;
        }
    }
    // Rim: the ray moves in x and z only, at constant y.
    float rx2 = kRadius * kRadius - y * y;
    if (rx2 > 0 && std::fabs(d.x) > 1e-6f) {
        for (float sign : {-1.0f, 1.0f}) {
            float px = sign * std::sqrt(rx2);
            float t = (px - o.x) / d.x;
            V3 p = o + d * t;
            if (std::fabs(p.z) <= kThickness && t < best) {
                best = t;
                normal = normalize({p.x, p.y, 0});
                onFace = false;
            }
        }
    }
    if (best > 1e8f)
        return h;
    h.hit = true;
    // Back to view space for the lighting: turn the normal by +a about y.
    V3 n{normal.x * ca + normal.z * sa, normal.y, -normal.x * sa + normal.z * ca};
    V3 albedo = kGreen;
    if (onFace) {
        float e = emblem(facePoint);
        float r = length(facePoint);
        float bevel = smoothstep(1.0f, 0.86f, r);
        // Bevelled border and raised emblem tilt the face normal.
        V2 radial = r > 0 ? facePoint * (1.0f / r) : V2{};
        float tilt = (1 - bevel) * 0.8f;
        V3 local{radial.x * tilt, radial.y * tilt, 1};
        float raised = 1 - smoothstep(-0.02f, 0.02f, e);
        albedo = mix(mix(kDeepGreen, kGreen, 0.45f + 0.55f * (1 - r * r)), kGold, raised);
        local = normalize(local);
        V3 ln{local.x * normal.z, local.y, local.z * normal.z};
        n = normalize(V3{ln.x * ca + ln.z * sa, ln.y, -ln.x * sa + ln.z * ca});
    } else {
        // Milled rim: fine ridges along its edge.
        float ridge = 0.5f + 0.5f * std::sin(std::atan2(normal.y, normal.x) * 40);
        albedo = mix(kDeepGreen, kGreen, 0.5f + 0.3f * ridge);
    }
    float diffuse = std::max(0.0f, dot(n, kLight));
    V3 half = normalize(kLight + V3{0, 0, 1});
    h.specular = std::pow(std::max(0.0f, dot(n, half)), 30.0f);
    h.colour = albedo * (0.3f + 0.9f * diffuse) + V3{0.8f, 1.0f, 0.85f} * (h.specular * 0.9f);
    return h;
}

} // namespace

void makePowerup(AssetSink& sink)
{
    const int size = kPowerupCell * kPowerupColumns;
    Canvas sheet(size, size), glow(size, size);
    for (int f = 0; f < kPowerupFrames; ++f) {
        float a = 2 * kPi * kTurns * f / kPowerupFrames;
        int ox = (f % kPowerupColumns) * kPowerupCell, oy = (f / kPowerupColumns) * kPowerupCell;
        float facing = std::fabs(std::cos(a));
        float flash = 0;
        for (int y = 0; y < kPowerupCell; ++y)
            for (int x = 0; x < kPowerupCell; ++x) {
                Px acc;
                for (int sy = 0; sy < kSubsamples; ++sy)
                    for (int sx = 0; sx < kSubsamples; ++sx) {
                        float u = -1 + (x + (sx + 0.5f) / kSubsamples) * 2.0f / kPowerupCell;
                        float v = 1 - (y + (sy + 0.5f) / kSubsamples) * 2.0f / kPowerupCell;
                        Hit h = trace(u, v, a);
                        if (h.hit) {
                            acc = acc + solid(h.colour, 1);
                            flash = std::max(flash, h.specular);
                        }
                    }
                sheet.at(ox + x, oy + y) = acc * (1.0f / (kSubsamples * kSubsamples));
            }
        // The halo follows the coin's visible width and flares when it catches the light.
        float halfWidth = kRadius * facing + kThickness * std::fabs(std::sin(a)) + 0.08f;
        for (int y = 0; y < kPowerupCell; ++y)
            for (int x = 0; x < kPowerupCell; ++x) {
                float u = -1 + (x + 0.5f) * 2.0f / kPowerupCell, v = 1 - (y + 0.5f) * 2.0f / kPowerupCell;
                // Bright just round the outline, soft outside, faint over the coin's face so
                // its emblem still shows.
                float d = sdEllipse({u, v}, halfWidth, kRadius + 0.04f);
                float halo = d > 0 ? std::exp(-d * d / 0.02f) * 0.5f + std::exp(-d * d / 0.09f) * 0.22f
                                   : std::exp(-d * d / 0.004f) * 0.5f + 0.06f;
                float fade = smoothstep(0.96f, 0.8f, std::max(std::fabs(u), std::fabs(v)));
                glow.addLight(ox + x, oy + y, palette::kPickup * ((halo * (0.8f + 0.4f * flash)) * fade));
            }
    }
    glow.lightToAlpha();
    sink.picture("powerup_anim", sheet);
    sink.picture("powerup_glow_anim", glow);
}

} // namespace assetgen
