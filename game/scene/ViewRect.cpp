#include "scene/ViewRect.h"

namespace {

void push(vorlik::Stack<ViewRect>& views, float x, float y, float width, float height, float offsetX, float offsetY)
{
    views.push(ViewRect{x, y, width, height, vorlik::vec2(offsetX, offsetY)});
}

bool contains(const ViewRect& v, float x, float y)
{
    return x >= v.x && x <= v.x + v.width && y >= v.y && y <= v.y + v.height;
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

const ViewRect* findViewRect(const vorlik::Stack<ViewRect>& views, const Rect& r)
{
    const float right = r.x + r.width;
    const float bottom = r.y + r.height;
    for (const ViewRect& v : views) {
        if (contains(v, r.x, r.y) || contains(v, right, bottom) || contains(v, r.x, bottom) ||
            contains(v, right, r.y))
            return &v;
    }
    return nullptr;
}
