// The guns drawn for real under Xvfb in the world scene with the generated bolt and beam
// pictures: a bolt lands on the screen where the camera puts its world point, also across the
// world's seam, a beam runs from the gun along its aim, and the laser aims through the world
// scene's stored camera. With KELVANE_TEST_PICTURES naming a directory, the part of the window
// round each shot is also written there as a PNG file for a person to look at.
#include "play/Laser.h"
#include "play/Plasma.h"

#include "../scene/SceneGLNodes.h"
#include "PngEncoder.h"
#include "SceneOverBlackTest.h"
#include "base/Resources.h"
#include "graphics/ImageLoader.h"
#include "graphics/Texture.h"
#include "platform/EventState.h"
#include "platform/Vorlik.h"
#include "play/GameSession.h"
#include "scene/Scene2D.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace {

using vorlik::vec2;
using vorlik::vec3;
using vorlik::Vorlik;

constexpr float kWorld = 4096.0f;
constexpr uint32_t kNow = 100000; // ms
constexpr int kCrop = 200;        // pixels: the side of a kept picture

class WeaponPixelTest : public SceneOverBlackTest<Scene2D> {
protected:
    void SetUp() override
    {
        SceneOverBlackTest::SetUp();
        if (IsSkipped()) return;
        scene->worldWidth = scene->worldHeight = kWorld;
        savedTime = Vorlik::currentTime;
        Vorlik::currentTime = kNow;
        savedBolt = Resources::plasmabullet_tex;
        savedBeam = Resources::laser_tex;
        bolt.reset(vorlik::ImageLoader::loadTexture("gfx/plasmabullet.png", false));
        beam.reset(vorlik::ImageLoader::loadTexture("gfx/slaser.png", false));
        ASSERT_GT(bolt->width, 0);
        ASSERT_GT(beam->width, 0);
        Resources::plasmabullet_tex = bolt.get();
        Resources::laser_tex = beam.get();
        g_game = new GameSession;
    }
    void TearDown() override
    {
        plasma.reset();
        laser.reset();
        delete g_game;
        g_game = nullptr;
        g_world = nullptr;
        Resources::plasmabullet_tex = savedBolt;
        Resources::laser_tex = savedBeam;
        Vorlik::currentTime = savedTime;
        SceneOverBlackTest::TearDown();
    }

    // One new bolt at the world point, drawn with the camera at (cameraX, cameraY).
    LitArea renderBolt(vec2 at, float cameraX, float cameraY, const char* picture)
    {
        plasma.reset(new Plasma);
        plasma->position = vec3(at.x, at.y, 0);
        plasma->fire(vec2(1, 0));
        scene->camera.x = cameraX;
        scene->camera.y = cameraY;
        scene->add(plasma.get());
        scene->render();
        const WindowPixels window(kWidth, kHeight);
        keepPicture(window, picture);
        return window.lit();
    }

    // Writes the kCrop square round lastCentre as name.png into $KELVANE_TEST_PICTURES, if set.
    void keepPicture(const WindowPixels& window, const char* name) const
    {
        const char* dir = std::getenv("KELVANE_TEST_PICTURES");
        if (dir == nullptr) return;
        std::vector<uint8_t> rgba;
        for (int y = 0; y < kCrop; ++y)
            for (int x = 0; x < kCrop; ++x) {
                const int wx = std::min(std::max(lastCentre.x + x - kCrop / 2, 0), kWidth - 1);
                const int wy = std::min(std::max(lastCentre.y + y - kCrop / 2, 0), kHeight - 1);
                const Pixel p = window.at(wx, wy);
                rgba.insert(rgba.end(), {uint8_t(p.r), uint8_t(p.g), uint8_t(p.b), 255});
            }
        const std::vector<uint8_t> png = pngtest::encode(kCrop, kCrop, rgba);
        if (FILE* f = std::fopen((std::string(dir) + "/" + name + ".png").c_str(), "wb")) {
            std::fwrite(png.data(), 1, png.size(), f);
            std::fclose(f);
        }
    }

    // Expects the lit pixels to be one bolt picture centred on the window pixel (x, y).
    void expectBoltAt(const LitArea& lit, int x, int y)
    {
        EXPECT_GT(lit.count, 100);
        EXPECT_NEAR((lit.left + lit.right) / 2.0, x, 1.0);
        EXPECT_NEAR((lit.top + lit.bottom) / 2.0, y, 1.0);
        EXPECT_LE(lit.right - lit.left, 32); // the bolt is 32 units wide at zoom 1
        EXPECT_LE(lit.bottom - lit.top, 32);
    }

    struct Point {
        int x, y;
    };

    std::unique_ptr<vorlik::Texture> bolt, beam;
    std::unique_ptr<Plasma> plasma;
    std::unique_ptr<Laser> laser;
    vorlik::Texture* savedBolt = nullptr;
    vorlik::Texture* savedBeam = nullptr;
    uint32_t savedTime = 0;
    Point lastCentre{kWidth / 2, kHeight / 2};
};

TEST_F(WeaponPixelTest, ABoltLandsWhereTheCameraPutsItsWorldPoint)
{
    lastCentre = Point{740, 312};
    const LitArea lit = renderBolt(vec2(2148, 2000), 2048, 2048, "bolt_in_view");
    expectBoltAt(lit, 740, 312);
    const Pixel centre = WindowPixels(kWidth, kHeight).at(740, 312);
    EXPECT_GT(centre.b, 200); // a violet glow, added three times
    EXPECT_GT(centre.r, 100);
}

TEST_F(WeaponPixelTest, ABoltJustPastTheSeamIsDrawnBesideACameraNearTheFarEdge)
{
    lastCentre = Point{656, 360};
    const LitArea lit = renderBolt(vec2(10, 2048), 4090, 2048, "bolt_across_seam");
    expectBoltAt(lit, 656, 360); // 4096 + 10 - 4090 = 16 to the right of the centre
}

TEST_F(WeaponPixelTest, ABoltThatFlewPastTheWorldsEdgeIsDrawnWhereTheWrappedCameraLooks)
{
    lastCentre = Point{740, 360};
    const LitArea lit = renderBolt(vec2(4200, 2048), 4100, 2048, "bolt_past_edge");
    expectBoltAt(lit, 740, 360);
}

TEST_F(WeaponPixelTest, ABeamRunsFromTheGunAlongItsAim)
{
    laser.reset(new Laser);
    laser->glowTexture = laser->endTexture = nullptr; // the body alone
    laser->position = vec3(2048, 2048, 0);
    laser->fire(vec2());
    laser->updateToward(vec2(3000, 2148)); // down and to the right
    scene->camera.x = scene->camera.y = 2048;
    scene->add(laser.get());
    scene->render();
    const WindowPixels window(kWidth, kHeight);
    lastCentre = Point{640 + 100, 360 + 10};
    keepPicture(window, "beam");
    for (const int along : {20, 100, 300, 600}) {
        const vec2 onLine = vec2(640, 360) + vec2(952, 100).normalized() * float(along);
        const Pixel lit = window.at(int(onLine.x), int(onLine.y));
        EXPECT_GT(lit.b, 150) << along;
        const Pixel beside = window.at(int(onLine.x), int(onLine.y) + 20);
        EXPECT_LT(beside.b, 10) << along;
    }
    EXPECT_LT(window.at(620, 360).b, 10); // nothing behind the gun
}

TEST_F(WeaponPixelTest, TheLaserAimsThroughTheWorldCameraAsStoredNotWrapped)
{
    g_world = scene;
    laser.reset(new Laser);
    laser->position = vec3(4090, 2048, 0);
    scene->camera.x = 4100; // beyond the edge; a frame would draw it wrapped to 4
    scene->camera.y = 2048;
    const int32_t savedX = Vorlik::events->currentMouseX, savedY = Vorlik::events->currentMouseY;
    Vorlik::events->currentMouseX = 740; // 100 pixels right of the window's centre
    Vorlik::events->currentMouseY = 360;
    laser->fire(vec2());
    laser->update();
    Vorlik::events->currentMouseX = savedX;
    Vorlik::events->currentMouseY = savedY;
    EXPECT_FLOAT_EQ(laser->beams[0].end.x, 4090 + 1280); // toward 4200, not back toward 104
    EXPECT_FLOAT_EQ(laser->beams[0].end.y, 2048);
}

} // namespace
