#include "scene/SceneFrame.h"

namespace {

void push(vorlik::Stack<ViewRect>& views, float x, float y, float width, float height, float offsetX, float offsetY)
{
    views.push(ViewRect{x, y, width, height, vorlik::vec2(offsetX, offsetY)});
}

} // namespace

void buildViewRects(vorlik::Stack<ViewRect>& views, const vorlik::vec2& camera, const vorlik::vec2& viewSize,
                    const vorlik::vec2& world, bool wrap)
{
    const float vw = viewSize.x, vh = viewSize.y;
    const float ww = world.x, wh = world.y;
    views.clear();
    push(views, -vw / 2, -vh / 2, vw, vh, 0, 0);
    if (!wrap) return;

    const bool top = camera.y - vh / 2 <= 0;
    const bool left = camera.x - vw / 2 <= 0;
    const bool right = ww <= camera.x + vw / 2;
    const bool bottom = wh <= camera.y + vh / 2;
    if (top) push(views, -vw / 2, wh - 2 * vh, vw, 4 * vh, 0, -wh);
    if (left) {
        if (top) push(views, ww - vw, wh - 2 * vh, 2 * vw, 4 * vh, -ww, -wh);
        push(views, ww - vw, -vh / 2, 2 * vw, vh, -ww, 0);
    }
    if (right) {
        if (top) push(views, -vw / 2 - ww, wh - 2 * vh, 2 * vw, 4 * vh, ww, -wh);
        push(views, -vw / 2 - ww, -vh / 2, 2 * vw, vh, ww, 0);
    }
    if (bottom) {
        push(views, -vw / 2, -vh / 2 - wh, vw, 2 * vh, 0, wh);
        if (left) push(views, ww - vw, -vh / 2 - wh, 2 * vw, 2 * vh, -ww, wh);
        if (right) push(views, -vw / 2 - ww, -vh / 2 - wh, 2 * vw, 2 * vh, ww, wh);
    }
}
