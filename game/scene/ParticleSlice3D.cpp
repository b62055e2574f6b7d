#include "scene/ParticleSlice3D.h"

ParticleSlice3D::ParticleSlice3D() = default;

ParticleSlice3D::~ParticleSlice3D() = default;
