// Proof that the leak suppressions of the sanitizer build still report our own leaks: opens
// the window the way the game does (so SDL, X and Mesa make their start-up allocations, which
// the suppressions must hide), then loses one SDL_Surface made by a function of ours. The
// leak's recorded stack ends inside SDL, as that of a surface lost by a screenshot or a
// loader would, so an entry naming the whole of SDL would hide it.
#include "platform/Vorlik.h"

#include <SDL.h>

using vorlik::Vorlik;

namespace {
constexpr int kWindowWidth = 640; // pixels
constexpr int kWindowHeight = 480;
constexpr int kSurfaceSide = 16;
constexpr int kBitsPerPixel = 32;

// The surface is dropped on purpose.
void leakOneSurface()
{
    SDL_CreateRGBSurface(SDL_SWSURFACE, kSurfaceSide, kSurfaceSide, kBitsPerPixel, 0, 0, 0, 0);
}
} // namespace

int main(int, char**)
{
    Vorlik::init(kWindowWidth, kWindowHeight, "leak check", Vorlik::kWindowed, Vorlik::kVsyncOff);
    Vorlik::endFrame();
    leakOneSurface();
    Vorlik::shutdown();
    return 0;
}
