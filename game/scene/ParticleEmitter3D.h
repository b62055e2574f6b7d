// The game declares an emitter of 3D particles but nothing creates one: it holds nothing and takes
// no part in drawing. It stays as an empty root for 3D effects, each of which would say how it
// draws.
#pragma once

class ParticleEmitter3D {
public:
    ParticleEmitter3D();
    virtual ~ParticleEmitter3D();
};
