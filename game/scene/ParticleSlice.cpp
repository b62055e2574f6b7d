#include "scene/ParticleSlice.h"

#include "core/Stack.h"
#include "graphics/Texture.h"
#include "platform/Vorlik.h"
#include "scene/Particle.h"
#include "scene/ParticleBatchRenderer.h"
#include "scene/ParticleSystem.h"
#include "scene/SceneState.h"

#include <algorithm>

namespace {

constexpr float kFullByte = 255.0f;

// The vertex list every slice fills, made on first use and kept for the program's life, so
// drawing allocates nothing. It never holds more than one batch.
vorlik::Stack<ParticleSlice::Vertex>& vertexList()
{
    static vorlik::Stack<ParticleSlice::Vertex> list(ParticleSlice::kVertexListCapacity);
    return list;
}

// How far through its life a particle is, 0 at birth and 1 at death, never beyond. A life of
// 0 ms counts as over (1) rather than 0 / 0; a birth ahead of now (a clock set back) counts as
// just born. The differences are taken in whole milliseconds, so the result stays exact however
// long the game has run.
float progress(uint32_t now, uint32_t birth, uint32_t death)
{
    if (death <= birth) return 1.0f;
    if (now <= birth) return 0.0f;
    return std::min(1.0f, static_cast<float>(now - birth) / static_cast<float>(death - birth));
}

uint8_t colorByte(float fraction) { return static_cast<uint8_t>(kFullByte * fraction); }

// Sends the gathered vertices once per view copy, from the last copy to the first, then
// empties the list.
void flush(vorlik::Stack<ParticleSlice::Vertex>& list, const SceneState& state, ParticleBatchSink& sink)
{
    if (list.empty()) return;
    for (uint32_t i = state.views->size(); i > 0; --i) {
        vorlik::mat2 modelView = state.transform;
        modelView.translate((*state.views)[i - 1].offset);
        sink.drawBatch(list.data, list.size(), modelView);
    }
    list.clear();
}

} // namespace

ParticleSlice::ParticleSlice(ParticleSystem* owner, bool removeEmpty, bool deleteEmpty)
    : system(owner), removeWhenEmpty(removeEmpty), deleteWhenEmpty(deleteEmpty)
{
    flags |= DRAW_VISIBLE | DRAW_UNTRANSFORMED;
    setBlendMode(owner->blendMode);
}

ParticleSlice::~ParticleSlice()
{
    for (Particle* p = first; p != nullptr;) {
        Particle* following = p->next;
        p->slice = nullptr;
        p->prev = p->next = nullptr;
        p = following;
    }
    first = last = nullptr;
    count = 0;
}

ParticleSlice::Quad ParticleSlice::quad(const Particle& particle, uint32_t now, float uScale, float vScale)
{
    const float t = progress(now, particle.birth, particle.death);
    const vorlik::vec2 p = particle.start + (particle.end - particle.start) * t;
    const float s = particle.sizeStart + (particle.sizeEnd - particle.sizeStart) * t;
    const uint8_t r = colorByte(particle.color.x);
    const uint8_t g = colorByte(particle.color.y);
    const uint8_t b = colorByte(particle.color.z);
    const uint8_t a = colorByte((1.0f - t) * particle.color.w);
    return Quad{{{p.x - s, p.y - s, 0.0f, 0.0f, r, g, b, a, {}},
                 {p.x + s, p.y - s, uScale, 0.0f, r, g, b, a, {}},
                 {p.x + s, p.y + s, uScale, vScale, r, g, b, a, {}},
                 {p.x - s, p.y + s, 0.0f, vScale, r, g, b, a, {}}}};
}

void ParticleSlice::draw(const SceneState& state)
{
    ParticleBatchRenderer renderer;
    drawBatches(state, renderer);
}

void ParticleSlice::drawBatches(const SceneState& state, ParticleBatchSink& sink)
{
    if (first == nullptr) {
        last = nullptr;
        const bool deleteSelf = deleteWhenEmpty != 0;
        if (removeWhenEmpty != 0) removeFromParent();
        // The scene's walk has already read the next sibling, so deleting here is safe.
        if (deleteSelf) delete this;
        return;
    }

    vorlik::Texture* texture = system->texture;
    sink.beginSlice(texture);
    const float uScale = texture != nullptr ? texture->uScale : 1.0f;
    const float vScale = texture != nullptr ? texture->vScale : 1.0f;

    vorlik::Stack<Vertex>& list = vertexList();
    list.clear();
    const uint32_t now = vorlik::Vorlik::currentTime;
    for (Particle* p = first; p != nullptr;) {
        Particle* following = p->next;
        if (now > p->death) {
            unlink(*p);
        } else {
            const Quad q = quad(*p, now, uScale, vScale);
            for (const Vertex& corner : q.corners) list.push(corner);
            if (list.size() >= kBatchVertices) flush(list, state, sink);
        }
        p = following;
    }
    flush(list, state, sink);
}

void ParticleSlice::updateBounds()
{
    if (first == nullptr) {
        size.x = size.y = 0.0f;
        return;
    }
    vorlik::vec2 low = first->start;
    vorlik::vec2 high = first->start;
    for (const Particle* p = first; p != nullptr; p = p->next) {
        for (const vorlik::vec2& point : {p->start, p->end}) {
            low = vorlik::vec2(std::min(low.x, point.x), std::min(low.y, point.y));
            high = vorlik::vec2(std::max(high.x, point.x), std::max(high.y, point.y));
        }
    }
    size.x = high.x - low.x;
    size.y = high.y - low.y;
    anchor = vorlik::vec3(-size.x / 2.0f, -size.y / 2.0f, 0.0f);
    flags &= ~DRAW_BOUNDS_DIRTY;
}

void ParticleSlice::append(Particle& particle)
{
    particle.slice = this;
    particle.prev = last;
    particle.next = nullptr;
    if (last != nullptr)
        last->next = &particle;
    else
        first = &particle;
    last = &particle;
    ++count;
}

void ParticleSlice::unlink(Particle& particle)
{
    if (particle.prev != nullptr)
        particle.prev->next = particle.next;
    else
        first = particle.next;
    if (particle.next != nullptr)
        particle.next->prev = particle.prev;
    else
        last = particle.prev;
    --count;
    particle.slice = nullptr;
    particle.prev = particle.next = nullptr;
}
