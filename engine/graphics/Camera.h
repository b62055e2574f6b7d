// A perspective camera for 3D backdrops: an eye position, the point it looks at, a vertical
// field of view and the depth range. apply() loads its matrices into GL under a mode word of
// Camera::kApply* bits, so a backdrop can take the camera's turn without its position (a sky
// box must stay round the eye wherever the camera stands). Not for the 2D scenes, which make
// their own projections. The matrix arithmetic runs without GL; apply needs a current context.
#pragma once

#include "math/mat4.h"
#include "math/vec3.h"

#include <cstdint>

namespace vorlik {

class Camera {
public:
    // Bits of apply's mode word.
    static constexpr uint32_t kApplyTranslation = 0x1; // model-view moves the world by -position
    static constexpr uint32_t kApplyRotation = 0x2;    // model-view turns the world to face target
    static constexpr uint32_t kApplyProjection = 0x4;  // projection becomes the perspective frustum
    // The whole camera (mode 7), and the camera without its position (mode 6) for a sky box.
    static constexpr uint32_t kApplyAll = kApplyTranslation | kApplyRotation | kApplyProjection;
    static constexpr uint32_t kApplyWithoutTranslation = kApplyRotation | kApplyProjection;

    vec3 position;                 // the eye
    vec3 target{0.0f, 0.0f, -1.0f}; // the point at the centre of the view; not equal to position
    vec3 up{0.0f, 1.0f, 0.0f};     // which way is up on screen; not parallel to target - position
    float fieldOfView = 45.0f;     // vertical, degrees
    float nearPlane = 0.1f;        // distance of the near clipping plane
    float farPlane = 100.0f;       // distance of the far clipping plane

    // The perspective frustum for a picture aspect (width / height) wide.
    mat4 projection(float aspect) const;
    // The model-view the mode's translation and rotation bits make: the rotation that turns
    // the line of sight onto -z, after the move of position to the origin when asked for.
    // Identity when neither bit is set.
    mat4 modelView(uint32_t mode) const;

    // With kApplyProjection, loads the projection for the current viewport's aspect; with
    // either model-view bit, loads modelView(mode) (replacing what was there). Leaves the
    // model-view matrix current.
    void apply(uint32_t mode) const;
};

} // namespace vorlik
