// The geometry every scene node shares: how a node is placed in its parent's frame and the
// rectangle that encloses its corners once placed. Used by Drawable::bounds, Group bounds and
// the scenes' culling, so that all three agree on where a node is.
#pragma once

#include "math/mat2.h"
#include "math/vec2.h"
#include "math/vec3.h"
#include "scene/Rect.h"

// base x translate(translation) x rotate(degrees) x scale(scale): the frame of a node placed
// at translation, turned by degrees and uniformly scaled inside the frame base.
vorlik::mat2 placeNode(const vorlik::mat2& base, const vorlik::vec2& translation, float degrees, float scale);

// The four corners anchor +- size/2 of a node's rectangle, transformed by t.
void nodeCorners(const vorlik::mat2& t, const vorlik::vec3& anchor, const vorlik::vec3& size, vorlik::vec2 corners[4]);

// The axis-aligned rectangle enclosing the node's four transformed corners.
Rect enclosingRect(const vorlik::mat2& t, const vorlik::vec3& anchor, const vorlik::vec3& size);
