// A colour as four unsigned bytes in the order red, green, blue, alpha: the tint a node
// carries and the inherited colour the scenes hand to every draw. The layout is exactly one
// GL_UNSIGNED_BYTE RGBA vertex colour, so it can be copied straight into colour arrays.
#pragma once

#include <cstdint>
#include <type_traits>

struct ByteColor {
    uint8_t r = 255, g = 255, b = 255, a = 255;
};

static_assert(sizeof(ByteColor) == 4, "a ByteColor is one RGBA vertex colour");
static_assert(std::is_trivially_copyable<ByteColor>::value, "scene states are copied bytewise");
