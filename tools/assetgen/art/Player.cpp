#include "art/Player.h"

#include <cmath>

#include "art/Hull.h"
#include "art/Palette.h"

namespace assetgen {

namespace {

using namespace palette;

// Layers are drawn 64 pixels wide and authored at twice that.
constexpr int kLayerSize = 128;
constexpr int kGlowBotSize = 120;  // drawn 60
constexpr int kGlowTopSize = 144;  // drawn 72
constexpr int kBlades = 10;
constexpr int kPanels = 8;

// Angle of p folded into one sector of n around the centre, in (-pi/n, pi/n].
float sectorAngle(V2 p, int n, float twist)
{
    float sector = 2 * kPi / n;
    float a = std::atan2(p.x, p.y) - twist;
    return a - sector * std::round(a / sector);
}

HullSample turbine(V2 p)
{
    HullBuilder b(p);
    float r = length(p);
    float delta = sectorAngle(p, kBlades, 0.9f * (r - 0.3f));
    float blade = (std::fabs(delta) - 0.13f) * r;
    b.part(opIntersect(blade, sdRing(p, 0.62f, 0.3f)), 0.0f, 0.05f, paleHull());
    b.seam(delta * r + 0.03f, 0.012f);
    b.part(sdRing(p, 0.9f, 0.045f), 0.03f, 0.03f, indigo());
    b.part(sdCircle(p, 0.36f), 0.02f, 0.1f, indigo());
    for (int i = 0; i < 6; ++i) {
        V2 bolt = rotate({0, 0.27f}, i * kPi / 3);
        b.part(sdCircle(p - bolt, 0.03f), 0.08f, 0.02f, steel());
    }
    return b.sample();
}

HullSample panels(V2 p)
{
    HullBuilder b(p);
    float r = length(p);
    float delta = sectorAngle(p, kPanels, 0);
    b.part(sdCircle(p, 0.56f), 0.0f, 0.05f, indigo());
    float panel = opIntersect((0.3f - std::fabs(delta)) * -r, sdRing(p, 0.66f, 0.13f));
    b.part(panel, 0.03f, 0.06f, violetHull());
    b.seam(std::fabs(r - 0.66f), 0.01f);
    Material lamp = paleHull();
    lamp.emit = kPlayerLight * 0.6f;
    b.part(sdCircle(V2{delta * r, r} - V2{0, 0.72f}, 0.035f), 0.08f, 0.02f, lamp);
    return b.sample();
}

HullSample hull(V2 p)
{
    HullBuilder b(p);
    V2 m = mirrorX(p);
    b.part(sdCircle(p, 0.5f), 0.02f, 0.28f, paleHull());
    for (int i = 1; i < 6; ++i) {
        V2 q = rotate(p, i * kPi / 3);
        b.seam(std::fabs(q.x) + (q.y < 0.3f ? 1.0f : 0.0f), 0.012f);
    }
    // A raised spine runs from the canopy to the stern, and strakes with light strips
    // line both flanks: the craft reads as pointing forward.
    b.part(sdSegment(p, {0, -0.02f}, {0, -0.47f}, 0.05f), 0.12f, 0.04f, violetHull());
    b.part(sdSegment(m, {0.4f, 0.16f}, {0.36f, -0.24f}, 0.045f), 0.08f, 0.04f, violetHull());
    Material strip = paleHull();
    strip.emit = kPlayerLight * 0.7f;
    b.part(sdSegment(m, {0.4f, 0.1f}, {0.37f, -0.18f}, 0.014f), 0.12f, 0.01f, strip);
    b.part(sdPolygon(m, {{0.0f, 0.6f}, {0.16f, 0.42f}, {0.1f, 0.36f}, {0.0f, 0.46f}}), 0.1f, 0.04f, violetHull());
    b.part(sdEllipse(p - V2{0, 0.13f}, 0.12f, 0.22f), 0.18f, 0.08f, playerGlass());
    return b.sample();
}

V3 bottomHalo(V2 p)
{
    // In glow coordinates: the picture spans 60 drawn pixels, the turbine's blade tips sit
    // at about 26 of them from the centre.
    float r = length(p);
    float tipRadius = 0.86f;
    float ring = std::exp(-std::pow((r - tipRadius) / 0.07f, 2.0f));
    float delta = sectorAngle(p, kBlades, 0.9f * (r * 30.0f / 32.0f - 0.3f));
    float spots = std::exp(-std::pow(delta / 0.12f, 2.0f));
    return kPlayerLight * (ring * (0.35f + 0.75f * spots)) + kPlayerLight * (0.25f * std::exp(-r * r / 0.3f));
}

V3 topHalo(V2 p)
{
    // Drawn 72 pixels across over a 64-pixel craft: the rim of the craft is at 0.89.
    float r = length(p);
    float halo = std::exp(-std::pow((r - 0.84f) / 0.08f, 2.0f));
    V3 light = kPlayerLight * (halo * 0.55f);
    light = light + lightDot(p, {0, 0.09f}, 0.09f, V3{0.4f, 0.55f, 1.0f} * 0.5f);
    for (int i = 0; i < 4; ++i)
        light = light + lightDot(p, rotate({0, 0.6f}, kPi / 4 + i * kPi / 2), 0.04f, kPlayerLight * 0.5f);
    return light;
}

Canvas lightPicture(int size, V3 (*light)(V2))
{
    Canvas c(size, size);
    float pixel = 2.0f / size;
    for (int y = 0; y < size; ++y)
        for (int x = 0; x < size; ++x)
        {
            V2 p{-1 + (x + 0.5f) * pixel, 1 - (y + 0.5f) * pixel};
            // Halos fade to nothing before the picture's border.
            c.addLight(x, y, light(p) * smoothstep(1.0f, 0.9f, length(p)));
        }
    c.lightToAlpha();
    return c;
}

} // namespace

void makePlayer(AssetSink& sink)
{
    // The layers carry no rim light of their own: the two halos light the craft.
    HullStyle style;
    style.rimStrength = 0.0f;
    sink.picture("player_bot", renderHull(kLayerSize, turbine, nullptr, style).body);
    sink.picture("player_mid", renderHull(kLayerSize, panels, nullptr, style).body);
    sink.picture("player_top", renderHull(kLayerSize, hull, nullptr, style).body);
    sink.picture("player_glow_bot", lightPicture(kGlowBotSize, bottomHalo));
    sink.picture("player_glow_top", lightPicture(kGlowTopSize, topHalo));
}

} // namespace assetgen
