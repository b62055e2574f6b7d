#include "math/vec3.h"

#include <cmath>
#include <initializer_list>

namespace vorlik {

vec3& vec3::operator/=(float s)
{
    // A zero divisor yields the zero vector so that one bad frame never spreads infinities.
    if (s == 0.0f) {
        x = y = z = 0.0f;
        return *this;
    }
    return *this *= 1.0f / s;
}

float vec3::length() const { return std::sqrt(x * x + y * y + z * z); }

void vec3::normalize()
{
    const float len = length();
    if (len != 0.0f) *this /= len;
}

vec3 vec3::normalized() const
{
    vec3 v = *this;
    v.normalize();
    return v;
}

void vec3::clamp(float min, float max)
{
    for (float* c : {&x, &y, &z}) {
        if (*c > max)
            *c = max;
        else if (min > *c)
            *c = min;
    }
}

void vec3::rotate(const vec3& a, float radians)
{
    const float c = std::cos(radians);
    const float s = std::sin(radians);
    const float k = 1.0f - c;
    const float nx = ((1.0f - a.x * a.x) * c + a.x * a.x) * x + (a.y * a.z * k - a.z * s) * y +
                     (a.x * a.z * k + a.y * s) * z;
    const float ny = (a.y * a.z * k + a.z * s) * x + ((1.0f - a.y * a.y) * c + a.y * a.y) * y +
                     (a.y * a.z * k - a.x * s) * z;
    const float nz = (a.x * a.z * k - a.y * s) * x + (a.y * a.z * k + a.x * s) * y +
                     ((1.0f - a.z * a.z) * c + a.z * a.z) * z;
    *this = vec3(nx, ny, nz);
}

void vec3::rotateEuler(float rx, float ry, float rz)
{
    rotate(vec3(1.0f, 0.0f, 0.0f), rx);
    rotate(vec3(0.0f, 1.0f, 0.0f), ry);
    rotate(vec3(0.0f, 0.0f, 1.0f), rz);
}

} // namespace vorlik
