#include "play/Gun.h"

#include "graphics/Texture.h"
#include "platform/Vorlik.h"
#include "play/GameSession.h"
#include "scene/ParticleSystem.h"
#include "scene/SceneState.h"
#include "scene/Shaders.h"

#include <GL/gl.h>
#include <GL/glext.h>

namespace {

constexpr float kMillisecondsPerSecond = 1000.0f;

struct GunNumbers {
    float damageMin, damageMax; // a hit's damage; the laser's is per second of contact
    float shotsPerSecond;
    float energyPerShot;
};

// By Gun::Kind.
constexpr GunNumbers kGuns[] = {
    {5.0f, 15.0f, 5.0f, 2.0f},  // plasma
    {65.0f, 85.0f, 4.0f, 8.0f}, // laser
    {2.0f, 7.0f, 0.7f, 1.0f},   // enemy plasma: one bolt each 1428.6 ms
};

constexpr uint32_t kQuadListCapacity = 1024; // vertices; the list doubles when a frame needs more
constexpr GLsizei kStride = sizeof(Gun::QuadVertex);

// Draws each batch as textured quads from the interleaved vertices. The scene has loaded the
// projection and the gun's additive blend function.
class GLQuads : public Gun::QuadSink {
public:
    void drawQuads(vorlik::Texture* texture, const Gun::QuadVertex* vertices, uint32_t count,
                   const vorlik::mat2& modelView) override
    {
        // A picture that failed to load would draw black squares: such shots are not drawn.
        if (texture == nullptr || texture->width == 0 || texture->height == 0) return;
        Shaders::useTextured();
        texture->bind(GL_TEXTURE0);
        glMatrixMode(GL_MODELVIEW);
        glLoadMatrixf(modelView.toMat4().data());
        glEnableClientState(GL_VERTEX_ARRAY);
        glEnableClientState(GL_TEXTURE_COORD_ARRAY);
        glEnableClientState(GL_COLOR_ARRAY);
        glVertexPointer(2, GL_FLOAT, kStride, &vertices->x);
        glTexCoordPointer(2, GL_FLOAT, kStride, &vertices->u);
        glColorPointer(4, GL_UNSIGNED_BYTE, kStride, &vertices->r);
        glDrawArrays(GL_QUADS, 0, static_cast<GLsizei>(count));
    }
};

} // namespace

Gun::Gun(Kind kind)
    : damageMin(kGuns[kind].damageMin), damageMax(kGuns[kind].damageMax),
      fireRate(kGuns[kind].shotsPerSecond), power(kGuns[kind].energyPerShot),
      sparkSystem(g_game->sparkParticles)
{
    setBlendMode(BLEND_ADDITIVE);
}

float Gun::fire(const vorlik::vec2&)
{
    if (fireRate == 0.0f) return 0.0f;
    const float now = static_cast<float>(vorlik::Vorlik::currentTime);
    if (fireRate != kEveryCall && now - lastShot < kMillisecondsPerSecond / fireRate) return 0.0f;
    lastShot = now;
    return power;
}

void Gun::update() {}

void Gun::draw(const SceneState& state)
{
    GLQuads gl;
    drawShots(state, gl);
}

vorlik::vec2 Gun::origin() const { return vorlik::vec2(position.x, position.y); }

Gun::Quad Gun::square(const vorlik::vec2& centre, float halfSize, const uint8_t colour[4])
{
    const float left = centre.x - halfSize, right = centre.x + halfSize;
    const float top = centre.y - halfSize, bottom = centre.y + halfSize;
    const uint8_t r = colour[0], g = colour[1], b = colour[2], a = colour[3];
    return Quad{{{left, top, 0.0f, 0.0f, r, g, b, a},
                 {right, top, 1.0f, 0.0f, r, g, b, a},
                 {right, bottom, 1.0f, 1.0f, r, g, b, a},
                 {left, bottom, 0.0f, 1.0f, r, g, b, a}}};
}

ParticleSlice* Gun::newSparkSlice() const
{
    return sparkSystem->createSlice(ParticleSystem::kLeaveWhenEmpty, ParticleSystem::kKeepWhenEmpty);
}

vorlik::Stack<Gun::QuadVertex>& Gun::quadList()
{
    static vorlik::Stack<QuadVertex> list(kQuadListCapacity);
    return list;
}

void Gun::append(vorlik::Stack<QuadVertex>& list, const Quad& quad)
{
    for (const QuadVertex& corner : quad.corners) list.push(corner);
}

void Gun::sendToViews(const SceneState& state, vorlik::Texture* texture,
                         const vorlik::Stack<QuadVertex>& list, uint32_t times, QuadSink& sink)
{
    if (list.empty()) return;
    for (const ViewRect& view : *state.views) {
        vorlik::mat2 modelView = state.transform;
        modelView.translate(view.offset);
        for (uint32_t n = 0; n < times; ++n) sink.drawQuads(texture, list.data, list.size(), modelView);
    }
}
