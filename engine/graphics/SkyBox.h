// A sky box: six pictures on the inside of a cube round the eye, drawn through a perspective
// Camera without its position, so the sky turns with the view but never comes nearer. The
// faces follow the sky pictures' convention (y up, front looking down -z, each face upright
// from inside, edge texels on the cube's edges) and are sampled clamped to the edge, so they
// meet without a seam. A backdrop: draw it first, with depth testing off, after choosing the
// blend function and a textured program.
#pragma once

#include "math/mat4.h"

#include <cstdint>

namespace vorlik {

class Camera;
class Texture;

class SkyBox {
public:
    // The faces in drawing order.
    enum Face : int { FRONT, LEFT, BACK, RIGHT, TOP, BOTTOM, kFaceCount };

    // One face's square: the corners seen from inside as top-left, top-right, bottom-right,
    // bottom-left (x, y, z each) and their texture coordinates, the picture's top row at v = 0.
    struct Quad {
        float positions[12];
        float texCoords[8];
    };

    // Half the cube's side: well inside the default depth range (0.1 to 100), corners included.
    static constexpr float kHalfSize = 10.0f;

    Texture* faces[kFaceCount] = {}; // not owned; a null face or one without storage is skipped
    float brightness = 1.0f;         // the faces' colour is 255 x brightness in R, G and B
    float tiltX = 0.0f;              // turns of the whole box, degrees
    float tiltY = 0.0f;
    float tiltZ = 0.0f;

    // 255 x brightness truncated to a byte, brightness clamped to [0, 1] first.
    uint8_t shade() const;
    // The tilts as one matrix: about z, then y, then x, composed on the right, so a point of
    // the box is turned about x first.
    mat4 tiltMatrix() const;
    // The square of one face; texture coordinates reach uScale and vScale (see Texture).
    static Quad faceQuad(Face face, float uScale, float vScale);

    // Pushes the model-view matrix, applies camera without its position, turns by the tilts,
    // draws each face with a texture as a quad in the colour (shade, shade, shade, 255) with
    // its texture on unit 0, and pops the matrix. The projection stays the camera's.
    void draw(const Camera& camera) const;
};

} // namespace vorlik
