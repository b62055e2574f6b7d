// Reads pictures (any format SDL_image decodes; the game's are PNG) from files or memory into
// Images and Textures. Loads never abort: a failure gives a null Image or a Texture without
// storage, and lastError tells which kind of load failed last.
// A colour key makes every pixel equal to the top-left one transparent black.
#pragma once

#include <SDL.h>
#include <cstdint>

namespace vorlik {

class Image;
class Texture;

class ImageLoader {
public:
    // 0 after a successful file load, 1 after a failed memory load, 2 after a failed file
    // load. A successful memory load leaves it as it was.
    static int32_t lastError;

    ImageLoader() = delete;

    // The decoded picture, owned by the caller, or null.
    static Image* load(const char* path, bool colorKey);
    static Image* loadFromMemory(const void* data, uint32_t size, bool colorKey);

    // As the image loads, made into a texture; a failed load gives a texture of size 0.
    static Texture* loadTexture(const char* path, bool colorKey);
    static Texture* loadTextureFromMemory(const void* data, uint32_t size, bool colorKey);

    // Converts a 32-bit surface pixel by pixel through its format's masks, shifts and losses
    // into the Color layout, frees the surface and applies the colour key.
    static Image* fromSurface(SDL_Surface* surface, bool colorKey);
};

} // namespace vorlik
