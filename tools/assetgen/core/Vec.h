// Vec: the small 2D/3D vector types the generator's shading maths uses.
// Plain value types with the usual operators; normalising a zero vector returns zero.
#pragma once

#include "math/scalar.h"

#include <algorithm>
#include <cmath>

namespace assetgen {

struct V2 {
    float x = 0, y = 0;
};
inline V2 operator+(V2 a, V2 b) { return {a.x + b.x, a.y + b.y}; }
inline V2 operator-(V2 a, V2 b) { return {a.x - b.x, a.y - b.y}; }
inline V2 operator*(V2 a, float s) { return {a.x * s, a.y * s}; }
inline float dot(V2 a, V2 b) { return a.x * b.x + a.y * b.y; }
inline float length(V2 a) { return std::sqrt(dot(a, a)); }
inline V2 rotate(V2 p, float radians)
{
    float c = std::cos(radians), s = std::sin(radians);
    return {c * p.x - s * p.y, s * p.x + c * p.y};
}

struct V3 {
    float x = 0, y = 0, z = 0;
};
inline V3 operator+(V3 a, V3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline V3 operator-(V3 a, V3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline V3 operator*(V3 a, float s) { return {a.x * s, a.y * s, a.z * s}; }
inline V3 operator*(V3 a, V3 b) { return {a.x * b.x, a.y * b.y, a.z * b.z}; }
inline float dot(V3 a, V3 b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline float length(V3 a) { return std::sqrt(dot(a, a)); }
inline V3 normalize(V3 a)
{
    float l = length(a);
    return l > 0 ? a * (1.0f / l) : V3{};
}
inline V3 cross(V3 a, V3 b) { return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x}; }
inline V3 mix(V3 a, V3 b, float t) { return a + (b - a) * t; }

inline float clamp01(float v) { return std::min(1.0f, std::max(0.0f, v)); }
inline float mixf(float a, float b, float t) { return a + (b - a) * t; }
inline float smoothstep(float e0, float e1, float v)
{
    float t = clamp01((v - e0) / (e1 - e0));
    return t * t * (3 - 2 * t);
}
using vorlik::degreesToRadians;
using vorlik::kPi;
using vorlik::radiansToDegrees;

} // namespace assetgen
