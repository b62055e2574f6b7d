// vec2: a plain pair of 32-bit floats for positions, directions and sizes in the plane.
// Component-wise arithmetic; dividing by a scalar 0 gives the zero vector instead of infinities,
// and normalising a zero vector leaves it unchanged. Angles passed in are radians; angleTo
// answers in degrees for the sprites that consume it.
#pragma once

#include <type_traits>

namespace vorlik {

struct vec2 {
    float x = 0.0f;
    float y = 0.0f;

    constexpr vec2() = default;
    constexpr vec2(float x, float y) : x(x), y(y) {}

    vec2& operator+=(const vec2& o) { x += o.x; y += o.y; return *this; }
    vec2& operator-=(const vec2& o) { x -= o.x; y -= o.y; return *this; }
    vec2& operator*=(const vec2& o) { x *= o.x; y *= o.y; return *this; }
    vec2& operator/=(const vec2& o) { x /= o.x; y /= o.y; return *this; }
    vec2& operator+=(float s) { x += s; y += s; return *this; }
    vec2& operator-=(float s) { x -= s; y -= s; return *this; }
    vec2& operator*=(float s) { x *= s; y *= s; return *this; }
    vec2& operator/=(float s);

    vec2 operator+(const vec2& o) const { return vec2(*this) += o; }
    vec2 operator-(const vec2& o) const { return vec2(*this) -= o; }
    vec2 operator*(const vec2& o) const { return vec2(*this) *= o; }
    vec2 operator/(const vec2& o) const { return vec2(*this) /= o; }
    vec2 operator+(float s) const { return vec2(*this) += s; }
    vec2 operator-(float s) const { return vec2(*this) -= s; }
    vec2 operator*(float s) const { return vec2(*this) *= s; }
    vec2 operator/(float s) const { return vec2(*this) /= s; }
    vec2 operator-() const { return vec2(-x, -y); }

    bool operator==(const vec2& o) const { return x == o.x && y == o.y; }
    bool operator!=(const vec2& o) const { return !(*this == o); }

    float length() const;
    float lengthSquared() const { return x * x + y * y; }
    float dot(const vec2& o) const { return x * o.x + y * o.y; }
    // z of the 3D cross product: positive when o lies counter-clockwise of this.
    float cross(const vec2& o) const { return x * o.y - y * o.x; }

    void normalize();
    vec2 normalized() const;

    // Degrees from this point to target, in (0, 360]: straight along +x is 360, not 0.
    float angleTo(const vec2& target) const;
    // Counter-clockwise for positive angles.
    void rotate(float radians);
    vec2 rotated(float radians) const;
    // Distance of this point from the infinite line through a and b. When a equals b this is
    // 0 / 0 (not a number), which compares below nothing: a shot that does not move never hits.
    float distanceToLine(const vec2& a, const vec2& b) const;
};

float distance(const vec2& a, const vec2& b);

static_assert(sizeof(vec2) == 2 * sizeof(float), "vec2 is two packed floats");
static_assert(std::is_trivially_copyable_v<vec2>, "vec2 is copied bytewise by Stack");

} // namespace vorlik
