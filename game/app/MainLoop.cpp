#include "app/MainLoop.h"

#include "app/GameRandom.h"
#include "app/Runlevel.h"
#include "core/String.h"
#include "graphics/Screenshot.h"
#include "graphics/Texture.h"
#include "platform/Vorlik.h"
#include "scene/DirectScene2D.h"
#include "scene/Scene2D.h"

#include <GL/gl.h>
#include <SDL.h>
#include <cstdio>
#include <ctime>

using vorlik::String;
using vorlik::Texture;
using vorlik::Vorlik;

namespace {
constexpr float kMegabytesPerByte = 9.5367431640625e-07f; // 2^-20
constexpr float kWorldSize = 4096.0f;                      // world units, both ways
constexpr int32_t kWindowSized = -1;                       // a scene as large as the window
}

void MainLoop::startUp()
{
    Vorlik::init(kWindowWidth, kWindowHeight, kCaption, true, true);
    // A first reading of the frame clock, and a first empty frame on screen.
    Vorlik::endFrame();
    g_rand.seed(static_cast<unsigned>(std::time(nullptr)));
    g_world = new Scene2D(kWindowSized, kWindowSized);
    g_world->worldWidth = kWorldSize;
    g_world->worldHeight = kWorldSize;
    g_hud = new DirectScene2D(kWindowSized, kWindowSized);
    runlevel = RUNLEVEL_TITLE;
    Vorlik::endFrame();
    g_world->debugBounds = false;
    g_hud->debugBounds = false;
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
    Vorlik::endFrame();
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
    runlevel = RUNLEVEL_GAME;
}

void MainLoop::handleKeys()
{
    if (runlevel == RUNLEVEL_TITLE && titleKeyPressed()) runlevel = RUNLEVEL_ENTERING;
    if (runlevel == RUNLEVEL_ENTERING) enterGame();
    if (Vorlik::keyPressed(SDLK_ESCAPE)) runlevel = RUNLEVEL_QUITTING;
    if (Vorlik::keyPressed(SDLK_F1)) takeScreenshot();
    if (runlevel == RUNLEVEL_QUITTING) runlevel = RUNLEVEL_LEAVE;
}

void MainLoop::takeScreenshot()
{
    // Files of the same name are overwritten; a failed write still uses up its number.
    const String path = "screenshot_" + String(screenshotNumber) + ".bmp";
    vorlik::screenshot(path.data);
    ++screenshotNumber;
}
