#include "math/mat4.h"

#include "math/scalar.h"

#include <cmath>

namespace vorlik {

namespace {

// The adjugate (transposed cofactor matrix) of a. The formula reads the same for row-major and
// column-major storage, since the inverse of the transpose is the transpose of the inverse.
void adjugate(const float* a, float* r)
{
    r[0] = a[5] * a[10] * a[15] - a[5] * a[11] * a[14] - a[9] * a[6] * a[15] + a[9] * a[7] * a[14] +
           a[13] * a[6] * a[11] - a[13] * a[7] * a[10];
    r[4] = -a[4] * a[10] * a[15] + a[4] * a[11] * a[14] + a[8] * a[6] * a[15] - a[8] * a[7] * a[14] -
           a[12] * a[6] * a[11] + a[12] * a[7] * a[10];
    r[8] = a[4] * a[9] * a[15] - a[4] * a[11] * a[13] - a[8] * a[5] * a[15] + a[8] * a[7] * a[13] +
           a[12] * a[5] * a[11] - a[12] * a[7] * a[9];
    r[12] = -a[4] * a[9] * a[14] + a[4] * a[10] * a[13] + a[8] * a[5] * a[14] - a[8] * a[6] * a[13] -
            a[12] * a[5] * a[10] + a[12] * a[6] * a[9];
    r[1] = -a[1] * a[10] * a[15] + a[1] * a[11] * a[14] + a[9] * a[2] * a[15] - a[9] * a[3] * a[14] -
           a[13] * a[2] * a[11] + a[13] * a[3] * a[10];
    r[5] = a[0] * a[10] * a[15] - a[0] * a[11] * a[14] - a[8] * a[2] * a[15] + a[8] * a[3] * a[14] +
           a[12] * a[2] * a[11] - a[12] * a[3] * a[10];
    r[9] = -a[0] * a[9] * a[15] + a[0] * a[11] * a[13] + a[8] * a[1] * a[15] - a[8] * a[3] * a[13] -
           a[12] * a[1] * a[11] + a[12] * a[3] * a[9];
    r[13] = a[0] * a[9] * a[14] - a[0] * a[10] * a[13] - a[8] * a[1] * a[14] + a[8] * a[2] * a[13] +
            a[12] * a[1] * a[10] - a[12] * a[2] * a[9];
    r[2] = a[1] * a[6] * a[15] - a[1] * a[7] * a[14] - a[5] * a[2] * a[15] + a[5] * a[3] * a[14] +
           a[13] * a[2] * a[7] - a[13] * a[3] * a[6];
    r[6] = -a[0] * a[6] * a[15] + a[0] * a[7] * a[14] + a[4] * a[2] * a[15] - a[4] * a[3] * a[14] -
           a[12] * a[2] * a[7] + a[12] * a[3] * a[6];
    r[10] = a[0] * a[5] * a[15] - a[0] * a[7] * a[13] - a[4] * a[1] * a[15] + a[4] * a[3] * a[13] +
            a[12] * a[1] * a[7] - a[12] * a[3] * a[5];
    r[14] = -a[0] * a[5] * a[14] + a[0] * a[6] * a[13] + a[4] * a[1] * a[14] - a[4] * a[2] * a[13] -
            a[12] * a[1] * a[6] + a[12] * a[2] * a[5];
    r[3] = -a[1] * a[6] * a[11] + a[1] * a[7] * a[10] + a[5] * a[2] * a[11] - a[5] * a[3] * a[10] -
           a[9] * a[2] * a[7] + a[9] * a[3] * a[6];
    r[7] = a[0] * a[6] * a[11] - a[0] * a[7] * a[10] - a[4] * a[2] * a[11] + a[4] * a[3] * a[10] +
           a[8] * a[2] * a[7] - a[8] * a[3] * a[6];
    r[11] = -a[0] * a[5] * a[11] + a[0] * a[7] * a[9] + a[4] * a[1] * a[11] - a[4] * a[3] * a[9] -
            a[8] * a[1] * a[7] + a[8] * a[3] * a[5];
    r[15] = a[0] * a[5] * a[10] - a[0] * a[6] * a[9] - a[4] * a[1] * a[10] + a[4] * a[2] * a[9] +
            a[8] * a[1] * a[6] - a[8] * a[2] * a[5];
}

float determinantWith(const float* a, const float* adj)
{
    return a[0] * adj[0] + a[1] * adj[4] + a[2] * adj[8] + a[3] * adj[12];
}

} // namespace

bool mat4::operator==(const mat4& o) const
{
    for (int i = 0; i < 16; ++i)
        if (m[i] != o.m[i]) return false;
    return true;
}

mat4 mat4::operator*(const mat4& o) const
{
    mat4 r = zero();
    for (int c = 0; c < 4; ++c)
        for (int row = 0; row < 4; ++row)
            for (int k = 0; k < 4; ++k) r.m[4 * c + row] += m[4 * k + row] * o.m[4 * c + k];
    return r;
}

vec4 mat4::operator*(const vec4& v) const
{
    vec4 r;
    for (int row = 0; row < 4; ++row)
        r[row] = m[row] * v.x + m[4 + row] * v.y + m[8 + row] * v.z + m[12 + row] * v.w;
    return r;
}

void mat4::scaleColumns(const vec4& v)
{
    for (int c = 0; c < 4; ++c)
        for (int row = 0; row < 4; ++row) m[4 * c + row] *= v[c];
}

void mat4::invert()
{
    float adj[16];
    adjugate(m, adj);
    const float det = determinantWith(m, adj);
    if (det == 0.0f) return;
    for (int i = 0; i < 16; ++i) m[i] = adj[i] / det;
}

void mat4::translate(float x, float y, float z)
{
    mat4 t;
    t.m[12] = x;
    t.m[13] = y;
    t.m[14] = z;
    *this *= t;
}

void mat4::scale(float x, float y, float z) { scaleColumns(vec4(x, y, z, 1.0f)); }

void mat4::rotate(const vec3& a, float radians)
{
    const float c = std::cos(radians);
    const float s = std::sin(radians);
    const float k = 1.0f - c;
    mat4 r;
    r.at(0, 0) = a.x * a.x * k + c;
    r.at(0, 1) = a.x * a.y * k - a.z * s;
    r.at(0, 2) = a.x * a.z * k + a.y * s;
    r.at(1, 0) = a.y * a.x * k + a.z * s;
    r.at(1, 1) = a.y * a.y * k + c;
    r.at(1, 2) = a.y * a.z * k - a.x * s;
    r.at(2, 0) = a.z * a.x * k - a.y * s;
    r.at(2, 1) = a.z * a.y * k + a.x * s;
    r.at(2, 2) = a.z * a.z * k + c;
    *this *= r;
}

void mat4::rotateEuler(float rx, float ry, float rz)
{
    rotate(vec3(0.0f, 0.0f, 1.0f), rz);
    rotate(vec3(0.0f, 1.0f, 0.0f), ry);
    rotate(vec3(1.0f, 0.0f, 0.0f), rx);
}

mat4 mat4::zero()
{
    mat4 r;
    for (float& e : r.m) e = 0.0f;
    return r;
}

mat4 mat4::frustum(float left, float right, float top, float bottom, float near, float far)
{
    mat4 r = zero();
    r.m[0] = 2.0f * near / (right - left);
    r.m[5] = 2.0f * near / (top - bottom);
    r.m[8] = (right + left) / (right - left);
    r.m[9] = (top + bottom) / (top - bottom);
    r.m[10] = (-far - near) / (far - near);
    r.m[11] = -1.0f;
    r.m[14] = -2.0f * far * near / (far - near);
    return r;
}

mat4 mat4::ortho(float left, float right, float top, float bottom, float near, float far)
{
    if (right == left) right += 1.0f;
    if (bottom == top) bottom += 1.0f;
    if (far == near) far += 1.0f;
    mat4 r;
    r.m[0] = 2.0f / (right - left);
    r.m[5] = 2.0f / (top - bottom);
    r.m[10] = -2.0f / (far - near);
    r.m[12] = -(right + left) / (right - left);
    r.m[13] = -(top + bottom) / (top - bottom);
    r.m[14] = -(far + near) / (far - near);
    return r;
}

mat4 mat4::perspective(float fovYDegrees, float aspect, float near, float far)
{
    const float halfHeight = near * std::tan(degreesToRadians(fovYDegrees) / 2.0f);
    const float halfWidth = halfHeight * aspect;
    return frustum(-halfWidth, halfWidth, halfHeight, -halfHeight, near, far);
}

mat4 mat4::lookAt(const vec3& eye, const vec3& target, const vec3& up)
{
    const vec3 forward = (target - eye).normalized();
    const vec3 side = forward.cross(up).normalized();
    const vec3 trueUp = side.cross(forward);
    mat4 r;
    r.at(0, 0) = side.x;
    r.at(0, 1) = side.y;
    r.at(0, 2) = side.z;
    r.at(1, 0) = trueUp.x;
    r.at(1, 1) = trueUp.y;
    r.at(1, 2) = trueUp.z;
    r.at(2, 0) = -forward.x;
    r.at(2, 1) = -forward.y;
    r.at(2, 2) = -forward.z;
    r.translate(-eye.x, -eye.y, -eye.z);
    return r;
}

} // namespace vorlik
