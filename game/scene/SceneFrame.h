// One frame's camera set-up, shared by both scenes: the wrapped camera position, the view
// rectangles (the view and its copies across the world's edges) and the projections that the
// traversal's initial state points at. Pure arithmetic, no GL.
#pragma once

#include "core/Stack.h"
#include "math/mat4.h"
#include "math/vec2.h"
#include "scene/SceneState.h"
#include "scene/ViewRect.h"

struct SceneFrame {
    vorlik::mat4 projection;  // orthographic, origin at the screen centre, y down
    vorlik::mat4 perspective; // frustum where one unit is one pixel at distance 2
    vorlik::vec2 camera;      // camera position after wrapping into the world
    SceneState state;         // the traversal's initial state; points at the members above

    SceneFrame() = default;
    SceneFrame(const SceneFrame&) = delete; // the state points into this frame
    SceneFrame& operator=(const SceneFrame&) = delete;
};

// Resets views and lists where a node counts as on view, in the order the culling tests them:
// the view itself, then, with wrap on, copies across the top, left, right and bottom edges
// that the view reaches. camera is the wrapped view centre, viewSize the view in world units.
// The copies are deliberately generous and not symmetric (four view heights tall at the top,
// two at the bottom); the first rectangle that holds a node decides where it is drawn.
void buildViewRects(vorlik::Stack<ViewRect>& views, const vorlik::vec2& camera, const vorlik::vec2& viewSize,
                    const vorlik::vec2& world, bool wrap);
