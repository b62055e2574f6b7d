// One place in camera space where a node counts as on view, with the displacement that
// brings a node found there onto the screen. The world scene lists up to nine of them each
// frame: the view itself and its wrapped copies across the world's edges.
#pragma once

#include "math/vec2.h"

#include <type_traits>

struct ViewRect {
    float x, y, width, height; // camera space
    vorlik::vec2 offset;       // added to the position of a node found here
};

static_assert(std::is_trivially_copyable<ViewRect>::value, "kept in a Stack, copied bytewise");
