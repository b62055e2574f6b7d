#include "graphics/Color.h"

namespace vorlik {

namespace {
constexpr uint16_t kMaxComponent = 255;

uint32_t clampComponent(uint16_t v) { return v > kMaxComponent ? kMaxComponent : v; }
} // namespace

uint32_t Color::rmask = 0xFF000000u;
uint32_t Color::gmask = 0x00FF0000u;
uint32_t Color::bmask = 0x0000FF00u;
uint32_t Color::amask = 0x000000FFu;
uint8_t Color::rshift = 0;
uint8_t Color::gshift = 8;
uint8_t Color::bshift = 16;
uint8_t Color::ashift = 24;

void Color::init()
{
    rmask = 0x000000FFu;
    gmask = 0x0000FF00u;
    bmask = 0x00FF0000u;
    amask = 0xFF000000u;
    rshift = 0;
    gshift = 8;
    bshift = 16;
    ashift = 24;
}

uint32_t Color::pack(uint16_t r, uint16_t g, uint16_t b, uint16_t a)
{
    return (clampComponent(r) << rshift) | (clampComponent(g) << gshift) |
           (clampComponent(b) << bshift) | (clampComponent(a) << ashift);
}

uint32_t Color::replace(uint32_t c, uint32_t mask, uint8_t shift, uint16_t v)
{
    return (c & ~mask) | (clampComponent(v) << shift);
}

} // namespace vorlik
