// The game declares a system of 3D particles but nothing creates one: it holds nothing and takes
// no part in drawing. It stays as an empty root for 3D effects, each of which would say how it
// draws.
#pragma once

class ParticleSystem3D {
public:
    ParticleSystem3D();
    virtual ~ParticleSystem3D();
};
