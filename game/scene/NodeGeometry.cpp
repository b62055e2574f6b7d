#include "scene/NodeGeometry.h"

#include "math/scalar.h"

#include <algorithm>

vorlik::mat2 placeNode(const vorlik::mat2& base, const vorlik::vec2& translation, float degrees, float scale)
{
    vorlik::mat2 t = base;
    t.translate(translation);
    t.rotate(vorlik::degreesToRadians(degrees));
    t.scale(scale);
    return t;
}

void nodeCorners(const vorlik::mat2& t, const vorlik::vec3& anchor, const vorlik::vec3& size, vorlik::vec2 corners[4])
{
    const float left = anchor.x - size.x * 0.5f;
    const float right = anchor.x + size.x * 0.5f;
    const float top = anchor.y - size.y * 0.5f;
    const float bottom = anchor.y + size.y * 0.5f;
    corners[0] = t * vorlik::vec2(left, top);
    corners[1] = t * vorlik::vec2(right, top);
    corners[2] = t * vorlik::vec2(right, bottom);
    corners[3] = t * vorlik::vec2(left, bottom);
}

Rect enclosingRect(const vorlik::mat2& t, const vorlik::vec3& anchor, const vorlik::vec3& size)
{
    vorlik::vec2 c[4];
    nodeCorners(t, anchor, size, c);
    const float minX = std::min({c[0].x, c[1].x, c[2].x, c[3].x});
    const float maxX = std::max({c[0].x, c[1].x, c[2].x, c[3].x});
    const float minY = std::min({c[0].y, c[1].y, c[2].y, c[3].y});
    const float maxY = std::max({c[0].y, c[1].y, c[2].y, c[3].y});
    return Rect{minX, minY, maxX - minX, maxY - minY};
}
