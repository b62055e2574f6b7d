#include "art/Hud.h"

#include <cmath>
#include <functional>
#include <vector>

#include "core/Sdf.h"
#include "text/Label.h"

namespace assetgen {

namespace {

// All distances here are in texels of the panel picture (two texels per screen pixel).
const V3 kGlass{0.03f, 0.03f, 0.08f};
const V3 kLine{0.55f, 0.5f, 1.0f};
const V3 kLineDim{0.3f, 0.28f, 0.6f};
constexpr float kGlassAlpha = 0.62f;
const V3 kSheen{0.7f, 0.7f, 1.0f};
constexpr float kSheenAlpha = 0.04f;
constexpr float kBloom = 5.0f;       // texels of light round the bright lines
constexpr float kBloomAlpha = 0.3f;

// One layer of a panel: a shape (distance in texels) and how it is painted. A soft layer
// fades out over `soft` texels outside its shape instead of ending sharply: the light
// that bleeds round bright lines.
struct Layer {
    std::function<float(V2)> shape;
    V3 colour;
    float alpha;
    float soft = 0;
};

Canvas paint(int w, int h, const std::vector<Layer>& layers)
{
    Canvas c(w, h);
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            Px acc;
            for (int sy = 0; sy < 2; ++sy)
                for (int sx = 0; sx < 2; ++sx) {
                    V2 p{x + 0.25f + 0.5f * sx, y + 0.25f + 0.5f * sy};
                    Px px;
                    for (const Layer& l : layers) {
                        float d = l.shape(p);
                        float cov = l.soft > 0 ? std::exp(-std::pow(std::max(d, 0.0f) / l.soft, 2.0f)) : coverage(d, 0.5f);
                        if (cov > 0)
                            px = over(solid(l.colour, l.alpha * cov), px);
                    }
                    acc = acc + px * 0.25f;
                }
            c.at(x, y) = acc;
        }
    return c;
}

// The outline of a shape as a stroke of the given half-width.
std::function<float(V2)> stroke(std::function<float(V2)> shape, float halfWidth)
{
    return [shape, halfWidth](V2 p) { return std::fabs(shape(p)) - halfWidth; };
}

// A dark, see-through glass plate.
Layer glass(std::function<float(V2)> shape) { return {std::move(shape), kGlass, kGlassAlpha}; }

// Angle of q in degrees past fromDeg, in [0, 360).
float anglePast(V2 q, float fromDeg)
{
    float a = radiansToDegrees(std::atan2(q.y, q.x)) - fromDeg;
    return std::fmod(a + 720.0f, 360.0f);
}

// Tick marks round a circle: n + 1 ticks spread over spanDeg from fromDeg (angles grow
// clockwise on screen, 0 pointing right), from radius r0 to r1, of half-width w.
float ticks(V2 p, V2 centre, int n, float r0, float r1, float w, float fromDeg = 0, float spanDeg = 360)
{
    V2 q = p - centre;
    float rel = anglePast(q, fromDeg);
    float step = spanDeg / n;
    float k = std::round(rel / step);
    if (k > n)
        k = rel - spanDeg < 360 - rel ? n : 0;
    float ta = degreesToRadians(fromDeg + k * step);
    V2 dir{std::cos(ta), std::sin(ta)};
    return sdSegment(q, dir * r0, dir * r1, w);
}

// A band of the ring of radius r, spanDeg long from fromDeg.
float arc(V2 p, V2 centre, float r, float halfWidth, float fromDeg, float spanDeg)
{
    V2 q = p - centre;
    float ring = std::fabs(length(q) - r) - halfWidth;
    if (anglePast(q, fromDeg) <= spanDeg)
        return ring;
    auto end = [&](float deg) {
        V2 d{std::cos(degreesToRadians(deg)), std::sin(degreesToRadians(deg))};
        return sdSegment(q, d * (r - halfWidth), d * (r + halfWidth));
    };
    return std::min(end(fromDeg), end(fromDeg + spanDeg));
}

// Score panel: its top and left edges run off the screen; the score and energy lines sit
// on its left part, a row of chevrons decorates the right.
Canvas scorePanel()
{
    auto plate = [](V2 p) { return sdPolygon(p, {{-20, -20}, {392, -20}, {392, 72}, {352, 112}, {-20, 112}}); };
    auto inner = [](V2 p) { return sdPolygon(p, {{-20, -20}, {380, -20}, {380, 66}, {346, 100}, {-20, 100}}); };
    auto chevrons = [](V2 p) {
        float d = 1e9f;
        for (int i = 0; i < 3; ++i) {
            V2 q = p - V2{290.0f + i * 22, 56};
            d = std::min(d, std::min(sdSegment(q, {-7, -12}, {5, 0}, 3.5f), sdSegment(q, {5, 0}, {-7, 12}, 3.5f)));
        }
        return d;
    };
    auto lamps = [](V2 p) {
        float d = 1e9f;
        for (int i = 0; i < 5; ++i)
            d = std::min(d, sdRoundBox(p - V2{262.0f + i * 24, 22}, {8, 3}, 2));
        return d;
    };
    auto sheen = [plate](V2 p) { return std::max(plate(p), p.y - 46); };
    return paint(400, 120, {glass(plate), {sheen, kSheen, kSheenAlpha}, {stroke(plate, 2.0f), kLine, kBloomAlpha, kBloom},
                            {stroke(plate, 2.0f), kLine, 0.95f}, {stroke(inner, 0.8f), kLineDim, 0.7f},
                            {chevrons, kLine, kBloomAlpha, kBloom}, {chevrons, kLine, 0.8f}, {lamps, kLineDim, 0.9f}});
}

const V2 kDialA{96, 92}, kDialB{214, 92};
constexpr float kDialRadius = 50;

// The bar gauges of the weapon dials: arcs round each dial, and the reserve strip.
float barShapes(V2 p)
{
    float d = arc(p, kDialA, kDialRadius - 18, 5, 135, 270);
    d = std::min(d, arc(p, kDialB, kDialRadius - 18, 5, 135, 270));
    return std::min(d, sdRoundBox(p - V2{336, 104}, {40, 6}, 2));
}

Canvas weaponPanel()
{
    // Its left edge runs off the screen; the bottom ends in a chamfered edge just above the
    // screen's border, since the picture stops 10 pixels short of it.
    auto plate = [](V2 p) { return sdPolygon(p, {{-20, 20}, {346, 20}, {392, 66}, {392, 132}, {374, 150}, {-20, 150}}); };
    auto dials = [](V2 p) { return std::min(sdCircle(p - kDialA, kDialRadius), sdCircle(p - kDialB, kDialRadius)); };
    auto dialRims = [dials](V2 p) { return std::fabs(dials(p)) - 2.0f; };
    auto dialTicks = [](V2 p) {
        return std::min(ticks(p, kDialA, 9, kDialRadius - 4, kDialRadius - 10, 1.2f, 135, 270),
                        ticks(p, kDialB, 9, kDialRadius - 4, kDialRadius - 10, 1.2f, 135, 270));
    };
    auto hubs = [](V2 p) { return std::min(sdCircle(p - kDialA, 6), sdCircle(p - kDialB, 6)); };
    auto reserve = [](V2 p) { return sdRoundBox(p - V2{336, 104}, {46, 24}, 6); };
    auto sheen = [plate](V2 p) { return std::max(plate(p), p.y - 70); };
    Canvas panel = paint(400, 160, {glass(plate), {sheen, kSheen, kSheenAlpha}, {stroke(plate, 2.0f), kLine, kBloomAlpha, kBloom},
                                    {stroke(plate, 2.0f), kLine, 0.95f}, {dials, V3{0.01f, 0.01f, 0.03f}, 0.55f},
                                    {dialRims, kLine, kBloomAlpha, kBloom}, {dialRims, kLine, 0.9f},
                                    {dialTicks, kLineDim, 0.9f}, {barShapes, kLineDim, 0.45f}, {hubs, kLine, 0.9f},
                                    {stroke(reserve, 1.5f), kLine, 0.9f}});
    // Engraved names: in each dial's open bottom, and over the reserve window.
    const int labelSize = 12;
    for (auto [name, centre] : {std::pair{"PLASMA", kDialA}, {"LASER", kDialB}})
        drawLabel(panel, name, centre.x - labelWidth(name, labelSize, 1) / 2, centre.y + 33, labelSize, kLineDim, 0.95f, 1);
    drawLabel(panel, "RESERVE", 336 - labelWidth("RESERVE", labelSize, 1) / 2, 72, labelSize, kLineDim, 0.95f, 1);
    return panel;
}

const V2 kRadarCentre{256, 256};
constexpr float kRadarRadius = 228;

Canvas radarPanel()
{
    auto disc = [](V2 p) { return sdCircle(p - kRadarCentre, kRadarRadius); };
    auto bezel = [](V2 p) { return sdRing(p - kRadarCentre, kRadarRadius + 12, 10); };
    auto rings = [](V2 p) {
        V2 q = p - kRadarCentre;
        return std::min(sdRing(q, 76, 1.0f), sdRing(q, 152, 1.0f));
    };
    auto cross = [](V2 p) {
        V2 q = p - kRadarCentre;
        float d = std::min(sdBox(q, {kRadarRadius - 6, 1.0f}), sdBox(q, {1.0f, kRadarRadius - 6}));
        return std::max(d, -sdCircle(q, 14));
    };
    auto minorTicks = [](V2 p) { return ticks(p, kRadarCentre, 72, kRadarRadius + 4, kRadarRadius + 12, 1.0f); };
    auto majorTicks = [](V2 p) { return ticks(p, kRadarCentre, 12, kRadarRadius - 2, kRadarRadius + 18, 2.0f); };
    auto centre = [](V2 p) { return sdRing(p - kRadarCentre, 8, 2); };
    // A still sweep: a wedge of light trailing behind the beam's last position.
    constexpr float kSweepFrom = 230, kSweepSpan = 70;
    auto sweepBeam = [](V2 p) {
        V2 q = p - kRadarCentre;
        float a = degreesToRadians(kSweepFrom + kSweepSpan);
        return sdSegment(q, {0, 0}, V2{std::cos(a), std::sin(a)} * (kRadarRadius - 4), 1.0f);
    };
    Canvas panel = paint(512, 512, {{bezel, V3{0.08f, 0.08f, 0.16f}, 0.85f}, {stroke(bezel, 1.5f), kLine, kBloomAlpha, kBloom},
                                    {stroke(bezel, 1.5f), kLine, 0.9f}, {disc, kGlass, kGlassAlpha},
                                    {rings, kLineDim, 0.75f}, {cross, kLineDim, 0.55f}, {sweepBeam, kLine, 0.8f},
                                    {minorTicks, kLineDim, 0.9f}, {majorTicks, kLine, 0.95f}, {centre, kLine, 0.9f}});
    for (int y = 0; y < 512; ++y)
        for (int x = 0; x < 512; ++x) {
            V2 q = V2{x + 0.5f, y + 0.5f} - kRadarCentre;
            float rel = anglePast(q, kSweepFrom);
            if (rel > kSweepSpan || length(q) > kRadarRadius - 2)
                continue;
            float t = rel / kSweepSpan;
            panel.at(x, y) = over(solid(kLine, 0.22f * t * t), panel.at(x, y));
        }
    return panel;
}

} // namespace

void makeHud(AssetSink& sink)
{
    sink.picture("hud_score", scorePanel());
    sink.picture("hud_power_dials", weaponPanel());
    sink.picture("hud_radar_dials", radarPanel());
    sink.picture("hud_radar_mask",
                 paint(512, 512, {{[](V2 p) { return sdCircle(p - kRadarCentre, kRadarRadius - 2); }, V3{1, 1, 1}, 1.0f}}));
    sink.picture("hud_bars_mask", paint(400, 160, {{barShapes, V3{1, 1, 1}, 1.0f}}));
}

} // namespace assetgen
