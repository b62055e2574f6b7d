// mat2: a 2D affine transform of six plain floats, laid out column by column as
// glUniformMatrix3x2fv takes it: (m0, m1) and (m2, m3) are the linear columns, (m4, m5) the
// translation, so a point maps to (m0*x + m2*y + m4, m1*x + m3*y + m5). Default is identity.
// translate, rotate and scale compose on the right, like the GL matrix stack. invert is only
// exact for scalings and translations (see there).
#pragma once

#include <type_traits>

#include "math/mat4.h"
#include "math/vec2.h"

namespace vorlik {

struct mat2 {
    float m0 = 1.0f;
    float m1 = 0.0f;
    float m2 = 0.0f;
    float m3 = 1.0f;
    float m4 = 0.0f;
    float m5 = 0.0f;

    constexpr mat2() = default;
    constexpr mat2(float m0, float m1, float m2, float m3, float m4, float m5)
        : m0(m0), m1(m1), m2(m2), m3(m3), m4(m4), m5(m5)
    {
    }

    // The six floats in order, for glUniformMatrix3x2fv.
    const float* data() const { return &m0; }

    bool operator==(const mat2& o) const;
    bool operator!=(const mat2& o) const { return !(*this == o); }

    // Affine product: applying the result equals applying o first, then this.
    mat2 operator*(const mat2& o) const;
    mat2& operator*=(const mat2& o) { return *this = *this * o; }
    // The transformed point.
    vec2 operator*(const vec2& p) const;

    void translate(float x, float y);
    void translate(const vec2& t) { translate(t.x, t.y); }
    // Counter-clockwise for positive angles.
    void rotate(float radians);
    void scale(float sx, float sy);
    void scale(float s) { scale(s, s); }

    // The same transform as a 4 x 4 matrix that leaves z alone.
    mat4 toMat4() const;
    // Normalises each of (m0, m1), (m2, m3) and (m4, m5) that is not of length 0. The
    // translation pair is normalised as well, which strips the offset down to a direction.
    void normalize();
    // Swaps the off-diagonal elements with their signs changed and only negates the translation:
    // exact for a pure scaling or a pure translation, which is all the game inverts. A rotation
    // comes back unchanged. Left as it is when the determinant is 0.
    void invert();
};

static_assert(sizeof(mat2) == 6 * sizeof(float), "mat2 is six packed floats, as GL reads it");
static_assert(std::is_standard_layout_v<mat2>, "data() points at the first of the six floats");
static_assert(std::is_trivially_copyable_v<mat2>, "mat2 is copied bytewise by Stack");

} // namespace vorlik
