#include "graphics/SkyBox.h"

#include "graphics/Camera.h"
#include "graphics/Texture.h"
#include "math/scalar.h"

#include <GL/gl.h>
#include <GL/glext.h>

namespace vorlik {

namespace {

constexpr uint8_t kOpaque = 255;

// Each face's corners on the unit cube, top-left, top-right, bottom-right, bottom-left as seen
// from inside, in the order of SkyBox::Face. Neighbours share their corners along the edges
// where the pictures meet: front's right edge is right's left edge, top's bottom edge is
// front's top edge, and so on round the unfolded cross.
const float kCorners[SkyBox::kFaceCount][4][3] = {
    {{-1, 1, -1}, {1, 1, -1}, {1, -1, -1}, {-1, -1, -1}}, // front, looking down -z
    {{-1, 1, 1}, {-1, 1, -1}, {-1, -1, -1}, {-1, -1, 1}}, // left, looking down -x
    {{1, 1, 1}, {-1, 1, 1}, {-1, -1, 1}, {1, -1, 1}},     // back, looking down +z
    {{1, 1, -1}, {1, 1, 1}, {1, -1, 1}, {1, -1, -1}},     // right, looking down +x
    {{-1, 1, 1}, {1, 1, 1}, {1, 1, -1}, {-1, 1, -1}},     // top, its bottom edge on front's top
    {{-1, -1, -1}, {1, -1, -1}, {1, -1, 1}, {-1, -1, 1}}, // bottom, its top edge on front's bottom
};

} // namespace

uint8_t SkyBox::shade() const
{
    return static_cast<uint8_t>(clamp(brightness, 0.0f, 1.0f) * 255.0f);
}

mat4 SkyBox::tiltMatrix() const
{
    mat4 m;
    m.rotateEuler(degreesToRadians(tiltX), degreesToRadians(tiltY), degreesToRadians(tiltZ));
    return m;
}

SkyBox::Quad SkyBox::faceQuad(Face face, float uScale, float vScale)
{
    Quad q{};
    for (int corner = 0; corner < 4; ++corner)
        for (int axis = 0; axis < 3; ++axis) q.positions[corner * 3 + axis] = kCorners[face][corner][axis] * kHalfSize;
    const float texCoords[8] = {0.0f, 0.0f, uScale, 0.0f, uScale, vScale, 0.0f, vScale};
    for (int i = 0; i < 8; ++i) q.texCoords[i] = texCoords[i];
    return q;
}

void SkyBox::draw(const Camera& camera) const
{
    const uint8_t s = shade();
    const uint8_t colors[4][4] = {{s, s, s, kOpaque}, {s, s, s, kOpaque}, {s, s, s, kOpaque}, {s, s, s, kOpaque}};

    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    camera.apply(Camera::kApplyWithoutTranslation);
    glMultMatrixf(tiltMatrix().data());
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glColorPointer(4, GL_UNSIGNED_BYTE, 0, colors);
    for (int f = 0; f < kFaceCount; ++f) {
        Texture* texture = faces[f];
        if (texture == nullptr || texture->width == 0 || texture->height == 0) continue;
        const Quad q = faceQuad(static_cast<Face>(f), texture->uScale, texture->vScale);
        texture->bind(GL_TEXTURE0);
        // Textures made from pictures repeat; an edge texel must not blend with the far side's.
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
        glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
        glVertexPointer(3, GL_FLOAT, 0, q.positions);
        glTexCoordPointer(2, GL_FLOAT, 0, q.texCoords);
        glDrawArrays(GL_QUADS, 0, 4);
    }
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
}

} // namespace vorlik
