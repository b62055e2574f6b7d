#include "app/MainLoop.h"

#include "app/MainMenu.h"
#include "app/Music.h"
#include "app/Runlevel.h"
#include "app/TitleScreen.h"
#include "base/GameRandom.h"
#include "base/Resources.h"
#include "core/String.h"
#include "graphics/Screenshot.h"
#include "graphics/Texture.h"
#include "platform/Vorlik.h"
#include "play/GameSession.h"
#include "play/WorldGeometry.h"
#include "scene/DirectScene2D.h"
#include "scene/Fader.h"
#include "scene/Scene2D.h"

#include <GL/gl.h>
#include <SDL.h>
#include <SDL_mixer.h>
#include <cstdio>
#include <ctime>

using vorlik::String;
using vorlik::Texture;
using vorlik::Vorlik;

namespace {
constexpr float kMegabytesPerByte = 9.5367431640625e-07f; // 2^-20
constexpr int32_t kWindowSized = -1;                       // a scene as large as the window
constexpr uint32_t kFadeToBlackMs = 1000;                  // leaving the title, and quitting
constexpr uint32_t kFadeIntoGameMs = 500;
constexpr int kMusicFadeOutMs = 950;
constexpr int kLoopForever = -1;

void setFaderColor(float r, float g, float b)
{
    g_fader->red = r;
    g_fader->green = g;
    g_fader->blue = b;
    g_fader->opacity = 1.0f;
}
} // namespace

void MainLoop::startUp()
{
    Vorlik::init(kWindowWidth, kWindowHeight, kCaption, Vorlik::kFullscreen, Vorlik::kVsyncOn);
    // A first reading of the frame clock, and a first empty frame on screen.
    Vorlik::endFrame();
    loadResources();
    g_rand.seed(static_cast<unsigned>(std::time(nullptr)));
    g_world = new Scene2D(kWindowSized, kWindowSized);
    g_world->worldWidth = kWorldWidth;
    g_world->worldHeight = kWorldHeight;
    g_hud = new DirectScene2D(kWindowSized, kWindowSized);
    g_fader = new Fader();
    runlevel = RUNLEVEL_TITLE;
    Vorlik::endFrame();
    setFaderColor(1.0f, 1.0f, 1.0f);
    g_world->debugBounds = false;
    g_hud->debugBounds = false;
    title = new TitleScreen();
    loadMusic();
    std::printf("Used texture memory: %f megabytes\n",
                static_cast<float>(Texture::usedMemory) * kMegabytesPerByte);
}

void MainLoop::run()
{
    while (runlevel != RUNLEVEL_LEAVE) pass();
    Vorlik::shutdown();
}

void MainLoop::pass()
{
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
    g_world->render();
    g_hud->render();
    g_fader->draw();
    Vorlik::endFrame();
    if (runlevel == RUNLEVEL_MENU) g_menu->frame();
    if (runlevel == RUNLEVEL_GAME) g_game->frame();
    // This second draw lands in the back buffer after the swap and is cleared by the next
    // pass; it stays, as the frame has always been drawn this way.
    g_fader->draw();
    handleKeys();
}

bool MainLoop::titleKeyPressed() const
{
    // Keys count on the frame they go down; mouse buttons count whenever they are held.
    return Vorlik::keyPressed(SDLK_RETURN) || Vorlik::keyPressed(SDLK_SPACE) ||
           Vorlik::keyPressed(SDLK_KP_ENTER) || Vorlik::mouseDown(SDL_BUTTON_LEFT) ||
           Vorlik::mouseDown(SDL_BUTTON_MIDDLE) || Vorlik::mouseDown(SDL_BUTTON_RIGHT);
}

void MainLoop::enterGame()
{
    g_fader->fadeIn(kFadeIntoGameMs);
    if (title != nullptr) {
        g_hud->clear();
        g_world->clear();
        delete title;
        title = nullptr;
    }
    // g_game is set before start(): the guns the session builds there take their spark slices
    // from g_game's particles.
    g_game = new GameSession();
    g_game->start();
    runlevel = RUNLEVEL_GAME;
    Mix_PlayMusic(music, kLoopForever);
}

void MainLoop::handleKeys()
{
    // Every transition waits for the running fade to finish, so keys during a fade are ignored.
    if (runlevel == RUNLEVEL_TITLE && g_fader->isDone() && titleKeyPressed()) {
        setFaderColor(0.0f, 0.0f, 0.0f);
        g_fader->fadeOut(kFadeToBlackMs);
        runlevel = RUNLEVEL_ENTERING;
    }
    if (runlevel == RUNLEVEL_ENTERING && g_fader->isDone()) enterGame();
    if (g_fader->isDone() && Vorlik::keyPressed(SDLK_ESCAPE)) {
        setFaderColor(0.0f, 0.0f, 0.0f);
        g_fader->fadeOut(kFadeToBlackMs);
        Mix_FadeOutMusic(kMusicFadeOutMs);
        runlevel = RUNLEVEL_QUITTING;
    }
    if (Vorlik::keyPressed(SDLK_F1)) takeScreenshot();
    if (runlevel == RUNLEVEL_QUITTING && g_fader->isDone()) runlevel = RUNLEVEL_LEAVE;
}

void MainLoop::takeScreenshot()
{
    // Files of the same name are overwritten; a failed write still uses up its number.
    const String path = "screenshot_" + String(screenshotNumber) + ".bmp";
    vorlik::screenshot(path.data);
    ++screenshotNumber;
}
