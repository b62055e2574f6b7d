// Test doubles for the particles: a batch sink that keeps every batch a slice sends, a scene
// sink that draws slices through it (and other leaves as they are), a fixture that sets the
// engine clock, and a copy of the particles' generator to predict its draws.
#pragma once

#include "core/Random.h"
#include "math/mat2.h"
#include "platform/Vorlik.h"
#include "scene/ParticleBatchSink.h"
#include "scene/ParticleSlice.h"
#include "scene/ParticleSystem.h"
#include "scene/SceneSink.h"
#include "scene/SceneState.h"

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

struct RecordedBatch {
    std::vector<ParticleSlice::Vertex> vertices;
    vorlik::mat2 modelView;
};

// Keeps the textures a slice began with and a copy of each batch, in order.
class BatchRecorder : public ParticleBatchSink {
public:
    void beginSlice(vorlik::Texture* texture) override { textures.push_back(texture); }
    void drawBatch(const ParticleSlice::Vertex* vertices, uint32_t count, const vorlik::mat2& modelView) override
    {
        batches.push_back(RecordedBatch{std::vector<ParticleSlice::Vertex>(vertices, vertices + count), modelView});
    }

    std::vector<vorlik::Texture*> textures;
    std::vector<RecordedBatch> batches;
};

// The traversal's decisions without GL: the nodes in the order they were handed over (noted
// before their draw, which may delete them), slices drawn into batches, other leaves asked to
// draw themselves.
class ParticleSceneSink : public SceneSink {
public:
    void beginFrame() override {}
    void endFrame() override {}
    void drawWorldOutline(const SceneState&, float, float) override {}
    void drawBounds(const Rect&, const SceneState&) override {}
    void drawNode(Drawable& node, const SceneState& state) override
    {
        drawn.push_back(&node);
        if (ParticleSlice* slice = dynamic_cast<ParticleSlice*>(&node))
            slice->drawBatches(state, batches);
        else
            node.draw(state);
    }

    std::vector<Drawable*> drawn;
    BatchRecorder batches;
};

// Particle tests run on a clock they set: the engine's frame time is saved and restored.
class ParticleClockTest : public ::testing::Test {
protected:
    static constexpr uint32_t kStart = 100000; // ms, well below where float times lose whole ms

    void SetUp() override
    {
        savedTime = vorlik::Vorlik::currentTime;
        savedSync = vorlik::Vorlik::sync;
        vorlik::Vorlik::currentTime = kStart;
        vorlik::Vorlik::sync = 0.016f;
    }
    void TearDown() override
    {
        vorlik::Vorlik::currentTime = savedTime;
        vorlik::Vorlik::sync = savedSync;
    }

    static void setTime(uint32_t ms) { vorlik::Vorlik::currentTime = ms; }

    uint32_t savedTime = 0;
    float savedSync = 0.0f;
};

// A generator in the state ParticleSystem::random is in now: its next draws are the ones the
// particles will get.
class RandomSnapshot : public vorlik::Random {
public:
    RandomSnapshot() : vorlik::Random(0)
    {
        const vorlik::Random& from = ParticleSystem::random;
        std::memcpy(ints, from.ints, sizeof(int32_t) * kTableSize);
        std::memcpy(floats, from.floats, sizeof(float) * kTableSize);
        intCursor = from.intCursor;
        floatCursor = from.floatCursor;
    }
};

// The particles of a slice, oldest first.
inline std::vector<Particle*> particlesOf(const ParticleSlice& slice)
{
    std::vector<Particle*> list;
    for (Particle* p = slice.first; p != nullptr; p = p->next) list.push_back(p);
    return list;
}

// count white particles of a fixed life into slice at a point: no direction, scatter or spread.
inline void emitPlain(ParticleSystem& system, ParticleSlice* slice, uint32_t count, int32_t life = 1000,
                      vorlik::vec2 at = vorlik::vec2())
{
    const vorlik::vec4 white(1, 1, 1, 1);
    system.emit(slice, count, life, life, at, vorlik::vec2(), white, white, 0, 16, 16, 16, 16, 0, 0, 0);
}
