// What a scene hands to every draw: the frame's view rectangles, the colour inherited down
// the tree, the projections, the current 2D transform and the camera. The traversal keeps one
// per tree level on an explicit stack, so it is a plain value copied bytewise.
#pragma once

#include "core/Stack.h"
#include "math/mat2.h"
#include "math/mat4.h"
#include "math/vec2.h"
#include "scene/ByteColor.h"
#include "scene/ViewRect.h"

#include <type_traits>

struct SceneState {
    // The frame's view rectangles in camera space: the view and its wrapped copies.
    const vorlik::Stack<ViewRect>* views;
    // Inherited colour: each channel is the product of the channels along the path.
    ByteColor color;
    // Orthographic projection, one unit a pixel, origin at the screen centre, y down.
    const vorlik::mat4* projection;
    // Perspective projection for DRAW_PERSPECTIVE nodes; one unit a pixel at distance 2.
    const vorlik::mat4* perspective;
    // Camera transform times every transform from the scene down to the current node.
    vorlik::mat2 transform;
    // The camera's 2D transform as a 4x4 matrix, pushed back by 2 units for the perspective.
    vorlik::mat4 cameraModelView;
    // How far the camera moved since the previous render (world units).
    vorlik::vec2 cameraDelta;
};

static_assert(std::is_trivially_copyable<SceneState>::value, "kept in a Stack, copied bytewise");
