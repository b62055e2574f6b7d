#include "play/HitTest.h"

#include "math/scalar.h"

#include <algorithm>
#include <cmath>

namespace {

// How far x lies outside [low, high]; 0 inside.
float gap(float x, float low, float high) { return std::max(std::max(low - x, x - high), 0.0f); }

// The smallest gap of x and of its images one world size either side, the three places the
// nine wrap images take on this axis.
float nearestImageGap(float x, float world, float low, float high)
{
    return std::min(gap(x, low, high), std::min(gap(x + world, low, high), gap(x - world, low, high)));
}

} // namespace

double lineDistance(const vorlik::vec2& p, const vorlik::vec2& a, const vorlik::vec2& b)
{
    const vorlik::vec2 step = b - a;
    const double length = std::sqrt(static_cast<double>(step.x) * step.x + static_cast<double>(step.y) * step.y);
    return std::fabs((p - a).cross(step)) / length;
}

vorlik::vec2 entryPoint(const vorlik::vec2& from, const vorlik::vec2& to, const vorlik::vec2& centre, float r)
{
    const vorlik::vec2 d = (to - from).normalized();
    const vorlik::vec2 f = from - centre;
    const float a = d.dot(d);
    const float b = 2.0f * f.dot(d);
    const float c = f.dot(f) - r * r;
    const float disc = b * b - 4.0f * a * c;
    if (disc < 0.0f) return vorlik::vec2(0.0f, 0.0f);
    const float root = std::sqrt(disc);
    const float t = std::min((-b + root) / (2.0f * a), (-b - root) / (2.0f * a));
    return from + d * t;
}

void HitTest::begin(const vorlik::vec2& from, const vorlik::vec2& to)
{
    candidates.clear();
    keys.clear();
    lowX = std::min(from.x, to.x);
    highX = std::max(from.x, to.x);
    lowY = std::min(from.y, to.y);
    highY = std::max(from.y, to.y);
}

void HitTest::consider(Actor* ship)
{
    // Most ships are nowhere near a shot. An image touches the box only if it lies closer than
    // the radius to it on both axes, so a ship whose every image is at least that far off on
    // one axis is passed over before its nine images are made; the result is the same.
    const float r = ship->radius;
    if (nearestImageGap(ship->position.x, kWorldWidth, lowX, highX) >= r ||
        nearestImageGap(ship->position.y, kWorldHeight, lowY, highY) >= r)
        return;
    images.clear();
    vorlik::vec2 nine[kWrapImageCount];
    wrapImages(ship->position, nine);
    for (const vorlik::vec2& p : nine) images.push(p);
    for (const vorlik::vec2& p : images) {
        const vorlik::vec2 nearest(vorlik::clamp(p.x, lowX, highX), vorlik::clamp(p.y, lowY, highY));
        if ((p - nearest).lengthSquared() < ship->radius * ship->radius) {
            candidates.push(hit_struct{ship, p});
            return; // one image per ship at most
        }
    }
}

hit_struct HitTest::choose(const vorlik::vec2& from, const vorlik::vec2& to)
{
    // Nearest first by the squared distance of the image's centre to the step's start; a
    // stable binary insertion sort keeps the list order of equal keys.
    for (const hit_struct& c : candidates) keys.push((c.point - from).lengthSquared());
    for (uint32_t i = 1; i < candidates.count; ++i) {
        const hit_struct candidate = candidates[i];
        const float key = keys[i];
        const uint32_t at = static_cast<uint32_t>(std::upper_bound(keys.data, keys.data + i, key) - keys.data);
        for (uint32_t j = i; j > at; --j) {
            candidates[j] = candidates[j - 1];
            keys[j] = keys[j - 1];
        }
        candidates[at] = candidate;
        keys[at] = key;
    }
    // The box test above and this line test are the whole test: near the box's corners a ship a
    // little farther than its radius from the true segment still counts as hit.
    for (const hit_struct& c : candidates) {
        if (lineDistance(c.point, from, to) < c.target->radius)
            return hit_struct{c.target, entryPoint(from, to, c.point, c.target->radius)};
    }
    return hit_struct();
}
