#include "scene/ParticleEmitter3D.h"

ParticleEmitter3D::ParticleEmitter3D() = default;

ParticleEmitter3D::~ParticleEmitter3D() = default;
