// SkyCube: how the six sky pictures wrap round the viewer. Y is up and the front face looks
// down -Z, with +X to its right. Each face is seen from inside the cube, upright, as if the
// cube were unfolded into a cross: left, front, right and back in a row (each one's right
// edge meets the next one's left edge, back wraps to left), top above front (its bottom edge
// meets front's top edge) and bottom below front (its top edge meets front's bottom edge).
// Texel columns run left to right and rows top to bottom; the first and last texel of a row
// lie exactly on the cube's edges, so neighbouring faces hold the same colour there.
#pragma once

#include "core/Vec.h"

namespace assetgen {

enum class CubeFace { Front, Back, Left, Right, Top, Bottom };

constexpr CubeFace kCubeFaces[] = {CubeFace::Front, CubeFace::Back, CubeFace::Left,
                                   CubeFace::Right, CubeFace::Top, CubeFace::Bottom};

// The picture's name without extension, e.g. "sky_front".
const char* faceName(CubeFace face);

// The (unnormalised) direction through face coordinates s (-1 left .. 1 right) and
// t (-1 top .. 1 bottom).
V3 faceDirection(CubeFace face, float s, float t);

// The face a direction passes through and its coordinates there; the inverse of the above.
void faceOf(V3 direction, CubeFace& face, float& s, float& t);

} // namespace assetgen
