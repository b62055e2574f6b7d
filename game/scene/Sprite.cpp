#include "scene/Sprite.h"

#include "graphics/Texture.h"
#include "scene/SceneState.h"
#include "scene/Shaders.h"

#include <GL/gl.h>
#include <GL/glext.h>

namespace {
float pictureWidth(const vorlik::Texture* texture)
{
    return texture != nullptr ? static_cast<float>(texture->width) * texture->uScale : 0.0f;
}

float pictureHeight(const vorlik::Texture* texture)
{
    return texture != nullptr ? static_cast<float>(texture->height) * texture->vScale : 0.0f;
}
} // namespace

Sprite::Sprite(vorlik::Texture* tex, float width, float height)
    : Sprite(tex, nullptr, width, height)
{
}

Sprite::Sprite(vorlik::Texture* tex, vorlik::Texture* glow, float width, float height)
    : texture(tex), glowTexture(glow)
{
    setSize(width == kOwnSize ? pictureWidth(tex) : width, height == kOwnSize ? pictureHeight(tex) : height);
    flags |= DRAW_VISIBLE;
}

Sprite::FrameRect Sprite::frameRect(float uScale, float vScale, bool isAnimated, int32_t gridColumns,
                                    int32_t gridRows, int32_t index)
{
    if (!isAnimated) return FrameRect{0.0f, 0.0f, uScale, vScale};
    const int32_t c = gridColumns < 1 ? 1 : gridColumns;
    const int32_t r = gridRows < 1 ? 1 : gridRows;
    const float cellU = uScale / static_cast<float>(c);
    const float cellV = vScale / static_cast<float>(r);
    const float column = static_cast<float>(index % c);
    const float row = static_cast<float>(index / c);
    return FrameRect{column * cellU, row * cellV, (column + 1.0f) * cellU, (row + 1.0f) * cellV};
}

Sprite::Quad Sprite::quad() const
{
    const float left = anchor.x - size.x / 2.0f;
    const float right = anchor.x + size.x / 2.0f;
    const float top = anchor.y - size.y / 2.0f;
    const float bottom = anchor.y + size.y / 2.0f;
    const float uScale = texture != nullptr ? texture->uScale : 1.0f;
    const float vScale = texture != nullptr ? texture->vScale : 1.0f;
    const FrameRect f = frameRect(uScale, vScale, animated != 0, columns, rows, frame);
    // The picture's top row is v = 0 and the screen's y points down, so v grows with y.
    return Quad{{left, top, right, top, right, bottom, left, bottom},
                {f.u0, f.v0, f.u1, f.v0, f.u1, f.v1, f.u0, f.v1}};
}

void Sprite::draw(const SceneState& state)
{
    // A picture that failed to load leaves a texture without storage, which GL samples as
    // opaque black; skipping it keeps a missing picture invisible, as with no texture at all.
    if (texture == nullptr || texture->width == 0 || texture->height == 0) return;

    const Quad q = quad();
    const ByteColor colors[4] = {state.color, state.color, state.color, state.color};

    glDisable(GL_CULL_FACE);
    glDisable(GL_DEPTH_TEST);
    Shaders::useTextured();
    texture->bind(GL_TEXTURE0);
    glColor4f(1.0f, 1.0f, 1.0f, 1.0f);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glVertexPointer(2, GL_FLOAT, 0, q.positions);
    glColorPointer(4, GL_UNSIGNED_BYTE, 0, colors);
    glTexCoordPointer(2, GL_FLOAT, 0, q.texCoords);
    glDrawArrays(GL_QUADS, 0, 4);
}
