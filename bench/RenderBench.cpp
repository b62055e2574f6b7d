// Frame cost of the scene renderer under the software rasteriser: a world of 1000 sprites in
// 50 groups of 20 (all on screen, drawn through the off-screen target and the composite) and
// a HUD of 200 lines of text, separately and together. Each iteration ends with glFinish, so
// the time includes the rasterising, not only the GL calls; llvmpipe rasterises on worker
// threads, so the figures are wall-clock time. Needs an X display (Xvfb).
#include "graphics/Color.h"
#include "graphics/Font.h"
#include "graphics/Image.h"
#include "graphics/Texture.h"
#include "platform/Vorlik.h"
#include "scene/DirectScene2D.h"
#include "scene/Group.h"
#include "scene/Scene2D.h"
#include "scene/Sprite.h"
#include "scene/Text.h"

#include <GL/gl.h>
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <vector>

namespace {
constexpr int kWidth = 1280;          // window pixels
constexpr int kHeight = 720;
constexpr int kGroups = 50;
constexpr int kSpritesPerGroup = 20;  // 1000 sprites in all
constexpr int kTexts = 200;
constexpr float kSpriteSide = 48.0f;  // pixels
constexpr float kWorldSide = 4096.0f; // world units, as in the game

// The game's run directory (beside this program's bench directory) holds the shaders the
// scenes load by relative path.
void enterRunDirectory()
{
    std::error_code error;
    const std::filesystem::path exe = std::filesystem::canonical("/proc/self/exe", error);
    if (error) return;
    const std::filesystem::path run = exe.parent_path().parent_path() / "run";
    if (std::filesystem::exists(run / "shaders") && chdir(run.c_str()) != 0) std::perror("chdir");
}

bool openWindow()
{
    if (std::getenv("DISPLAY") == nullptr) return false;
    if (vorlik::Vorlik::events == nullptr) {
        enterRunDirectory();
        using vorlik::Vorlik;
        Vorlik::init(kWidth, kHeight, "RenderBench", Vorlik::kWindowed, Vorlik::kVsyncOff);
    }
    return true;
}

// A soft disc like the game's particle and glow pictures.
std::unique_ptr<vorlik::Texture> discTexture()
{
    vorlik::Image image(64, 64);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x) {
            const int dx = x - 32, dy = y - 32;
            const int d2 = dx * dx + dy * dy;
            if (d2 < 30 * 30) image.setPixel(x, y, vorlik::Color::pack(255, 200, 100, 255 - d2 * 255 / 900));
        }
    }
    return std::make_unique<vorlik::Texture>(&image);
}

// A 256 x 256 font picture whose every glyph cell holds a filled box.
std::unique_ptr<vorlik::Font> boxFont()
{
    auto* image = new vorlik::Image(256, 256);
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x)
            if (x % 16 > 2 && x % 16 < 13 && y % 16 > 2 && y % 16 < 13)
                image->setPixel(x, y, vorlik::Color::pack(255, 255, 255, 255));
    return std::make_unique<vorlik::Font>(image);
}

class World {
public:
    World() : scene(-1, -1), texture(discTexture())
    {
        scene.debugBounds = false;
        scene.worldWidth = kWorldSide;
        scene.worldHeight = kWorldSide;
        scene.camera.x = kWorldSide / 2;
        scene.camera.y = kWorldSide / 2;
        for (int g = 0; g < kGroups; ++g) {
            auto group = std::make_unique<Group>();
            group->position.x = kWorldSide / 2 - kWidth / 2 + 100.0f + (g % 10) * 110.0f;
            group->position.y = kWorldSide / 2 - kHeight / 2 + 100.0f + (g / 10) * 120.0f;
            for (int s = 0; s < kSpritesPerGroup; ++s) {
                auto sprite = std::make_unique<Sprite>(texture.get(), kSpriteSide, kSpriteSide);
                sprite->position.x = static_cast<float>((s % 5) * 12);
                sprite->position.y = static_cast<float>((s / 5) * 12);
                sprite->setBlendMode(s % 2 == 0 ? BLEND_NORMAL : BLEND_ADDITIVE);
                group->add(sprite.get());
                sprites.push_back(std::move(sprite));
            }
            scene.add(group.get());
            groups.push_back(std::move(group));
        }
    }

    ~World()
    {
        // Children first: a group's destructor only detaches them.
        sprites.clear();
        groups.clear();
    }

    Scene2D scene;
    std::unique_ptr<vorlik::Texture> texture;
    std::vector<std::unique_ptr<Group>> groups;
    std::vector<std::unique_ptr<Sprite>> sprites;
};

class Hud {
public:
    Hud() : scene(-1, -1), font(boxFont())
    {
        scene.debugBounds = false;
        for (int i = 0; i < kTexts; ++i) {
            auto text = std::make_unique<Text>(font.get(), "Score 0012345");
            text->position.x = static_cast<float>((i % 4) * 320);
            text->position.y = static_cast<float>((i / 4) * 14);
            scene.add(text.get());
            texts.push_back(std::move(text));
        }
    }

    ~Hud() { texts.clear(); }

    DirectScene2D scene;
    std::unique_ptr<vorlik::Font> font;
    std::vector<std::unique_ptr<Text>> texts;
};

void BM_RenderWorld1000Sprites(benchmark::State& state)
{
    if (!openWindow()) {
        state.SkipWithError("no X display");
        return;
    }
    World world;
    for (auto _ : state) {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        world.scene.render();
        glFinish();
    }
    state.counters["sprites"] = kGroups * kSpritesPerGroup;
}
BENCHMARK(BM_RenderWorld1000Sprites)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_RenderHud200Texts(benchmark::State& state)
{
    if (!openWindow()) {
        state.SkipWithError("no X display");
        return;
    }
    Hud hud;
    for (auto _ : state) {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        hud.scene.render();
        glFinish();
    }
    state.counters["texts"] = kTexts;
}
BENCHMARK(BM_RenderHud200Texts)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_RenderFrameWorldAndHud(benchmark::State& state)
{
    if (!openWindow()) {
        state.SkipWithError("no X display");
        return;
    }
    World world;
    Hud hud;
    for (auto _ : state) {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        world.scene.render();
        hud.scene.render();
        glFinish();
    }
}
BENCHMARK(BM_RenderFrameWorldAndHud)->Unit(benchmark::kMillisecond)->UseRealTime();
} // namespace
