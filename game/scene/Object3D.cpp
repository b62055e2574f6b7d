#include "scene/Object3D.h"

Object3D::Object3D() = default;

Object3D::~Object3D() = default;
