#include "art/Enemies.h"

#include <cmath>

#include "art/Palette.h"

namespace assetgen {

namespace {

using namespace palette;

// A polygon symmetric about the vertical axis from its right half, listed nose to tail.
std::vector<V2> symmetric(std::initializer_list<V2> rightHalf)
{
    std::vector<V2> poly(rightHalf);
    for (auto it = rightHalf.end(); it != rightHalf.begin();) {
        --it;
        if (it->x > 0)
            poly.push_back({-it->x, it->y});
    }
    return poly;
}

V3 glowAt(V2 p, std::initializer_list<V2> lights, float r, V3 colour)
{
    V3 sum;
    for (V2 c : lights)
        sum = sum + lightDot(p, c, r, colour) + lightDot(p, c, r * 3.5f, colour * 0.25f);
    return sum;
}

// Sizes are about twice the drawn size: the fighter is drawn 96, fighter2 and hammerhead
// 136 (the second hammerhead type 172), the probe 82 and 96, probe3 116.

EnemyArt fighter()
{
    static const auto body = symmetric({{0, 0.92f}, {0.07f, 0.72f}, {0.15f, 0.3f}, {0.17f, -0.2f}, {0.15f, -0.52f}, {0.1f, -0.6f}});
    static const auto wing = symmetric({{0.1f, 0.28f}, {0.5f, -0.08f}, {0.8f, -0.34f}, {0.79f, -0.47f}, {0.55f, -0.45f}, {0.1f, -0.44f}});
    static const auto canard = symmetric({{0.1f, 0.56f}, {0.3f, 0.36f}, {0.3f, 0.3f}, {0.1f, 0.36f}});
    EnemyArt art;
    art.name = "enemy_fighter";
    art.size = 192;
    art.design = [](V2 p) {
        HullBuilder b(p);
        V2 m = mirrorX(p);
        b.part(sdPolygon(p, wing), 0.0f, 0.05f, crimson());
        b.plating({0.18f, 0.16f}, 0.006f, 0.08f);
        b.seam(sdSegment(m, {0.22f, 0.1f}, {0.62f, -0.28f}), 0.012f);
        b.seam(std::fabs(m.y + 0.3f) - 0.0f + (m.x < 0.2f ? 1.0f : 0.0f), 0.01f);
        b.paint(sdSegment(m, {0.42f, -0.34f}, {0.7f, -0.4f}, 0.018f), rust().albedo, 0.006f);
        b.part(sdSegment(m, {0.76f, -0.08f}, {0.76f, -0.5f}, 0.045f), 0.03f, 0.04f, steel());
        b.part(sdPolygon(p, canard), 0.02f, 0.03f, steel());
        b.part(sdPolygon(p, body), 0.04f, 0.14f, steel());
        b.plating({0.5f, 0.2f}, 0.006f, 0.06f);
        b.seam(sdBox(p - V2{0, -0.15f}, {0.1f, 0.3f}), 0.01f);
        b.paint(sdBox(m - V2{0.13f, 0.05f}, {0.02f, 0.12f}), darkSteel().albedo, 0.01f);
        for (int i = 0; i < 3; ++i)
            b.paint(sdRoundBox(m - V2{0.06f, -0.22f - i * 0.06f}, {0.03f, 0.012f}, 0.006f), V3{0.08f, 0.08f, 0.09f}, 0.004f);
        b.part(sdRoundBox(p - V2{0, -0.55f}, {0.13f, 0.09f}, 0.04f), 0.06f, 0.04f, darkSteel());
        b.part(sdRoundBox(p - V2{0, -0.64f}, {0.08f, 0.035f}, 0.02f), 0.05f, 0.02f, nozzle());
        b.part(sdEllipse(p - V2{0, 0.38f}, 0.065f, 0.17f), 0.12f, 0.06f, enemyGlass());
        return b.sample();
    };
    art.lights = [](V2 p) {
        return lightFlame(p, {0, -0.66f}, {0, -1}, 0.075f, 0.3f, 1.0f) +
               glowAt(p, {{0.76f, -0.06f}, {-0.76f, -0.06f}}, 0.02f, kEnemyLight);
    };
    art.style.grimeSeed = 101;
    return art;
}

EnemyArt fighter2()
{
    static const auto body = symmetric({{0, 0.88f}, {0.1f, 0.72f}, {0.19f, 0.36f}, {0.21f, -0.2f}, {0.15f, -0.5f}, {0, -0.56f}});
    static const auto wing = symmetric({{0.14f, -0.02f}, {0.78f, 0.36f}, {0.9f, 0.3f}, {0.88f, 0.18f}, {0.4f, -0.42f}, {0.14f, -0.42f}});
    EnemyArt art;
    art.name = "enemy_fighter2";
    art.size = 256;
    art.design = [](V2 p) {
        HullBuilder b(p);
        V2 m = mirrorX(p);
        b.part(sdPolygon(p, wing), 0.0f, 0.05f, crimson());
        b.plating({0.2f, 0.15f}, 0.006f, 0.08f);
        b.seam(sdSegment(m, {0.3f, -0.05f}, {0.8f, 0.25f}), 0.01f);
        b.seam(sdSegment(m, {0.45f, -0.3f}, {0.62f, 0.15f}), 0.01f);
        b.paint(sdSegment(m, {0.55f, 0.2f}, {0.85f, 0.26f}, 0.02f), rust().albedo, 0.006f);
        b.part(sdSegment(m, {0.86f, 0.2f}, {0.86f, 0.56f}, 0.028f), 0.03f, 0.03f, darkSteel());
        b.part(sdSegment(m, {0.31f, 0.16f}, {0.31f, -0.58f}, 0.1f), 0.03f, 0.11f, steel());
        b.part(sdCircle(m - V2{0.31f, 0.17f}, 0.06f), 0.08f, 0.03f, darkSteel());
        b.seam(std::fabs(m.y + 0.2f) + (std::fabs(m.x - 0.31f) > 0.09f ? 1.0f : 0.0f), 0.01f);
        b.part(sdRoundBox(m - V2{0.31f, -0.64f}, {0.08f, 0.05f}, 0.03f), 0.05f, 0.03f, nozzle());
        b.part(sdPolygon(p, body), 0.05f, 0.14f, darkSteel());
        b.plating({0.6f, 0.18f}, 0.006f, 0.08f);
        b.paint(sdBox(p - V2{0, 0.05f}, {0.05f, 0.35f}), crimson().albedo, 0.01f);
        b.seam(sdBox(p - V2{0, -0.1f}, {0.14f, 0.25f}), 0.01f);
        b.part(sdEllipse(p - V2{0, 0.45f}, 0.08f, 0.17f), 0.13f, 0.06f, enemyGlass());
        return b.sample();
    };
    art.lights = [](V2 p) {
        return lightFlame(p, {0.31f, -0.68f}, {0, -1}, 0.075f, 0.3f, 1.0f) +
               lightFlame(p, {-0.31f, -0.68f}, {0, -1}, 0.075f, 0.3f, 1.0f) +
               glowAt(p, {{0.86f, 0.58f}, {-0.86f, 0.58f}}, 0.018f, kEnemyLight);
    };
    art.style.grimeSeed = 102;
    return art;
}

EnemyArt hammerhead()
{
    static const auto neck = symmetric({{0, 0.6f}, {0.2f, 0.52f}, {0.25f, 0.05f}, {0.33f, -0.32f}, {0.28f, -0.6f}, {0, -0.64f}});
    EnemyArt art;
    art.name = "enemy_hammerhead";
    art.size = 256;
    art.design = [](V2 p) {
        HullBuilder b(p);
        V2 m = mirrorX(p);
        b.part(sdRoundBox(m - V2{0.42f, -0.28f}, {0.13f, 0.3f}, 0.07f), 0.02f, 0.07f, crimson());
        b.plating({1.0f, 0.15f}, 0.006f, 0.1f);
        b.seam(std::fabs(m.y + 0.28f) + (std::fabs(m.x - 0.42f) > 0.12f ? 1.0f : 0.0f), 0.01f);
        b.part(sdRoundBox(m - V2{0.42f, -0.6f}, {0.075f, 0.04f}, 0.02f), 0.05f, 0.02f, nozzle());
        b.part(sdPolygon(p, neck), 0.04f, 0.16f, darkSteel());
        b.plating({0.6f, 0.16f}, 0.006f, 0.08f);
        b.seam(sdBox(p - V2{0, -0.1f}, {0.16f, 0.4f}), 0.01f);
        b.paint(sdBox(p - V2{0, -0.1f}, {0.04f, 0.4f}), crimson().albedo, 0.01f);
        for (int i = 0; i < 4; ++i)
            b.paint(sdRoundBox(m - V2{0.11f, 0.28f - i * 0.07f}, {0.035f, 0.014f}, 0.007f), V3{0.06f, 0.06f, 0.07f}, 0.004f);
        b.part(sdRoundBox(p - V2{0, -0.66f}, {0.1f, 0.045f}, 0.02f), 0.06f, 0.02f, nozzle());
        float head = smoothUnion(sdRoundBox(p - V2{0, 0.6f}, {0.8f, 0.12f}, 0.1f), sdCircle(m - V2{0.78f, 0.6f}, 0.17f), 0.06f);
        b.part(head, 0.06f, 0.12f, crimson());
        b.plating({0.14f, 1.0f}, 0.0f, 0.08f);
        b.paint(sdSegment(m, {0.3f, 0.69f}, {0.6f, 0.69f}, 0.012f), rust().albedo, 0.004f);
        b.seam(std::fabs(m.x - 0.5f) + (std::fabs(p.y - 0.6f) > 0.11f ? 1.0f : 0.0f), 0.01f);
        b.seam(std::fabs(m.x - 0.22f) + (std::fabs(p.y - 0.6f) > 0.11f ? 1.0f : 0.0f), 0.01f);
        b.part(sdCircle(m - V2{0.78f, 0.6f}, 0.085f), 0.14f, 0.05f, enemyEye());
        b.part(sdRoundBox(p - V2{0, 0.62f}, {0.13f, 0.055f}, 0.05f), 0.15f, 0.05f, enemyGlass());
        return b.sample();
    };
    art.lights = [](V2 p) {
        return lightFlame(p, {0, -0.7f}, {0, -1}, 0.09f, 0.28f, 1.0f) +
               lightFlame(p, {0.42f, -0.63f}, {0, -1}, 0.07f, 0.3f, 0.9f) +
               lightFlame(p, {-0.42f, -0.63f}, {0, -1}, 0.07f, 0.3f, 0.9f) +
               glowAt(p, {{0.78f, 0.6f}, {-0.78f, 0.6f}}, 0.04f, kEnemyLight);
    };
    art.style.grimeSeed = 103;
    return art;
}

EnemyArt probe()
{
    static const auto fin = symmetric({{0.4f, 0.12f}, {0.78f, -0.22f}, {0.74f, -0.3f}, {0.4f, -0.2f}});
    EnemyArt art;
    art.name = "enemy_probe";
    art.size = 160;
    art.design = [](V2 p) {
        HullBuilder b(p);
        V2 m = mirrorX(p);
        // Two bent mandibles reach forward round the eye.
        float claw = smoothUnion(sdSegment(m, {0.26f, 0.3f}, {0.42f, 0.6f}, 0.065f),
                                 sdSegment(m, {0.42f, 0.6f}, {0.28f, 0.86f}, 0.035f), 0.04f);
        b.part(claw, 0.02f, 0.06f, steel());
        b.seam(std::fabs(m.y - 0.5f) + (std::fabs(m.x - 0.38f) > 0.07f ? 1.0f : 0.0f), 0.01f);
        b.part(sdPolygon(p, fin), 0.0f, 0.04f, crimson());
        b.part(sdRoundBox(m - V2{0.22f, -0.5f}, {0.08f, 0.1f}, 0.04f), 0.02f, 0.05f, darkSteel());
        b.part(sdRoundBox(m - V2{0.22f, -0.6f}, {0.055f, 0.03f}, 0.02f), 0.03f, 0.02f, nozzle());
        V2 c = p - V2{0, 0.02f};
        b.part(sdCircle(c, 0.5f), 0.02f, 0.3f, steel());
        b.part(sdRing(c, 0.44f, 0.065f), 0.12f, 0.05f, crimson());
        for (int i = 0; i < 6; ++i) {
            V2 r = rotate(c, -i * kPi / 3 + kPi / 6);
            b.seam(std::fabs(r.x) + (r.y < 0.2f ? 1.0f : 0.0f), 0.01f);
        }
        b.part(sdCircle(c, 0.22f), 0.14f, 0.08f, darkSteel());
        b.part(sdCircle(c - V2{0, 0.02f}, 0.13f), 0.2f, 0.1f, enemyEye());
        return b.sample();
    };
    art.lights = [](V2 p) {
        return lightFlame(p, {0.22f, -0.63f}, {0, -1}, 0.06f, 0.3f, 0.9f) +
               lightFlame(p, {-0.22f, -0.63f}, {0, -1}, 0.06f, 0.3f, 0.9f) +
               glowAt(p, {{0.28f, 0.87f}, {-0.28f, 0.87f}, {0.76f, -0.27f}, {-0.76f, -0.27f}}, 0.022f, kEnemyLight) +
               lightDot(p, {0, 0.02f}, 0.12f, kEnemyLight * 0.35f);
    };
    art.style.grimeSeed = 104;
    return art;
}

EnemyArt probe2()
{
    static const auto diamond = symmetric({{0, 0.86f}, {0.52f, 0.02f}, {0.18f, -0.55f}, {0, -0.62f}});
    static const auto inner = symmetric({{0, 0.6f}, {0.34f, 0.02f}, {0.1f, -0.38f}, {0, -0.42f}});
    EnemyArt art;
    art.name = "enemy_probe2";
    art.size = 192;
    art.design = [](V2 p) {
        HullBuilder b(p);
        V2 m = mirrorX(p);
        b.part(sdSegment(m, {0.3f, 0.3f}, {0.72f, 0.52f}, 0.03f), 0.02f, 0.03f, darkSteel());
        b.part(sdSegment(m, {0.3f, -0.2f}, {0.66f, -0.5f}, 0.03f), 0.02f, 0.03f, darkSteel());
        b.part(sdPolygon(p, diamond), 0.02f, 0.1f, crimson());
        b.part(sdPolygon(p, inner), 0.08f, 0.1f, steel());
        b.seam(std::fabs(p.x), 0.01f);
        b.seam(std::fabs(p.y - 0.1f) + (std::fabs(p.x) > 0.3f ? 1.0f : 0.0f), 0.01f);
        b.part(sdRoundBox(p - V2{0, -0.6f}, {0.09f, 0.05f}, 0.03f), 0.05f, 0.03f, nozzle());
        b.part(sdCircle(p - V2{0, 0.12f}, 0.14f), 0.16f, 0.1f, enemyEye());
        return b.sample();
    };
    art.lights = [](V2 p) {
        return lightFlame(p, {0, -0.64f}, {0, -1}, 0.08f, 0.3f, 1.0f) +
               glowAt(p, {{0.72f, 0.52f}, {-0.72f, 0.52f}, {0.66f, -0.5f}, {-0.66f, -0.5f}}, 0.022f, kEnemyLight) +
               lightDot(p, {0, 0.12f}, 0.12f, kEnemyLight * 0.3f);
    };
    art.style.grimeSeed = 105;
    return art;
}

EnemyArt probe3()
{
    EnemyArt art;
    art.name = "enemy_probe3";
    art.size = 224;
    art.design = [](V2 p) {
        HullBuilder b(p);
        V2 m = mirrorX(p);
        V2 c = p - V2{0, 0.05f};
        b.part(sdRing(c, 0.62f, 0.06f), 0.02f, 0.05f, crimson());
        for (int i = 0; i < 12; ++i) {
            V2 r = rotate(c, -i * kPi / 6);
            b.seam(std::fabs(r.x) + (r.y < 0.5f ? 1.0f : 0.0f), 0.01f);
        }
        b.part(sdSegment(c, {0, 0}, {0, 0.6f}, 0.04f), 0.01f, 0.03f, steel());
        b.part(sdSegment(mirrorX(c), {0, 0}, {0.53f, -0.31f}, 0.04f), 0.01f, 0.03f, steel());
        b.part(sdRoundBox(m - V2{0.31f, -0.5f}, {0.1f, 0.13f}, 0.05f), 0.04f, 0.06f, darkSteel());
        b.part(sdRoundBox(m - V2{0.31f, -0.64f}, {0.065f, 0.035f}, 0.02f), 0.05f, 0.02f, nozzle());
        b.part(sdEllipse(c, 0.2f, 0.32f), 0.05f, 0.16f, steel());
        b.seam(std::fabs(c.y) + (std::fabs(c.x) > 0.19f ? 1.0f : 0.0f), 0.01f);
        b.part(sdEllipse(c - V2{0, 0.12f}, 0.08f, 0.12f), 0.16f, 0.06f, enemyGlass());
        return b.sample();
    };
    art.lights = [](V2 p) {
        V3 ring;
        for (int i = 0; i < 6; ++i) {
            V2 at = rotate({0, 0.62f}, i * kPi / 3 + kPi / 6) + V2{0, 0.05f};
            ring = ring + lightDot(p, at, 0.02f, kEnemyLight) + lightDot(p, at, 0.06f, kEnemyLight * 0.2f);
        }
        return lightFlame(p, {0.31f, -0.67f}, {0, -1}, 0.065f, 0.28f, 0.95f) +
               lightFlame(p, {-0.31f, -0.67f}, {0, -1}, 0.065f, 0.28f, 0.95f) + ring;
    };
    art.style.grimeSeed = 106;
    return art;
}

} // namespace

std::vector<EnemyArt> enemyArt()
{
    std::vector<EnemyArt> all = {fighter(), fighter2(), hammerhead(), probe(), probe2(), probe3()};
    for (EnemyArt& art : all)
        art.style.rimLight = kEnemyRim;
    return all;
}

} // namespace assetgen
