#include "graphics/Screenshot.h"

#include "graphics/Color.h"
#include "graphics/WindowSize.h"

#include <GL/gl.h>
#include <GL/glext.h>
#include <SDL.h>
#include <cstring>

namespace vorlik {

namespace {
constexpr int kBitsPerPixel = 32;
constexpr int kBytesPerPixel = 4;
} // namespace

void screenshot(const char* path)
{
    const WindowSize window = windowSize();
    const int w = window.width;
    const int h = window.height;
    SDL_Surface* picture = SDL_CreateRGBSurface(SDL_SWSURFACE, w, h, kBitsPerPixel, Color::rmask,
                                                Color::gmask, Color::bmask, 0);
    SDL_Surface* readBack = SDL_CreateRGBSurface(SDL_SWSURFACE, w, h, kBitsPerPixel, Color::rmask,
                                                 Color::gmask, Color::bmask, 0);
    if (picture == nullptr || readBack == nullptr) {
        SDL_FreeSurface(picture);
        SDL_FreeSurface(readBack);
        return;
    }

    glReadBuffer(GL_FRONT);
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, w, h, GL_RGBA, GL_UNSIGNED_BYTE, readBack->pixels);

    // GL rows run bottom-up; the file wants the top row first.
    const size_t rowBytes = static_cast<size_t>(w) * kBytesPerPixel;
    auto* dst = static_cast<uint8_t*>(picture->pixels);
    const auto* src = static_cast<const uint8_t*>(readBack->pixels);
    for (int y = 0; y < h; ++y) {
        std::memcpy(dst + static_cast<size_t>(y) * picture->pitch,
                    src + static_cast<size_t>(h - 1 - y) * readBack->pitch, rowBytes);
    }

    SDL_RWops* file = path != nullptr ? SDL_RWFromFile(path, "wb") : nullptr;
    if (file != nullptr) SDL_SaveBMP_RW(picture, file, 1);
    SDL_FreeSurface(picture);
    SDL_FreeSurface(readBack);
}

} // namespace vorlik
