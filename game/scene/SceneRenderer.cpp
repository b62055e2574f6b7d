#include "scene/SceneRenderer.h"

#include "graphics/FrameBuffer.h"
#include "graphics/FullscreenQuad.h"
#include "graphics/Texture.h"
#include "math/mat4.h"
#include "scene/Drawable.h"
#include "scene/SceneState.h"
#include "scene/Shaders.h"

#include <GL/gl.h>
#include <GL/glext.h>

namespace {

constexpr uint8_t kOutlineAlpha = 192;
constexpr float kOutlineWidth = 3.0f; // pixels
constexpr float kBoundsWidth = 1.0f;  // pixels

// The default arrays a node's draw may rely on: opaque white and the unit square.
const uint8_t kWhite[4][4] = {{255, 255, 255, 255}, {255, 255, 255, 255}, {255, 255, 255, 255}, {255, 255, 255, 255}};
const float kUnitSquare[4][2] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};

void loadMatrices(const vorlik::mat4& projection, const vorlik::mat4& modelView)
{
    glMatrixMode(GL_PROJECTION);
    glLoadMatrixf(projection.data());
    glMatrixMode(GL_MODELVIEW);
    glLoadMatrixf(modelView.data());
}

// Draws a loop through four points with one colour each, untextured.
void drawLineLoop(const float points[4][2], const uint8_t colors[4][4], float lineWidth)
{
    glLineWidth(lineWidth);
    Shaders::useColor();
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glVertexPointer(2, GL_FLOAT, 0, points);
    glColorPointer(4, GL_UNSIGNED_BYTE, 0, colors);
    glDrawArrays(GL_LINE_LOOP, 0, 4);
}

} // namespace

BlendFactors blendFactorsFor(uint32_t blendField)
{
    if (blendField & BLEND_NORMAL) return {GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA};
    if (blendField & BLEND_ADDITIVE) return {GL_SRC_ALPHA, GL_ONE};
    if (blendField & BLEND_MODULATE) return {GL_SRC_ALPHA, GL_SRC_COLOR};
    return {GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA};
}

SceneRenderer::SceneRenderer(vorlik::FrameBuffer* destination) : target(destination) {}

void SceneRenderer::beginFrame()
{
    if (target != nullptr) {
        target->bind();
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    }
    glDisable(GL_CULL_FACE);
    glDisable(GL_DEPTH_TEST);
    glEnable(GL_TEXTURE_2D);
    glEnable(GL_BLEND);
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_COLOR_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisableClientState(GL_NORMAL_ARRAY);
}

void SceneRenderer::endFrame()
{
    if (target == nullptr) return;
    vorlik::FrameBuffer::unbind();
    target->color[0]->bind(GL_TEXTURE0);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    vorlik::drawFullscreenQuad();
}

void SceneRenderer::drawWorldOutline(const SceneState& initial, float worldWidth, float worldHeight)
{
    loadMatrices(*initial.projection, initial.transform.toMat4());
    const float corners[4][2] = {{0, 0}, {worldWidth, 0}, {worldWidth, worldHeight}, {0, worldHeight}};
    const uint8_t colors[4][4] = {{255, 255, 255, kOutlineAlpha},
                                  {255, 255, 255, kOutlineAlpha},
                                  {255, 255, 255, kOutlineAlpha},
                                  {255, 255, 255, kOutlineAlpha}};
    drawLineLoop(corners, colors, kOutlineWidth);
}

void SceneRenderer::drawNode(Drawable& node, const SceneState& state)
{
    if (node.flags & DRAW_PERSPECTIVE)
        loadMatrices(*state.perspective, state.cameraModelView);
    else
        loadMatrices(*state.projection, state.transform.toMat4());
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    const BlendFactors blend = blendFactorsFor(node.blendMode());
    glBlendFunc(blend.source, blend.destination);
    glColorPointer(4, GL_UNSIGNED_BYTE, 0, kWhite);
    glTexCoordPointer(2, GL_FLOAT, 0, kUnitSquare);
    Shaders::useTextured();
    node.draw(state);
}

void SceneRenderer::drawBounds(const Rect& r, const SceneState& state)
{
    loadMatrices(*state.projection, vorlik::mat4());
    const float corners[4][2] = {{r.x, r.y}, {r.x + r.width, r.y}, {r.x + r.width, r.y + r.height}, {r.x, r.y + r.height}};
    const uint8_t colors[4][4] = {{0, 255, 0, kOutlineAlpha},
                                  {255, 0, 0, kOutlineAlpha},
                                  {0, 0, 255, kOutlineAlpha},
                                  {255, 0, 0, kOutlineAlpha}};
    drawLineLoop(corners, colors, kBoundsWidth);
}
