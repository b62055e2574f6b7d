// The places in camera space where a node counts as on view, each with the displacement that
// brings a node found there onto the screen. A scene lists up to nine of them each frame: the
// view itself and its wrapped copies across the world's edges. Pure arithmetic, no GL.
#pragma once

#include "core/Stack.h"
#include "math/vec2.h"
#include "scene/Rect.h"

#include <type_traits>

struct ViewRect {
    float x, y, width, height; // camera space
    vorlik::vec2 offset;       // added to the position of a node found here
};

static_assert(std::is_trivially_copyable<ViewRect>::value, "kept in a Stack, copied bytewise");

// Resets views and lists where a node counts as on view, in the order the culling tests them:
// the view itself, then, with wrap on, copies across the top, left, right and bottom edges
// that the view reaches. camera is the wrapped view centre, viewSize the view in world units.
// The copies are deliberately generous and not symmetric (four view heights tall at the top,
// two at the bottom); the first rectangle that holds a node decides where it is drawn.
void buildViewRects(vorlik::Stack<ViewRect>& views, const vorlik::vec2& camera, const vorlik::vec2& viewSize,
                    const vorlik::vec2& world, bool wrap);

// The first rectangle of the list that holds one of r's four corners, edges included, or null.
// A rectangle larger than every view with no corner inside is therefore not found.
const ViewRect* findViewRect(const vorlik::Stack<ViewRect>& views, const Rect& r);
