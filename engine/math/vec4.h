// vec4: four plain 32-bit floats, used for homogeneous points, RGBA colours in [0, 1] and the
// per-column factors of mat4::scaleColumns. Component-wise arithmetic; dividing by a scalar 0
// gives the zero vector and normalising a zero vector leaves it unchanged. operator[] maps
// 0, 1, 2 to x, y, z and any other index to w.
#pragma once

#include <type_traits>

namespace vorlik {

struct vec4 {
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;
    float w = 0.0f;

    constexpr vec4() = default;
    constexpr vec4(float x, float y, float z, float w) : x(x), y(y), z(z), w(w) {}

    vec4& operator+=(const vec4& o) { x += o.x; y += o.y; z += o.z; w += o.w; return *this; }
    vec4& operator-=(const vec4& o) { x -= o.x; y -= o.y; z -= o.z; w -= o.w; return *this; }
    vec4& operator*=(const vec4& o) { x *= o.x; y *= o.y; z *= o.z; w *= o.w; return *this; }
    vec4& operator/=(const vec4& o) { x /= o.x; y /= o.y; z /= o.z; w /= o.w; return *this; }
    vec4& operator+=(float s) { x += s; y += s; z += s; w += s; return *this; }
    vec4& operator-=(float s) { x -= s; y -= s; z -= s; w -= s; return *this; }
    vec4& operator*=(float s) { x *= s; y *= s; z *= s; w *= s; return *this; }
    vec4& operator/=(float s);

    vec4 operator+(const vec4& o) const { return vec4(*this) += o; }
    vec4 operator-(const vec4& o) const { return vec4(*this) -= o; }
    vec4 operator*(const vec4& o) const { return vec4(*this) *= o; }
    vec4 operator/(const vec4& o) const { return vec4(*this) /= o; }
    vec4 operator+(float s) const { return vec4(*this) += s; }
    vec4 operator-(float s) const { return vec4(*this) -= s; }
    vec4 operator*(float s) const { return vec4(*this) *= s; }
    vec4 operator/(float s) const { return vec4(*this) /= s; }
    vec4 operator-() const { return vec4(-x, -y, -z, -w); }

    bool operator==(const vec4& o) const { return x == o.x && y == o.y && z == o.z && w == o.w; }
    bool operator!=(const vec4& o) const { return !(*this == o); }

    float& operator[](int i) { return i == 0 ? x : i == 1 ? y : i == 2 ? z : w; }
    float operator[](int i) const { return i == 0 ? x : i == 1 ? y : i == 2 ? z : w; }

    float length() const;
    float dot(const vec4& o) const { return x * o.x + y * o.y + z * o.z + w * o.w; }
    void normalize();
    vec4 normalized() const;
};

static_assert(sizeof(vec4) == 4 * sizeof(float), "vec4 is four packed floats");
static_assert(std::is_trivially_copyable_v<vec4>, "vec4 is copied bytewise by Stack");

} // namespace vorlik
