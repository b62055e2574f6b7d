#include "math/mat2.h"

#include <cmath>

namespace vorlik {

namespace {

void normalizePair(float& a, float& b)
{
    const float len = std::sqrt(a * a + b * b);
    if (len == 0.0f) return;
    a /= len;
    b /= len;
}

} // namespace

bool mat2::operator==(const mat2& o) const
{
    return m0 == o.m0 && m1 == o.m1 && m2 == o.m2 && m3 == o.m3 && m4 == o.m4 && m5 == o.m5;
}

mat2 mat2::operator*(const mat2& o) const
{
    return mat2(m0 * o.m0 + m2 * o.m1, m1 * o.m0 + m3 * o.m1, m0 * o.m2 + m2 * o.m3, m1 * o.m2 + m3 * o.m3,
                m0 * o.m4 + m2 * o.m5 + m4, m1 * o.m4 + m3 * o.m5 + m5);
}

vec2 mat2::operator*(const vec2& p) const { return vec2(m0 * p.x + m2 * p.y + m4, m1 * p.x + m3 * p.y + m5); }

void mat2::translate(float x, float y) { *this *= mat2(1.0f, 0.0f, 0.0f, 1.0f, x, y); }

void mat2::rotate(float radians)
{
    const float c = std::cos(radians);
    const float s = std::sin(radians);
    *this *= mat2(c, s, -s, c, 0.0f, 0.0f);
}

void mat2::scale(float sx, float sy) { *this *= mat2(sx, 0.0f, 0.0f, sy, 0.0f, 0.0f); }

mat4 mat2::toMat4() const
{
    mat4 r;
    r.m[0] = m0;
    r.m[1] = m1;
    r.m[4] = m2;
    r.m[5] = m3;
    r.m[12] = m4;
    r.m[13] = m5;
    return r;
}

void mat2::normalize()
{
    normalizePair(m0, m1);
    normalizePair(m2, m3);
    normalizePair(m4, m5);
}

void mat2::invert()
{
    const float det = m0 * m3 - m1 * m2;
    if (det == 0.0f) return;
    const mat2 old = *this;
    m0 = old.m3 / det;
    m3 = old.m0 / det;
    m1 = -old.m2 / det;
    m2 = -old.m1 / det;
    m4 = -old.m4;
    m5 = -old.m5;
}

} // namespace vorlik
