// The game declares a placed 3D object but nothing creates one: it holds nothing and takes no part
// in drawing. It stays as an empty root for 3D effects, each of which would say how it draws.
#pragma once

class Object3D {
public:
    Object3D();
    virtual ~Object3D();
};
