// A Drawable that draws itself in its parent's frame: the scenes give it no transform of its
// own and never cull it (DRAW_UNTRANSFORMED), so it is asked to draw every frame. For
// screen-wide or world-wide layers such as the starfield and the weapons' shot batches; not
// for things that should be culled when off view.
#pragma once

#include "scene/Drawable.h"

class Effect : public Drawable {
public:
    Effect();
};
