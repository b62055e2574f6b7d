// mat4: a 4 x 4 matrix of plain floats stored column by column, element (row r, column c) at
// m[4c + r], so data() goes straight to glLoadMatrixf or glUniformMatrix4fv without transposing.
// Default is identity. translate, rotate and scale compose on the right, like the GL matrix
// stack. The projections take top before bottom. Angles are radians except the field of view.
#pragma once

#include <type_traits>

#include "math/vec3.h"
#include "math/vec4.h"

namespace vorlik {

struct mat4 {
    float m[16] = {1.0f, 0.0f, 0.0f, 0.0f, 0.0f, 1.0f, 0.0f, 0.0f,
                   0.0f, 0.0f, 1.0f, 0.0f, 0.0f, 0.0f, 0.0f, 1.0f};

    constexpr mat4() = default;

    float* data() { return m; }
    const float* data() const { return m; }
    float& at(int row, int column) { return m[4 * column + row]; }
    float at(int row, int column) const { return m[4 * column + row]; }

    bool operator==(const mat4& o) const;
    bool operator!=(const mat4& o) const { return !(*this == o); }

    mat4 operator*(const mat4& o) const;
    mat4& operator*=(const mat4& o) { return *this = *this * o; }
    vec4 operator*(const vec4& v) const;

    // Column k multiplied by v[k].
    void scaleColumns(const vec4& v);
    // Full inverse by cofactors; left as it is when the determinant is exactly 0.
    void invert();

    void translate(float x, float y, float z);
    void scale(float x, float y, float z);
    // Textbook rotation about a unit axis, counter-clockwise looking down the axis.
    void rotate(const vec3& axis, float radians);
    // Rotates about z by rz, then y by ry, then x by rx, composed on the right: a point is turned
    // about x first, as vec3::rotateEuler does.
    void rotateEuler(float rx, float ry, float rz);

    static mat4 zero();
    // Perspective projection as glFrustum computes it, with top given before bottom.
    static mat4 frustum(float left, float right, float top, float bottom, float near, float far);
    // Orthographic projection as glOrtho computes it, with top given before bottom. An empty
    // range (right equal to left and so on) is widened by 1 instead of dividing by 0.
    static mat4 ortho(float left, float right, float top, float bottom, float near, float far);
    // Symmetric frustum with a vertical field of view in degrees.
    static mat4 perspective(float fovYDegrees, float aspect, float near, float far);
    // A camera at eye looking at target, as gluLookAt builds it.
    static mat4 lookAt(const vec3& eye, const vec3& target, const vec3& up);
};

static_assert(sizeof(mat4) == 16 * sizeof(float), "mat4 is sixteen packed floats, as GL reads it");
static_assert(std::is_standard_layout_v<mat4>, "data() is the sixteen floats");
static_assert(std::is_trivially_copyable_v<mat4>, "mat4 is copied bytewise by Stack");

} // namespace vorlik
