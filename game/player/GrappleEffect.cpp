#include "player/GrappleEffect.h"

GrappleEffect::GrappleEffect() = default;

GrappleEffect::~GrappleEffect() = default;

void GrappleEffect::update() {}
