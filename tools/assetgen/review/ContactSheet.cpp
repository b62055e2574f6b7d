#include "review/ContactSheet.h"

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "Generator.h"
#include "art/SkyCube.h"
#include "core/PngFile.h"
#include "review/GameView.h"
#include "review/SkyView.h"

namespace assetgen {

namespace {

constexpr int kSheetWidth = 2560;
constexpr int kMargin = 20;
constexpr float kLabelHeight = 20;
const V3 kSheet{0.035f, 0.035f, 0.05f};
const V3 kLabel{0.75f, 0.75f, 0.85f};
const V3 kHeading{0.7f, 0.62f, 1.0f};

bool isLight(const std::string& name)
{
    return name.find("glow") != std::string::npos || name == "plasmabullet" || name == "slaser" || name == "star";
}

class Sheet {
public:
    explicit Sheet(const AssetSink& sink) : sink_(sink), out_(kSheetWidth, 4200, kSheet) {}

    const Picture& pic(const char* name) const { return pictureOf(sink_, name); }
    void label(const std::string& s, float x, float y, V3 colour = kLabel)
    {
        out_.text(pic("smallfont"), s, x, y, kLabelHeight, colour);
    }
    void heading(const std::string& s, int& y)
    {
        out_.text(pic("medfont"), s, kMargin, static_cast<float>(y), 32, kHeading);
        y += 44;
    }
    Compositor& out() { return out_; }
    const AssetSink& sink() const { return sink_; }

private:
    const AssetSink& sink_;
    Compositor out_;
};

Quad fitted(const Picture& p, float x, float y, float box)
{
    float scale = std::min(1.0f, box / std::max(p.width, p.height));
    Quad q;
    q.width = p.width * scale;
    q.height = p.height * scale;
    q.cx = x + box / 2;
    q.cy = y + box / 2;
    return q;
}

// A dark sky tile as the backdrop of the pictures drawn at game size.
Compositor skyTile(const AssetSink& sink, int w, int h, float t)
{
    Compositor tile(w, h, {0, 0, 0});
    drawGameSky(tile, sink, t);
    return tile;
}

void gameSection(Sheet& s, int& y)
{
    s.heading("In game, 1280 x 720, composited as the game draws it", y);
    s.out().paste(renderGameView(s.sink()), kMargin, y);

    // Beside it: looks straight into cube corners and along edges, where a face turned the
    // wrong way or a seam would show, and the faces laid out as the cube unfolds.
    const Picture* faces[6];
    for (CubeFace f : kCubeFaces)
        faces[static_cast<int>(f)] = s.sink().find(faceName(f));
    int x0 = kMargin * 2 + kScreenWidth;
    s.label("Sky box corners and edges, brightened 3x to show any seam", static_cast<float>(x0), static_cast<float>(y));
    struct View {
        V3 forward, up;
    };
    const View views[] = {{{0.7f, 0.6f, -0.7f}, {0, 1, 0}},  {{-0.7f, -0.6f, 0.7f}, {0, 1, 0}},
                          {{-0.7f, 0.6f, 0.7f}, {0, 1, 0}},  {{0.7f, -0.6f, -0.7f}, {0, 1, 0}},
                          {{1.0f, 0.0f, 1.0f}, {0, 1, 0}},   {{0.0f, 1.0f, -0.02f}, {0, 0, -1}}};
    // Five views, the last two beside the unfolded cross.
    for (int i = 0; i < 5; ++i) {
        int slot = i < 3 ? i : i + 1;
        int vx = x0 + (slot % 3) * 405, vy = y + 30 + (slot / 3) * 340;
        Compositor view(400, 330, {0, 0, 0});
        SkyCamera cam;
        cam.forward = views[i].forward;
        cam.up = views[i].up;
        cam.fovDeg = 80;
        renderSky(view, 0, 0, 400, 330, faces, cam, 3.0f);
        s.out().paste(view, vx, vy);
    }
    // The cross: top above front, then left, front, right, back, then bottom below front.
    const int face = 98;
    const int cx = x0, cy = y + 30 + 340 + 10;
    const struct {
        CubeFace face;
        int column, row;
    } cross[] = {{CubeFace::Top, 1, 0},   {CubeFace::Left, 0, 1},  {CubeFace::Front, 1, 1},
                 {CubeFace::Right, 2, 1}, {CubeFace::Back, 3, 1},  {CubeFace::Bottom, 1, 2}};
    for (const auto& c : cross) {
        Quad q;
        q.width = q.height = static_cast<float>(face);
        q.cx = cx + c.column * face + face / 2.0f;
        q.cy = cy + c.row * face + face / 2.0f;
        q.blend = Blend::Add;
        q.tint = {3, 3, 3};
        s.out().draw(pictureOf(s.sink(), faceName(c.face)), q);
    }
}

void asDrawnSection(Sheet& s, int& y)
{
    s.heading("At drawn size over the sky: body plus additive glow, player layers, bolts x3, beam, pickup", y);
    struct Tile {
        const char* name;
        const char* caption;
        float size;
    };
    const Tile ships[] = {{"enemy_fighter", "fighter 96", 96},          {"enemy_fighter2", "fighter2 136", 136},
                          {"enemy_hammerhead", "hammerhead 136", 136}, {"enemy_hammerhead", "hammerhead2 172", 172},
                          {"enemy_probe", "probe 82", 82},             {"enemy_probe", "probe2 96", 96},
                          {"enemy_probe2", "probe2 pic 96", 96},       {"enemy_probe3", "probe3 116", 116}};
    const int tile = 190;
    int x = kMargin;
    int i = 0;
    for (const Tile& t : ships) {
        Compositor back = skyTile(s.sink(), tile, tile, 0.4f * i++);
        Quad q;
        q.cx = q.cy = tile / 2.0f;
        q.width = q.height = t.size;
        back.draw(s.pic(t.name), q);
        q.blend = Blend::Add;
        back.draw(s.pic((std::string(t.name) + "_glow").c_str()), q);
        s.out().paste(back, x, y);
        s.label(t.caption, static_cast<float>(x), static_cast<float>(y + tile + 4));
        x += tile + 10;
    }
    // The player, at game size and three times larger to judge the detail.
    Compositor player = skyTile(s.sink(), tile * 2, tile, 2.0f);
    for (int zoom : {1, 3}) {
        float cx = zoom == 1 ? 50.0f : 240.0f, cy = tile / 2.0f;
        auto layer = [&](const char* name, float size, float angle, Blend b, float alpha) {
            Quad q;
            q.cx = cx;
            q.cy = cy;
            q.width = q.height = size * zoom;
            q.angleDeg = angle;
            q.blend = b;
            q.alpha = alpha;
            player.draw(s.pic(name), q);
        };
        layer("player_bot", 64, 37, Blend::Over, 1);
        layer("player_glow_bot", 60, 37, Blend::Add, 129 / 255.0f);
        layer("player_mid", 64, 12, Blend::Over, 1);
        layer("player_top", 64, 0, Blend::Over, 1);
        layer("player_glow_top", 72, 0, Blend::Add, 229 / 255.0f);
    }
    s.out().paste(player, x, y);
    s.label("player 64, and x3", static_cast<float>(x), static_cast<float>(y + tile + 4));
    x += tile * 2 + 10;

    Compositor shots = skyTile(s.sink(), tile, tile, 1.1f);
    for (int k = 0; k < 3; ++k) {
        Quad q;
        q.blend = Blend::Add;
        q.cx = 50;
        q.cy = 40 + k * 50.0f;
        q.width = q.height = 32;
        q.tint = {128 / 255.0f, 113 / 255.0f, 1.0f};
        q.alpha = 1 - 0.3f * k;
        for (int pass = 0; pass < 3; ++pass)
            shots.draw(s.pic("plasmabullet"), q);
        q.cx = 140;
        q.width = q.height = 24;
        q.tint = {25 / 255.0f, 1.0f, 50 / 255.0f};
        for (int pass = 0; pass < 3; ++pass)
            shots.draw(s.pic("plasmabullet"), q);
    }
    s.out().paste(shots, x, y);
    s.label("bolts 32 / 24 x3", static_cast<float>(x), static_cast<float>(y + tile + 4));
    y += tile + 34;

    Compositor beam = skyTile(s.sink(), kSheetWidth - 2 * kMargin, 60, 2.5f);
    static const Picture end = particleDisc(30);
    for (int k = 0; k < 2; ++k) {
        float width = k == 0 ? 7.0f : 3.5f;
        Quad q;
        q.blend = Blend::Add;
        q.cx = 640;
        q.cy = 18 + k * 26.0f;
        q.width = 1180;
        q.height = 2 * width;
        q.u1 = 10;
        q.tint = {76 / 255.0f, 76 / 255.0f, 1.0f};
        q.alpha = k == 0 ? 224 / 255.0f : 112 / 255.0f;
        beam.draw(s.pic("slaser"), q);
        Quad glow = q;
        glow.u1 = 1;
        glow.width = glow.height = 40 * width;
        glow.cx = 50;
        beam.draw(end, glow);
    }
    s.out().paste(beam, kMargin, y);
    s.label("laser beam, fresh and half-faded (texture repeated ten times)", kMargin + 1300.0f, static_cast<float>(y + 18));
    y += 60 + 20;
}

void fontSection(Sheet& s, int& y)
{
    s.heading("Fonts at the sizes the game uses, over the sky", y);
    Compositor back = skyTile(s.sink(), kSheetWidth - 2 * kMargin, 350, 0.8f);
    const Picture& huge = s.pic("hugefont");
    const Picture& med = s.pic("medfont");
    const Picture& small = s.pic("smallfont");
    const Picture& mini = s.pic("minifont");
    back.text(huge, "Game Over", 10, 10, static_cast<float>(huge.height / 16));
    back.text(huge, "Energy: 350", 10, 84, 15);
    back.text(huge, "1234567890 Score", 10, 104, 15);
    back.text(med, "Wave 3 incoming", 420, 20, 24);
    back.text(med, "Energy restored", 420, 50, 16, {0.1f, 1.0f, 0.15f});
    back.text(med, "2 lives left", 420, 72, 24);
    back.text(med, "The joke's on us. Turns out we didn't quite make", 10, 130, static_cast<float>(med.height / 16));
    back.text(med, "A Windows build is in the pipeline. :)", 10, 170, static_cast<float>(med.height / 16));
    back.text(small, "smallfont: Wave 3 incoming  Energy: 350  Game Over  -- Orvendil --", 10, 215,
              static_cast<float>(small.height / 16));
    back.text(mini, "minifont: Wave 3 incoming  Energy: 350  Game Over  0123456789 +-=.')", 10, 245,
              static_cast<float>(mini.height / 16));
    // The logo at its own size, and the head of the title notice as the game sets it.
    const Picture& logo = s.pic("title");
    Quad q;
    q.width = static_cast<float>(logo.width);
    q.height = static_cast<float>(logo.height);
    q.cx = 1330 + logo.width / 2.0f;
    q.cy = 10 + logo.height / 2.0f;
    back.draw(logo, q);
    const float line = static_cast<float>(med.height / 16);
    for (const char* title : {"Kelvane", "==========="})
        back.text(med, title, 1842 - Compositor::textWidth(med, title, line) / 2, title[0] == 'K' ? 262.0f : 262 + line + 9, line);
    back.text(med, "Upgrade +40  Extra score  Hull restored  Speed boost  Free MegaNuke", 10, 280, 16,
              {0.1f, 1.0f, 0.15f});
    s.out().paste(back, kMargin, y);
    y += 350 + 20;
}

void picturesSection(Sheet& s, int& y)
{
    s.heading("Every picture in gfx/ (glows and light shown added over black)", y);
    const int box = 190, step = 210, perRow = (kSheetWidth - 2 * kMargin) / step;
    int i = 0;
    for (const std::string& name : generatedPictures()) {
        const Picture& p = s.pic(name.c_str());
        float x = static_cast<float>(kMargin + (i % perRow) * step);
        float top = static_cast<float>(y + (i / perRow) * (box + 40));
        Quad q = fitted(p, x, top, box);
        if (isLight(name))
            q.blend = Blend::Add;
        s.out().fillRect(static_cast<int>(x), static_cast<int>(top), box, box, {0.0f, 0.0f, 0.0f});
        s.out().draw(p, q);
        s.out().text(s.pic("smallfont"), name, x, top + box + 2, 16, kLabel);
        s.out().text(s.pic("smallfont"), std::to_string(p.width) + " x " + std::to_string(p.height), x, top + box + 19,
                     16, {0.5f, 0.5f, 0.6f});
        ++i;
    }
    y += ((i + perRow - 1) / perRow) * (box + 40);
}

} // namespace

void writeContactSheet(const AssetSink& sink, const std::string& path)
{
    Sheet s(sink);
    int y = kMargin;
    s.out().text(s.pic("hugefont"), "Kelvane - generated art, fonts and sky", kMargin, static_cast<float>(y), 40, kHeading);
    y += 60;
    gameSection(s, y);
    y += kScreenHeight + kMargin;
    asDrawnSection(s, y);
    fontSection(s, y);
    picturesSection(s, y);
    Compositor& full = s.out();
    Compositor cropped(full.width(), y + kMargin, kSheet);
    cropped.paste(full, 0, 0);
    if (!writePng(path, toPicture(cropped.toCanvas())))
        std::fprintf(stderr, "assetgen: the contact sheet was not written\n");
}

} // namespace assetgen
