// A scene node holding live particles of one ParticleSystem, oldest first, and drawing them as
// textured quads in world coordinates, in every wrapped copy of the view, in batches of
// kBatchVertices. The drawing decisions (which particles expire, the vertices of each batch and
// the view copy each goes to) are made in drawBatches and handed to a ParticleBatchSink, so a
// test can read them without a display; draw hands them to the GL renderer. Who deletes a
// slice, and when its own draw does, is set out in ParticleSystem.h.
#pragma once

#include "scene/Drawable.h"

#include <cstdint>
#include <cstddef>
#include <type_traits>

class ParticleBatchSink;
class ParticleSystem;
struct Particle;

class ParticleSlice : public Drawable {
public:
    // What GL reads per vertex, 32 bytes apart.
    struct Vertex {
        float x, y;           // world units
        float u, v;           // texture coordinates
        uint8_t r, g, b, a;   // colour bytes
        uint8_t unused[12];
    };

    // The four corners of one particle: (left, top), (right, top), (right, bottom),
    // (left, bottom) with y pointing down.
    struct Quad {
        Vertex corners[4];
    };

    static constexpr uint32_t kBatchVertices = 512;     // 128 particles per draw call and view copy
    static constexpr uint32_t kVertexListCapacity = 1024;

    ParticleSystem* system; // not owned; the system whose records this slice links
    Particle* first = nullptr; // oldest
    Particle* last = nullptr;  // newest
    uint32_t count = 0;
    uint8_t removeWhenEmpty;   // leave the parent at the first draw while empty
    uint8_t deleteWhenEmpty;   // delete itself at the first draw while empty

    // Visible and untransformed (drawn in world coordinates, never culled), in the system's
    // blend mode. ParticleSystem::createSlice is the usual way to make one.
    ParticleSlice(ParticleSystem* system, bool removeWhenEmpty, bool deleteWhenEmpty);
    // Frees every particle it still holds, so no record points at a deleted slice, then leaves
    // its parent.
    ~ParticleSlice() override;

    // Where a particle is at time now (engine milliseconds) and how it looks: it moves and
    // resizes linearly from birth to death, its colour bytes are its channels times 255, and
    // its alpha fades from full to 0. uScale and vScale are the texture's used part.
    static Quad quad(const Particle& particle, uint32_t now, float uScale, float vScale);

    // The Drawable operations. draw sends drawBatches to the GL renderer; the slice may remove
    // or delete itself there (see drawBatches). updateBounds spans the start and end points of
    // every particle, with the anchor at minus half the size; an empty slice gets size 0 and
    // stays dirty. The scenes never call it, since a slice is untransformed.
    void draw(const SceneState& state) override;
    void updateBounds() override;

    // One draw of the slice, with Vorlik::currentTime as now:
    //  - empty: it leaves its parent if removeWhenEmpty, then deletes itself if deleteWhenEmpty,
    //    and draws nothing; touch the slice no more after this call;
    //  - else every particle past its death is freed and the others become quads; each time
    //    kBatchVertices have gathered, and once for the rest, the batch goes to the sink once per
    //    view copy of the state, from the last copy to the first, under the state's transform
    //    moved by that copy's offset. Without a system texture the quads span the whole of
    //    texture space.
    void drawBatches(const SceneState& state, ParticleBatchSink& sink);

private:
    friend class ParticleSystem;

    void append(Particle& particle);
    // Takes a particle of this slice out of its list and frees it.
    void unlink(Particle& particle);
};

static_assert(sizeof(ParticleSlice::Vertex) == 32, "GL reads the vertices 32 bytes apart");
static_assert(offsetof(ParticleSlice::Vertex, u) == 8, "texture coordinates at byte 8");
static_assert(offsetof(ParticleSlice::Vertex, r) == 16, "colour bytes at byte 16");
static_assert(std::is_trivially_copyable<ParticleSlice::Vertex>::value, "kept in a Stack, copied bytewise");
