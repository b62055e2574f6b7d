#include "core/Sdf.h"

#include <algorithm>
#include <cmath>

namespace assetgen {

float sdCircle(V2 p, float r) { return length(p) - r; }

float sdBox(V2 p, V2 halfSize)
{
    V2 d{std::fabs(p.x) - halfSize.x, std::fabs(p.y) - halfSize.y};
    V2 outside{std::max(d.x, 0.0f), std::max(d.y, 0.0f)};
    return length(outside) + std::min(std::max(d.x, d.y), 0.0f);
}

float sdRoundBox(V2 p, V2 halfSize, float radius)
{
    return sdBox(p, {halfSize.x - radius, halfSize.y - radius}) - radius;
}

float sdSegment(V2 p, V2 a, V2 b, float r)
{
    V2 pa = p - a, ba = b - a;
    float h = clamp01(dot(pa, ba) / std::max(dot(ba, ba), 1e-12f));
    return length(pa - ba * h) - r;
}

float sdPolygon(V2 p, const std::vector<V2>& v)
{
    float d = dot(p - v[0], p - v[0]);
    float s = 1;
    for (size_t i = 0, j = v.size() - 1; i < v.size(); j = i, ++i) {
        V2 e = v[j] - v[i];
        V2 w = p - v[i];
        V2 b = w - e * clamp01(dot(w, e) / dot(e, e));
        d = std::min(d, dot(b, b));
        bool c1 = p.y >= v[i].y, c2 = p.y < v[j].y, c3 = e.x * w.y > e.y * w.x;
        if ((c1 && c2 && c3) || (!c1 && !c2 && !c3))
            s = -s;
    }
    return s * std::sqrt(d);
}

float sdEllipse(V2 p, float a, float b)
{
    // Distance in the stretched space, scaled by the local stretch: good near the outline,
    // which is all antialiasing and bevels need.
    V2 q{p.x / a, p.y / b};
    float k0 = length(q);
    V2 g{p.x / (a * a), p.y / (b * b)};
    float k1 = length(g);
    if (k1 < 1e-9f)
        return -std::min(a, b);
    return k0 * (k0 - 1.0f) / k1;
}

float sdRing(V2 p, float r, float t) { return std::fabs(length(p) - r) - t; }

float smoothUnion(float a, float b, float k)
{
    float h = clamp01(0.5f + 0.5f * (b - a) / k);
    return mixf(b, a, h) - k * h * (1 - h);
}

} // namespace assetgen
