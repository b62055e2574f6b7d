// The playing field's shape: a 4096 x 4096 plane that wraps round at its edges (a torus).
// Every position is kept wrapped into it, and distances are taken by testing the nine images
// of the other thing: itself and its copies one world width and/or height away.
#pragma once

#include "math/vec2.h"

constexpr float kWorldWidth = 4096.0f;  // world units
constexpr float kWorldHeight = 4096.0f; // world units
constexpr int kWrapImageCount = 9;

// p brought into [0, width) x [0, height) with the engine's float wrap. A tiny negative value
// may round up to exactly the width; nothing relies on the upper bound being strict.
vorlik::vec2 wrapIntoWorld(const vorlik::vec2& p);

// The nine images of p in their fixed order, the first of which that passes a test wins:
// (x, y), (x+W, y), (x-W, y), (x, y+H), (x, y-H), (x+W, y+H), (x+W, y-H), (x-W, y+H), (x-W, y-H).
void wrapImages(const vorlik::vec2& p, vorlik::vec2 images[kWrapImageCount]);
