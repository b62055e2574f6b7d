// The GL side of a particle slice's draw: binds the texture under the textured program and
// draws each batch as quads from client arrays under its model-view. It decides nothing. The
// scene has already loaded the projection and the slice's blend function.
#pragma once

#include "scene/ParticleBatchSink.h"

class ParticleBatchRenderer : public ParticleBatchSink {
public:
    // The textured program, the texture on unit 0, and the vertex, texture-coordinate and
    // colour arrays on. A null texture or one without pixels (a picture that failed to load)
    // would draw black squares: the slice's batches are then not drawn, as with sprites.
    void beginSlice(vorlik::Texture* texture) override;
    // Loads modelView and draws the vertices as GL_QUADS.
    void drawBatch(const ParticleSlice::Vertex* vertices, uint32_t count, const vorlik::mat2& modelView) override;

private:
    bool drawing = false; // the current slice's texture can be drawn with
};
