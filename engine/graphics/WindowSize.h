// The size of the window the platform layer opened, read from SDL's video surface (the
// window SDL_SetVideoMode made), so that render targets and screenshots can size themselves
// to the window without reaching up into the platform facade. 0 x 0 while no window is open.
#pragma once

namespace vorlik {

struct WindowSize {
    int width;  // pixels
    int height;
};

WindowSize windowSize();

} // namespace vorlik
