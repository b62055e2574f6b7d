#include "hud/Radar.h"

Radar::Radar() = default;

Radar::~Radar() = default;

void Radar::draw(const SceneState&) {}
