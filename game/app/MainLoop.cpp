#include "app/MainLoop.h"

#include "app/GameRandom.h"
#include "app/Runlevel.h"
#include "platform/Vorlik.h"

#include <GL/gl.h>
#include <SDL.h>
#include <ctime>

using vorlik::Vorlik;

void MainLoop::startUp()
{
    Vorlik::init(kWindowWidth, kWindowHeight, kCaption, true, true);
    // A first reading of the frame clock, and a first empty frame on screen.
    Vorlik::endFrame();
    g_rand.seed(static_cast<unsigned>(std::time(nullptr)));
    runlevel = RUNLEVEL_TITLE;
    Vorlik::endFrame();
}

void MainLoop::run()
{
    while (runlevel != RUNLEVEL_LEAVE) pass();
    Vorlik::shutdown();
}

void MainLoop::pass()
{
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
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
    if (runlevel == RUNLEVEL_QUITTING) runlevel = RUNLEVEL_LEAVE;
}
