// The game declares a 3D model but nothing creates one: it holds nothing and takes no part in
// drawing. It stays as an empty root for 3D effects, each of which would say how it draws.
#pragma once

class Model3D {
public:
    Model3D();
    virtual ~Model3D();
};
