// Where a particle slice sends what it decided to draw: the texture once, then each batch of
// quads under the model-view of one view copy. The slices pass the GL renderer
// (ParticleBatchRenderer); tests pass a recorder, so every batch can be read without a display.
#pragma once

#include "math/mat2.h"
#include "scene/ParticleSlice.h"

#include <cstdint>

namespace vorlik {
class Texture;
}

class ParticleBatchSink {
public:
    virtual ~ParticleBatchSink() = default;
    // Once per drawn slice, before its batches: the texture every batch is drawn with, which
    // may be null (a system whose texture was never set).
    virtual void beginSlice(vorlik::Texture* texture) = 0;
    // count vertices, four per particle, in world units, drawn through modelView (the camera
    // transform moved by one view copy's offset). The vertices live only until the call returns.
    virtual void drawBatch(const ParticleSlice::Vertex* vertices, uint32_t count, const vorlik::mat2& modelView) = 0;
};
