// Packing and unpacking of 32-bit RGBA pixels through global masks and shifts.
// Vorlik::init sets the layout to red, green, blue, alpha from the low byte up, which is
// GL_RGBA with GL_UNSIGNED_BYTE on a little-endian machine. Before that the masks and the
// shifts disagree (red mask in the top byte, red shift 0); nothing packs colours that early.
#pragma once

#include <cstdint>

namespace vorlik {

class Color {
public:
    static uint32_t rmask, gmask, bmask, amask;
    static uint8_t rshift, gshift, bshift, ashift;

    // Sets the masks and shifts to the byte order red, green, blue, alpha.
    static void init();

    // Each component is clamped to 255.
    static uint32_t pack(uint16_t r, uint16_t g, uint16_t b, uint16_t a);

    static uint8_t getR(uint32_t c) { return (c & rmask) >> rshift; }
    static uint8_t getG(uint32_t c) { return (c & gmask) >> gshift; }
    static uint8_t getB(uint32_t c) { return (c & bmask) >> bshift; }
    static uint8_t getA(uint32_t c) { return (c & amask) >> ashift; }

    static uint32_t setR(uint32_t c, uint16_t v) { return replace(c, rmask, rshift, v); }
    static uint32_t setG(uint32_t c, uint16_t v) { return replace(c, gmask, gshift, v); }
    static uint32_t setB(uint32_t c, uint16_t v) { return replace(c, bmask, bshift, v); }
    static uint32_t setA(uint32_t c, uint16_t v) { return replace(c, amask, ashift, v); }

private:
    static uint32_t replace(uint32_t c, uint32_t mask, uint8_t shift, uint16_t v);
};

} // namespace vorlik
