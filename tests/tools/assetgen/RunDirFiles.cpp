#include "RunDirFiles.h"

#include <SDL.h>
#include <SDL_image.h>

#include <fstream>
#include <iterator>

namespace testing_assets {

std::string runPath(const std::string& relative) { return std::string(KELVANE_RUN_DIR) + "/" + relative; }
std::string gfxPath(const std::string& name) { return runPath("gfx/" + name + ".png"); }

Rgba loadPng(const std::string& path)
{
    Rgba out;
    SDL_Surface* s = IMG_Load(path.c_str());
    if (!s)
        return out;
    out.width = s->w;
    out.height = s->h;
    out.px.resize(static_cast<size_t>(s->w) * s->h * 4);
    SDL_LockSurface(s);
    const int bpp = s->format->BytesPerPixel;
    for (int y = 0; y < s->h; ++y)
        for (int x = 0; x < s->w; ++x) {
            const uint8_t* p = static_cast<const uint8_t*>(s->pixels) + y * s->pitch + x * bpp;
            Uint32 v = 0;
            for (int b = 0; b < bpp; ++b)
                v |= static_cast<Uint32>(p[b]) << (8 * b);
            uint8_t* d = &out.px[(static_cast<size_t>(y) * s->w + x) * 4];
            SDL_GetRGBA(v, s->format, &d[0], &d[1], &d[2], &d[3]);
        }
    SDL_UnlockSurface(s);
    SDL_FreeSurface(s);
    return out;
}

std::vector<uint8_t> readFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return std::vector<uint8_t>(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

} // namespace testing_assets
