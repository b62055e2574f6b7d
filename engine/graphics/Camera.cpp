#include "graphics/Camera.h"

#include <GL/gl.h>

namespace vorlik {

mat4 Camera::projection(float aspect) const
{
    return mat4::perspective(fieldOfView, aspect, nearPlane, farPlane);
}

mat4 Camera::modelView(uint32_t mode) const
{
    mat4 m;
    if (mode & kApplyRotation) m = mat4::lookAt(vec3(), target - position, up);
    if (mode & kApplyTranslation) m.translate(-position.x, -position.y, -position.z);
    return m;
}

void Camera::apply(uint32_t mode) const
{
    if (mode & kApplyProjection) {
        GLint viewport[4] = {0, 0, 0, 0};
        glGetIntegerv(GL_VIEWPORT, viewport);
        // An empty viewport shows nothing whatever the aspect; 1 keeps the matrix finite.
        const float aspect = viewport[3] > 0 ? static_cast<float>(viewport[2]) / static_cast<float>(viewport[3]) : 1.0f;
        glMatrixMode(GL_PROJECTION);
        glLoadMatrixf(projection(aspect).data());
    }
    glMatrixMode(GL_MODELVIEW);
    if (mode & (kApplyRotation | kApplyTranslation)) glLoadMatrixf(modelView(mode).data());
}

} // namespace vorlik
