#include "math/vec4.h"

#include <cmath>

namespace vorlik {

vec4& vec4::operator/=(float s)
{
    // A zero divisor yields the zero vector so that one bad frame never spreads infinities.
    if (s == 0.0f) {
        x = y = z = w = 0.0f;
        return *this;
    }
    return *this *= 1.0f / s;
}

float vec4::length() const { return std::sqrt(x * x + y * y + z * z + w * w); }

void vec4::normalize()
{
    const float len = length();
    if (len != 0.0f) *this /= len;
}

vec4 vec4::normalized() const
{
    vec4 v = *this;
    v.normalize();
    return v;
}

} // namespace vorlik
