#include "graphics/ImageLoader.h"

#include "graphics/Color.h"
#include "graphics/Image.h"
#include "graphics/Texture.h"

#include <SDL_image.h>

namespace vorlik {

namespace {
constexpr int32_t kMemoryLoadFailed = 1;
constexpr int32_t kFileLoadFailed = 2;

// The layout a decoded surface is converted to when no video mode is set, so there is no
// display format to match (SDL_DisplayFormatAlpha would crash): 32 bits with an alpha channel.
constexpr Uint32 kFallbackRmask = 0x000000FFu;
constexpr Uint32 kFallbackGmask = 0x0000FF00u;
constexpr Uint32 kFallbackBmask = 0x00FF0000u;
constexpr Uint32 kFallbackAmask = 0xFF000000u;

uint16_t channel(Uint32 pixel, Uint32 mask, Uint8 shift, Uint8 loss)
{
    return static_cast<uint16_t>(((pixel & mask) >> shift) << loss);
}

// Converts the decoded surface to 32 bits with alpha and frees it.
SDL_Surface* toDisplayFormat(SDL_Surface* loaded)
{
    SDL_Surface* converted = SDL_GetVideoSurface() != nullptr ? SDL_DisplayFormatAlpha(loaded) : nullptr;
    if (converted == nullptr) {
        SDL_PixelFormat format = {};
        format.BitsPerPixel = 32;
        format.BytesPerPixel = 4;
        format.Rmask = kFallbackRmask;
        format.Gmask = kFallbackGmask;
        format.Bmask = kFallbackBmask;
        format.Amask = kFallbackAmask;
        format.Rshift = 0;
        format.Gshift = 8;
        format.Bshift = 16;
        format.Ashift = 24;
        format.alpha = SDL_ALPHA_OPAQUE;
        converted = SDL_ConvertSurface(loaded, &format, SDL_SWSURFACE);
    }
    SDL_FreeSurface(loaded);
    return converted;
}
} // namespace

int32_t ImageLoader::lastError = 0;

Image* ImageLoader::fromSurface(SDL_Surface* surface, bool colorKey)
{
    if (surface == nullptr) return nullptr;
    if (surface->format->BytesPerPixel != 4) {
        SDL_FreeSurface(surface);
        return nullptr;
    }

    Image* image = new Image(surface->w, surface->h);
    const SDL_PixelFormat* f = surface->format;
    SDL_LockSurface(surface);
    const Uint32* row = static_cast<const Uint32*>(surface->pixels);
    const int wordsPerRow = surface->pitch / 4;
    for (int y = 0; y < surface->h; ++y, row += wordsPerRow) {
        for (int x = 0; x < surface->w; ++x) {
            const Uint32 p = row[x];
            uint32_t c = 0;
            c = Color::setR(c, channel(p, f->Rmask, f->Rshift, f->Rloss));
            c = Color::setG(c, channel(p, f->Gmask, f->Gshift, f->Gloss));
            c = Color::setB(c, channel(p, f->Bmask, f->Bshift, f->Bloss));
            c = Color::setA(c, channel(p, f->Amask, f->Ashift, f->Aloss));
            image->pixels[y * image->width + x] = c;
        }
    }
    SDL_UnlockSurface(surface);
    SDL_FreeSurface(surface);

    // By convention the top-left pixel of a keyed picture holds the key colour.
    if (colorKey) image->replace(image->pixels[0], 0);
    return image;
}

Image* ImageLoader::load(const char* path, bool colorKey)
{
    SDL_Surface* loaded = path != nullptr ? IMG_Load(path) : nullptr;
    if (loaded == nullptr) {
        lastError = kFileLoadFailed;
        return nullptr;
    }
    SDL_Surface* surface = toDisplayFormat(loaded);
    lastError = 0;
    return fromSurface(surface, colorKey);
}

Image* ImageLoader::loadFromMemory(const void* data, uint32_t size, bool colorKey)
{
    SDL_Surface* loaded = nullptr;
    if (data != nullptr && size > 0) {
        SDL_RWops* stream = SDL_RWFromConstMem(data, static_cast<int>(size));
        loaded = IMG_Load_RW(stream, 1);
    }
    if (loaded == nullptr) {
        lastError = kMemoryLoadFailed;
        return nullptr;
    }
    return fromSurface(toDisplayFormat(loaded), colorKey);
}

Texture* ImageLoader::loadTexture(const char* path, bool colorKey)
{
    Image* image = load(path, colorKey);
    Texture* texture = new Texture(image);
    delete image;
    return texture;
}

Texture* ImageLoader::loadTextureFromMemory(const void* data, uint32_t size, bool colorKey)
{
    Image* image = loadFromMemory(data, size, colorKey);
    Texture* texture = new Texture(image);
    delete image;
    return texture;
}

} // namespace vorlik
