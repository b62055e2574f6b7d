// One quad over the whole viewport, for compositing a render target or running a
// post-processing program. The caller binds the texture and the program first.
#pragma once

namespace vorlik {

// Loads identity projection and model-view matrices, enables the vertex, texture-coordinate
// and colour arrays (left enabled) and draws clip space (-1, 1) to (1, -1) in opaque white
// with texture coordinates (0, 0) at the bottom-left and (1, 1) at the top-right.
void drawFullscreenQuad();

} // namespace vorlik
