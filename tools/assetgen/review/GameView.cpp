#include "review/GameView.h"

#include <cmath>

#include "core/Rng.h"
#include "review/SkyView.h"

namespace assetgen {

namespace {

const V3 kPlayerBolt{128 / 255.0f, 113 / 255.0f, 1.0f};
const V3 kEnemyBolt{25 / 255.0f, 1.0f, 50 / 255.0f};
const V3 kLaser{76 / 255.0f, 76 / 255.0f, 1.0f};
constexpr float kLaserAlpha = 224 / 255.0f;
constexpr int kStars = 512;

struct Ship {
    const char* body;
    float size, x, y, headingDeg;
};

// One of each type in flight; hammerhead2 and probe2 wear the pictures of their siblings.
const Ship kShips[] = {
    {"enemy_fighter", 96, 330, 230, -60},       {"enemy_fighter2", 136, 520, 130, 110},
    {"enemy_hammerhead", 136, 930, 190, 160},   {"enemy_hammerhead", 172, 1080, 430, 200},
    {"enemy_probe", 82, 210, 470, -20},         {"enemy_probe", 96, 420, 600, 30},
    {"enemy_probe3", 116, 860, 560, -150},
};

void sprite(Compositor& out, const Picture& pic, float x, float y, float size, float angle, Blend blend,
            float alpha = 1, V3 tint = {1, 1, 1})
{
    Quad q;
    q.cx = x;
    q.cy = y;
    q.width = q.height = size;
    q.angleDeg = angle;
    q.blend = blend;
    q.alpha = alpha;
    q.tint = tint;
    out.draw(pic, q);
}

void drawStars(Compositor& out, const Picture& star)
{
    Rng rng(0x5354);
    for (int i = 0; i < kStars; ++i) {
        float b = rng.range(168, 256) / 255.0f, g = rng.range(168, 256) / 255.0f, r = rng.range(168, 256) / 255.0f;
        float x = rng.uniform(-50, kScreenWidth + 50), y = rng.uniform(-50, kScreenHeight + 50);
        float z = rng.uniform(1, 30), size = rng.uniform(0.2f, 0.7f);
        float brightness = 1 - ((z - 1) / 29) * size;
        Quad q;
        q.cx = x;
        q.cy = y;
        q.width = 32 * size;
        q.height = 15 * size;
        q.tint = {r, g, b};
        q.alpha = brightness;
        q.blend = Blend::Add;
        out.draw(star, q);
    }
}

void drawPlayer(Compositor& out, const AssetSink& sink, float x, float y)
{
    // At full energy the top halo pulses near 0.9 and the bottom one 100 steps below it.
    const float top = 229 / 255.0f, bottom = 129 / 255.0f;
    sprite(out, pictureOf(sink, "player_bot"), x, y, 64, 37, Blend::Over);
    sprite(out, pictureOf(sink, "player_glow_bot"), x, y, 60, 37, Blend::Add, bottom);
    sprite(out, pictureOf(sink, "player_mid"), x, y, 64, 12, Blend::Over);
    sprite(out, pictureOf(sink, "player_top"), x, y, 64, 0, Blend::Over);
    sprite(out, pictureOf(sink, "player_glow_top"), x, y, 72, 0, Blend::Add, top);
}

void drawBolt(Compositor& out, const Picture& bolt, float x, float y, float size, V3 tint, float alpha)
{
    for (int pass = 0; pass < 3; ++pass)
        sprite(out, bolt, x, y, size, 0, Blend::Add, alpha, tint);
}

void drawLaser(Compositor& out, const AssetSink& sink, const Picture& end, V2 from, V2 to, float width)
{
    V2 d = to - from;
    float len = length(d);
    Quad q;
    q.cx = (from.x + to.x) / 2;
    q.cy = (from.y + to.y) / 2;
    q.width = len;
    q.height = 2 * width;
    q.angleDeg = radiansToDegrees(std::atan2(d.y, d.x));
    q.u1 = 10;
    q.tint = kLaser;
    q.alpha = kLaserAlpha;
    q.blend = Blend::Add;
    sprite(out, end, from.x, from.y, 40 * width, 0, Blend::Add, kLaserAlpha, kLaser);
    out.draw(pictureOf(sink, "slaser"), q);
    sprite(out, end, to.x, to.y, 40 * width, 0, Blend::Add, kLaserAlpha, kLaser);
}

void drawHud(Compositor& out, const AssetSink& sink)
{
    auto panel = [&](const char* name, float x, float y) {
        const Picture& p = pictureOf(sink, name);
        Quad q;
        q.cx = x;
        q.cy = y;
        q.width = p.width * 0.5f;
        q.height = p.height * 0.5f;
        out.draw(p, q);
    };
    panel("hud_score", 100, 30);
    panel("hud_power_dials", 100, 670);
    panel("hud_radar_dials", 1150, 590);
    const Picture& big = pictureOf(sink, "hugefont");
    out.text(big, "12450", 15, 12, 15);
    out.text(big, "Energy: 350", 5, 25, 15);
    sprite(out, pictureOf(sink, "reticle"), 760, 140, 38, 0, Blend::Over);
    sprite(out, pictureOf(sink, "reticle_glow"), 760, 140, 40, 0, Blend::Add, 128 / 255.0f);
}

} // namespace

const Picture& pictureOf(const AssetSink& sink, const char* name)
{
    static const Picture empty;
    const Picture* p = sink.find(name);
    return p ? *p : empty;
}

Picture particleDisc(int radius)
{
    Picture pic;
    pic.width = pic.height = 128;
    pic.rgba.assign(128 * 128 * 4, 0);
    for (int y = 64 - radius; y < 64 + radius; ++y)
        for (int x = 64 - radius; x < 64 + radius; ++x) {
            float d = std::sqrt(static_cast<float>((x - 64) * (x - 64) + (y - 64) * (y - 64)));
            if (d > radius)
                continue;
            float s = (1 - std::cos(kPi * (1 - d / radius))) / 2;
            uint8_t* t = &pic.rgba[(static_cast<size_t>(y) * 128 + x) * 4];
            t[0] = t[1] = t[2] = static_cast<uint8_t>(255 * s);
            t[3] = 255;
        }
    return pic;
}

void drawGameSky(Compositor& out, const AssetSink& sink, float t)
{
    const Picture* faces[6];
    for (CubeFace f : kCubeFaces)
        faces[static_cast<int>(f)] = sink.find(faceName(f));
    V3 eye{-25 * std::cos(1.8f * t), 9 - std::sin(1.1f * t), 25 * std::sin(1.4f * t)};
    V3 target{0, 1.5f + std::cos(2.1f * t), 1.0f};
    SkyCamera cam;
    cam.forward = target - eye;
    cam.fovDeg = 50;
    cam.tiltXDeg = 7;
    cam.tiltZDeg = 56;
    renderSky(out, 0, 0, out.width(), out.height(), faces, cam, kSkyBrightness);
}

Compositor renderGameView(const AssetSink& sink)
{
    Compositor out(kScreenWidth, kScreenHeight, {0, 0, 0});
    drawGameSky(out, sink, 0.3f);
    drawStars(out, pictureOf(sink, "star"));

    const Picture& token = pictureOf(sink, "powerup_anim");
    const Picture& tokenGlow = pictureOf(sink, "powerup_glow_anim");
    for (int i = 0; i < 3; ++i) {
        int frame = 20 + i * 37;
        Quad q;
        q.cx = 300.0f + i * 60;
        q.cy = 390.0f + (i % 2) * 45;
        q.width = q.height = 48;
        q.u0 = (frame % 16) / 16.0f;
        q.u1 = q.u0 + 1 / 16.0f;
        q.v0 = (frame / 16) / 16.0f;
        q.v1 = q.v0 + 1 / 16.0f;
        out.draw(token, q);
        q.blend = Blend::Add;
        out.draw(tokenGlow, q);
    }

    for (const Ship& s : kShips) {
        float angle = s.headingDeg + 90;
        sprite(out, pictureOf(sink, s.body), s.x, s.y, s.size, angle, Blend::Over);
        sprite(out, pictureOf(sink, (std::string(s.body) + "_glow").c_str()), s.x, s.y, s.size, angle, Blend::Add);
    }

    const V2 player{640, 380};
    drawPlayer(out, sink, player.x, player.y);
    const Picture& bolt = pictureOf(sink, "plasmabullet");
    for (int i = 0; i < 5; ++i) {
        V2 p = player + (V2{330, 230} - player) * (0.18f + 0.15f * i);
        drawBolt(out, bolt, p.x, p.y, 32, kPlayerBolt, 1 - 0.15f * i);
    }
    for (int i = 0; i < 4; ++i) {
        V2 p = V2{860, 560} + (player - V2{860, 560}) * (0.2f + 0.17f * i);
        drawBolt(out, bolt, p.x, p.y, 24, kEnemyBolt, 1 - 0.2f * i);
    }
    static const Picture end = particleDisc(30);
    drawLaser(out, sink, end, player, {930, 190}, 6);

    const Picture& med = pictureOf(sink, "medfont");
    const std::string wave = "Wave 3 incoming";
    float waveHeight = 16 * 1.5f;
    out.text(med, wave, 640 - Compositor::textWidth(med, wave, waveHeight) / 2, 288 - waveHeight / 2, waveHeight);
    const std::string pickup = "Energy restored";
    // A caught token's message floats 35 above where it was caught.
    out.text(med, pickup, 330 - Compositor::textWidth(med, pickup, 16) / 2, 390 - 35 - 8, 16, {0.1f, 1.0f, 0.15f});
    drawHud(out, sink);
    return out;
}

} // namespace assetgen
