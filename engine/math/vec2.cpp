#include "math/vec2.h"

#include "math/scalar.h"

#include <cmath>

namespace vorlik {

vec2& vec2::operator/=(float s)
{
    // A zero divisor yields the zero vector so that one bad frame never spreads infinities.
    if (s == 0.0f) {
        x = y = 0.0f;
        return *this;
    }
    return *this *= 1.0f / s;
}

float vec2::length() const { return std::sqrt(x * x + y * y); }

void vec2::normalize()
{
    const float len = length();
    if (len != 0.0f) *this /= len;
}

vec2 vec2::normalized() const
{
    vec2 v = *this;
    v.normalize();
    return v;
}

float vec2::angleTo(const vec2& target) const
{
    const float dy = target.y - y;
    const float dx = target.x - x;
    float degrees = -radiansToDegrees(std::atan2(dy, dx));
    // Negating atan2 gives (-180, 0] for targets on the +y side; lifting those by a full turn keeps
    // the answer positive, at the price of 360 (not 0) for a target straight along +x.
    if (dy >= 0.0f) degrees += 360.0f;
    return degrees;
}

void vec2::rotate(float radians)
{
    const float c = std::cos(radians);
    const float s = std::sin(radians);
    *this = vec2(x * c - y * s, y * c + x * s);
}

vec2 vec2::rotated(float radians) const
{
    vec2 v = *this;
    v.rotate(radians);
    return v;
}

float vec2::distanceToLine(const vec2& a, const vec2& b) const
{
    const vec2 ab = b - a;
    const float crossed = (x - a.x) * ab.y - (y - a.y) * ab.x;
    const double lineLength = std::sqrt(static_cast<double>(ab.x) * ab.x + static_cast<double>(ab.y) * ab.y);
    return static_cast<float>(std::fabs(crossed) / lineLength);
}

float distance(const vec2& a, const vec2& b) { return (b - a).length(); }

} // namespace vorlik
