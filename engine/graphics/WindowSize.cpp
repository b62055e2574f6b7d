#include "graphics/WindowSize.h"

#include <SDL.h>

namespace vorlik {

WindowSize windowSize()
{
    const SDL_Surface* window = SDL_GetVideoSurface();
    if (window == nullptr) return WindowSize{0, 0};
    return WindowSize{window->w, window->h};
}

} // namespace vorlik
