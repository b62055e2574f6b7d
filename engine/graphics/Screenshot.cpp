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
constexpr char kLlvmpipe[] = "llvmpipe";
} // namespace

unsigned int shownFrameBuffer(const char* renderer)
{
    // Mesa's software drivers show a frame by copying the back buffer into the X window, and
    // the back buffer keeps it. GL_FRONT is a separate buffer that the driver makes when it is
    // first read: softpipe makes it through the screen's resource_create_front hook, so reading
    // it fetches the window's pixels from the X server; llvmpipe leaves that hook unset, so its
    // front is a plain buffer that no swap writes and that reads back black. Under llvmpipe the
    // back buffer is read instead. Hardware drivers keep their front buffer up to date.
    const bool frontNeverWritten =
        renderer != nullptr && std::strncmp(renderer, kLlvmpipe, sizeof(kLlvmpipe) - 1) == 0;
    return frontNeverWritten ? GL_BACK : GL_FRONT;
}

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

    glReadBuffer(shownFrameBuffer(reinterpret_cast<const char*>(glGetString(GL_RENDERER))));
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
