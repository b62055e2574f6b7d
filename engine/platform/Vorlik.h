// The engine's static facade: the one window and GL context, the input snapshot and the
// frame clock. There is no instance; game code asks Vorlik whether keys and buttons are down
// and how long the last frame took. Input queries are valid only between init and shutdown.
#pragma once

#include <SDL.h>
#include <cstdint>

namespace vorlik {

class EventState;

class Vorlik {
public:
    // Window
    static uint32_t width, height;         // pixels
    static const char* title;              // caption given to init, not copied
    static SDL_Surface* window;
    static bool fullscreen;
    static EventState* events;             // null before init and after shutdown
    static bool autoexit;                  // a window close ends the process at the next endFrame

    // Frame clock, all read once per frame at endFrame
    static uint32_t tm_current, tm_last;   // SDL ticks in milliseconds
    static uint32_t currentTime, lastTime; // the same, for game timers
    static float sync;                     // last frame's duration in seconds
    static int32_t sync16;                 // the same in 16.16 fixed-point seconds
    static uint32_t framenum;              // completed frames, never reset

    // Names for init's two flags, so that a call says which window it asks for.
    static constexpr bool kFullscreen = true, kWindowed = false;
    static constexpr bool kVsyncOn = true, kVsyncOff = false;

    Vorlik() = delete;

    // Starts SDL, opens the window with a GL context and starts the event thread. A failed
    // SDL start or video mode ends the process with status 1 and a message on stderr.
    static void init(int width, int height, const char* title, bool fullscreen, bool vsync);
    // Stops the event thread, leaves full screen, quits SDL and resets the statics.
    static void shutdown();
    // Closes a frame: honours a pending window close, advances the clock, takes the input
    // snapshot, swaps buffers and counts the frame.
    static void endFrame();

    static uint32_t getWidth() { return width; }
    static uint32_t getHeight() { return height; }
    static void setAutoexit(bool on) { autoexit = on; }
    static bool getAutoexit() { return autoexit; }

    static bool keyDown(int key);
    static bool keyPressed(int key);
    static bool keyReleased(int key);
    static bool mouseDown(int button);
    static bool mousePressed(int button);
    static bool mouseReleased(int button);
    static int mouseX();
    static int mouseY();
};

} // namespace vorlik
