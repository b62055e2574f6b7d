#include "platform/Vorlik.h"

#include "graphics/Color.h"
#include "platform/EventState.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <cstdio>
#include <cstdlib>

namespace vorlik {

namespace {
constexpr Uint32 kSubsystems =
    SDL_INIT_TIMER | SDL_INIT_AUDIO | SDL_INIT_VIDEO | SDL_INIT_NOPARACHUTE | SDL_INIT_EVENTTHREAD;
constexpr int kDefaultWidth = 640;   // pixels, when init is given less than 1
constexpr int kDefaultHeight = 480;
constexpr const char* kDefaultTitle = "Demo";
constexpr int kColorBits = 8;        // per channel, and for the stencil
constexpr int kScreenDepth = 32;
constexpr float kSecondsPerMs = 0.001f;
constexpr float kFixedSecondsPerMs = 65.536f; // 16.16 fixed point

[[noreturn]] void fail(const char* what)
{
    std::fprintf(stderr, "%s%s\n", what, SDL_GetError());
    SDL_Quit();
    std::exit(1);
}
} // namespace

uint32_t Vorlik::width = 0;
uint32_t Vorlik::height = 0;
const char* Vorlik::title = nullptr;
SDL_Surface* Vorlik::window = nullptr;
bool Vorlik::fullscreen = false;
EventState* Vorlik::events = nullptr;
bool Vorlik::autoexit = true;
uint32_t Vorlik::tm_current = 0;
uint32_t Vorlik::tm_last = 0;
uint32_t Vorlik::currentTime = 0;
uint32_t Vorlik::lastTime = 0;
float Vorlik::sync = 0.0f;
int32_t Vorlik::sync16 = 0;
uint32_t Vorlik::framenum = 0;

void Vorlik::init(int w, int h, const char* caption, bool full, bool vsync)
{
    fullscreen = full;
    if (SDL_WasInit(kSubsystems) == 0 && SDL_Init(kSubsystems) < 0) {
        std::fprintf(stderr, "Error initializing SDL: %s\n", SDL_GetError());
        std::exit(1);
    }

    width = w >= 1 ? w : kDefaultWidth;
    height = h >= 1 ? h : kDefaultHeight;
    title = caption != nullptr ? caption : kDefaultTitle;

    SDL_GL_SetAttribute(SDL_GL_DOUBLEBUFFER, 1);
    SDL_GL_SetAttribute(SDL_GL_RED_SIZE, kColorBits);
    SDL_GL_SetAttribute(SDL_GL_GREEN_SIZE, kColorBits);
    SDL_GL_SetAttribute(SDL_GL_BLUE_SIZE, kColorBits);
    SDL_GL_SetAttribute(SDL_GL_ALPHA_SIZE, kColorBits);
    SDL_GL_SetAttribute(SDL_GL_STENCIL_SIZE, kColorBits);
    SDL_GL_SetAttribute(SDL_GL_SWAP_CONTROL, vsync ? 1 : 0);

    window = SDL_SetVideoMode(width, height, kScreenDepth, SDL_OPENGL | (full ? SDL_FULLSCREEN : 0));
    // Without a usable display SDL falls back to a text-mode driver that cannot give us a GL
    // context; nothing past this point may touch GL then.
    if (window == nullptr) fail("Error setting video mode: ");

    SDL_WM_SetCaption(title, nullptr);
    SDL_ShowCursor(SDL_DISABLE); // the game draws its own reticle
    Color::init();

    if (events == nullptr) {
        events = new EventState();
        events->start();
    }

    glHint(GL_LINE_SMOOTH_HINT, GL_NICEST);
    glHint(GL_POLYGON_SMOOTH_HINT, GL_NICEST);
    glHint(GL_PERSPECTIVE_CORRECTION_HINT, GL_NICEST);
    glHint(GL_TEXTURE_COMPRESSION_HINT, GL_NICEST);
}

void Vorlik::shutdown()
{
    events->stop();
    delete events;
    events = nullptr;
    if (fullscreen) SDL_WM_ToggleFullScreen(window);
    SDL_Quit();

    window = nullptr;
    title = nullptr;
    width = height = 0;
    autoexit = true;
    sync = 0.0f;
    sync16 = 0;
    currentTime = lastTime = tm_current = tm_last = 0;
}

void Vorlik::endFrame()
{
    if (events->quitRequested.load(std::memory_order_relaxed) && autoexit) {
        shutdown();
        std::exit(0);
    }

    tm_last = tm_current;
    tm_current = SDL_GetTicks();
    // Wait out a frame shorter than the clock's resolution so that sync is never 0.
    if (tm_current == tm_last) {
        SDL_Delay(1);
        tm_current = SDL_GetTicks();
    }
    currentTime = tm_current;
    lastTime = tm_last;
    const float delta = static_cast<float>(tm_current - tm_last);
    sync = delta * kSecondsPerMs;
    sync16 = static_cast<int32_t>(delta * kFixedSecondsPerMs);

    events->snapshot();
    SDL_GL_SwapBuffers();
    ++framenum;
}

bool Vorlik::keyDown(int key) { return events->keyDown(key); }
bool Vorlik::keyPressed(int key) { return events->keyPressed(key); }
bool Vorlik::keyReleased(int key) { return events->keyReleased(key); }
bool Vorlik::mouseDown(int button) { return events->mouseDown(button); }
bool Vorlik::mousePressed(int button) { return events->mousePressed(button); }
bool Vorlik::mouseReleased(int button) { return events->mouseReleased(button); }
int Vorlik::mouseX() { return events->currentMouseX; }
int Vorlik::mouseY() { return events->currentMouseY; }

} // namespace vorlik
