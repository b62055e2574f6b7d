// Frames of a game in full swing, drawn for real under Xvfb with every picture and font the
// game loads: a started session is brought to wave 1, 6 and 17, a scripted pilot circles for a
// few simulated seconds while the enemies gather and then fires at the nearest one, and the
// frame is drawn as the main loop draws it and written to <build>/shots/wave-N.png for a person
// to look at. Each picture must show enemy ships round the player's craft, the player's bolts
// and beams and, with enemies in firing range, their green bolts.
#include "play/GameSession.h"

#include "../scene/SceneGLNodes.h"
#include "GameScenesTest.h"
#include "StdoutCapture.h"
#include "base/GameRandom.h"
#include "base/Resources.h"
#include "graphics/Font.h"
#include "graphics/Texture.h"
#include "math/vec2.h"
#include "platform/Vorlik.h"
#include "play/Enemy.h"
#include "play/EnemyPlasma.h"
#include "play/Laser.h"
#include "play/Plasma.h"
#include "play/WorldGeometry.h"
#include "player/Player.h"
#include "scene/DirectScene2D.h"
#include "scene/ParticleSystem.h"
#include "scene/Scene2D.h"
#include "scene/Starfield.h"

#include <GL/gl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <cmath>
#include <string>

using vorlik::Vorlik;
using vorlik::vec2;

namespace {

constexpr uint32_t kFrameMs = 16;
constexpr uint32_t kStart = 50000;         // ms on the clock when the game starts
constexpr uint32_t kFightMs = 12000;       // simulated time from the wave's start to the picture
constexpr uint32_t kFiringMs = 600;        // the pilot fires in the last part of it only, so
                                           // that the enemies gather round before they die
constexpr uint32_t kThrustTurnMs = 400;    // the pilot holds each of w, d, s, a this long
constexpr float kLowHull = 60.0f;          // below this the pilot's hull is made fresh again
constexpr int kKeepOut = 60;               // pixels round the craft not counted as enemy ship
constexpr int kShootersForBolts = 3;       // enemies in range that surely have bolts in flight
const int kThrustKeys[4] = {'w', 'd', 's', 'a'};

// Pixel classes of the game's pictures: the red paint every enemy hull wears (green and blue
// alike low, unlike the orange of sparks and fire), the enemies' green bolts (25, 255, 50)
// added three times, and the player's violet bolts and blue beams (more of them than the
// violet reticle alone holds).
bool enemyRed(const Pixel& p) { return p.r > 110 && p.r > p.g + 60 && std::abs(p.g - p.b) < 25; }
bool enemyGreen(const Pixel& p) { return p.g > 150 && p.g > p.r + 80 && p.g > p.b + 80; }
bool playerShot(const Pixel& p) { return p.b > 150 && p.b > p.g + 60 && p.b > p.r + 40; }

// Where a world point shows in the window for the world camera (which never turns in play).
vec2 windowPoint(const vec2& world, const WorldView& camera)
{
    return vec2(Vorlik::getWidth() / 2.0f + (world.x - camera.x) * camera.zoom,
                Vorlik::getHeight() / 2.0f + (world.y - camera.y) * camera.zoom);
}

// The image of p nearest to from, among p's nine wrap images.
vec2 nearestImage(const vec2& from, const vec2& p)
{
    vec2 images[kWrapImageCount];
    wrapImages(p, images);
    return *std::min_element(images, images + kWrapImageCount, [&](const vec2& a, const vec2& b) {
        return (a - from).length() < (b - from).length();
    });
}

// The game's scenes with every picture, font and particle disc loaded as start-up loads them,
// released again after the test; g_rand at its fixed seed, so each wave plays the same way.
class WaveScreenshotTest : public GameScenesTest {
protected:
    void SetUp() override
    {
        GameScenesTest::SetUp();
        if (IsSkipped()) return;
        {
            StdoutCapture quiet;
            loadResources();
        }
        g_rand.seed(kStaticRandomSeed);
        Vorlik::currentTime = kStart;
        Vorlik::sync = kFrameMs * 0.001f;
        g_game = new GameSession();
        g_game->start();
    }
    void TearDown() override
    {
        if (IsSkipped()) return;
        GameScenesTest::TearDown();
        for (const Resources::TextureFile& file : Resources::kTextureFiles) {
            delete *file.global;
            *file.global = nullptr;
        }
        for (const Resources::FontFile& file : Resources::kFontFiles) {
            delete *file.global;
            *file.global = nullptr;
        }
        for (vorlik::Texture** disc : {&Resources::proc_particle0_tex, &Resources::proc_particle1_tex}) {
            delete *disc;
            *disc = nullptr;
        }
    }

    // Starts wave n the way the session starts any wave, at that wave's toughness.
    void startWave(int n)
    {
        g_game->wave = n - 1;
        g_game->toughness = static_cast<float>(std::pow(1.1, n - 1));
        g_game->startWave();
    }

    // The nearest enemy's image to the craft, or the craft itself when no enemy is left.
    vec2 nearestEnemy() const
    {
        const vec2 craft = g_game->player->position;
        vec2 best = craft;
        float bestDistance = 1e30f;
        for (const Enemy* enemy : g_game->enemies) {
            const vec2 image = nearestImage(craft, enemy->position);
            const float d = (image - craft).length();
            if (d < bestDistance) {
                bestDistance = d;
                best = image;
            }
        }
        return best;
    }

    // One frame of the pilot: a thrust key at a time round w, d, s, a, the mouse on the nearest
    // enemy and, near the end, both guns held; then the frame as the main loop runs it (the
    // input snapshot and clock of endFrame, then the session).
    void fly(uint32_t elapsed)
    {
        const int key = kThrustKeys[(elapsed / kThrustTurnMs) % 4];
        for (const int k : kThrustKeys) input->key(k, k == key);
        const bool firing = elapsed + kFiringMs >= kFightMs;
        input->button(1, firing);
        input->button(3, firing);
        const vec2 aim = windowPoint(nearestEnemy(), g_world->camera);
        input->mouseAt(std::clamp(static_cast<int>(aim.x), 0, kWidth - 1),
                       std::clamp(static_cast<int>(aim.y), 0, kHeight - 1));
        input->snapshot();
        Vorlik::currentTime += kFrameMs;
        Vorlik::sync = kFrameMs * 0.001f;
        g_game->frame();
        if (g_game->player->hull < kLowHull) g_game->player->hull = Player::kFreshHull;
    }

    // Draws the frame as the main loop does and writes it to <build>/shots/wave-N.png.
    WindowPixels drawAndKeep(int wave)
    {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
        g_world->render();
        g_hud->render();
        const WindowPixels window(kWidth, kHeight);
        const std::string folder = std::string(KELVANE_RUN_DIR) + "/../shots";
        mkdir(folder.c_str(), 0755);
        window.savePng((folder + "/wave-" + std::to_string(wave) + ".png").c_str());
        return window;
    }

    // Plays wave n for kFightMs, draws it and checks what the picture shows: at least
    // leastRed pixels of enemy paint away from the craft, the player's shots, and green bolts
    // when several enemies are in firing range (one alone may just have hit the craft, which
    // takes its bolt away).
    void playAndCheck(int wave, int leastRed)
    {
        startWave(wave);
        for (uint32_t t = 0; t < kFightMs; t += kFrameMs) fly(t);
        const WindowPixels window = drawAndKeep(wave);

        const vec2 craft = windowPoint(g_game->player->position, g_world->camera);
        int red = 0, green = 0, shots = 0;
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x) {
                const Pixel p = window.at(x, y);
                const bool nearCraft = std::abs(x - craft.x) < kKeepOut && std::abs(y - craft.y) < kKeepOut;
                red += enemyRed(p) && !nearCraft;
                green += enemyGreen(p);
                shots += playerShot(p) && !nearCraft;
            }
        EXPECT_GT(red, leastRed) << "wave " << wave << ": too few enemy hulls in view";
        EXPECT_GT(shots, 2000) << "wave " << wave << ": no bolts or beams of the player's";
        int inRange = 0;
        const vec2 at = g_game->player->position;
        for (const Enemy* enemy : g_game->enemies)
            inRange += (nearestImage(at, enemy->position) - at).length() < enemy->fireRange;
        if (inRange >= kShootersForBolts) {
            EXPECT_GT(green, 10) << "wave " << wave << ": " << inRange << " enemies in range but no green bolts";
        }
    }
};

TEST_F(WaveScreenshotTest, TheGunsParticlesAndStarsWearTheGamesPictures)
{
    startWave(1);
    const Player& craft = *g_game->player;
    ASSERT_NE(Resources::plasmabullet_tex, nullptr);
    EXPECT_EQ(craft.plasma->texture, Resources::plasmabullet_tex);
    EXPECT_EQ(craft.laser->glowTexture, Resources::proc_particle1_tex);
    EXPECT_EQ(craft.laser->endTexture, Resources::proc_particle1_tex);
    EXPECT_EQ(craft.laser->beamTexture, Resources::laser_tex);
    EXPECT_EQ(craft.exhaust->texture, Resources::proc_particle0_tex);
    ASSERT_GT(g_game->enemies.count, 0u);
    EXPECT_EQ(g_game->enemies[0]->gun->texture, Resources::plasmabullet_tex);
    EXPECT_EQ(g_game->sparkParticles->texture, Resources::proc_particle0_tex);
    EXPECT_EQ(g_game->explosionParticles->texture, Resources::proc_particle0_tex);
    EXPECT_EQ(g_game->starfield->starTexture, Resources::star_tex);
    EXPECT_NE(Resources::proc_particle0_tex, nullptr);
    EXPECT_NE(Resources::proc_particle1_tex, nullptr);
}

TEST_F(WaveScreenshotTest, TheFirstWaveReachesTheCraftAndIsShotAt)
{
    playAndCheck(1, 400);
}

TEST_F(WaveScreenshotTest, WaveSixSurroundsTheCraftWithShipsAndBolts)
{
    playAndCheck(6, 2000);
}

TEST_F(WaveScreenshotTest, WaveSeventeenFillsTheScreenWithShipsAndBolts)
{
    playAndCheck(17, 8000);
}

} // namespace
