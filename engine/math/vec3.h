// vec3: a plain triple of 32-bit floats for 3D positions, directions and bounding-box corners.
// Component-wise arithmetic; dividing by a scalar 0 gives the zero vector and normalising a zero
// vector leaves it unchanged. Rotations take radians. The axis rotation keeps the game's own
// formula, which is exact about the x, y or z axis alone but not about a general axis.
#pragma once

#include <type_traits>

namespace vorlik {

struct vec3 {
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;

    constexpr vec3() = default;
    constexpr vec3(float x, float y, float z) : x(x), y(y), z(z) {}

    vec3& operator+=(const vec3& o) { x += o.x; y += o.y; z += o.z; return *this; }
    vec3& operator-=(const vec3& o) { x -= o.x; y -= o.y; z -= o.z; return *this; }
    vec3& operator*=(const vec3& o) { x *= o.x; y *= o.y; z *= o.z; return *this; }
    vec3& operator/=(const vec3& o) { x /= o.x; y /= o.y; z /= o.z; return *this; }
    vec3& operator+=(float s) { x += s; y += s; z += s; return *this; }
    vec3& operator-=(float s) { x -= s; y -= s; z -= s; return *this; }
    vec3& operator*=(float s) { x *= s; y *= s; z *= s; return *this; }
    vec3& operator/=(float s);

    vec3 operator+(const vec3& o) const { return vec3(*this) += o; }
    vec3 operator-(const vec3& o) const { return vec3(*this) -= o; }
    vec3 operator*(const vec3& o) const { return vec3(*this) *= o; }
    vec3 operator/(const vec3& o) const { return vec3(*this) /= o; }
    vec3 operator+(float s) const { return vec3(*this) += s; }
    vec3 operator-(float s) const { return vec3(*this) -= s; }
    vec3 operator*(float s) const { return vec3(*this) *= s; }
    vec3 operator/(float s) const { return vec3(*this) /= s; }
    vec3 operator-() const { return vec3(-x, -y, -z); }

    bool operator==(const vec3& o) const { return x == o.x && y == o.y && z == o.z; }
    bool operator!=(const vec3& o) const { return !(*this == o); }

    float length() const;
    float dot(const vec3& o) const { return x * o.x + y * o.y + z * o.z; }
    vec3 cross(const vec3& o) const { return vec3(y * o.z - z * o.y, z * o.x - x * o.z, x * o.y - y * o.x); }

    void normalize();
    vec3 normalized() const;
    // Each component becomes max if above max, else min if below min.
    void clamp(float min, float max);

    // Rotates about the unit vector axis. The terms pairing x with y use ay*az*(1 - cos) where a
    // textbook rotation has ax*ay*(1 - cos); the game's geometry was tuned with this formula.
    void rotate(const vec3& axis, float radians);
    // Rotates about x by rx, then about y by ry, then about z by rz.
    void rotateEuler(float rx, float ry, float rz);
};

static_assert(sizeof(vec3) == 3 * sizeof(float), "vec3 is three packed floats");
static_assert(std::is_trivially_copyable_v<vec3>, "vec3 is copied bytewise by Stack");

} // namespace vorlik
