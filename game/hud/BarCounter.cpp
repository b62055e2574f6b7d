#include "hud/BarCounter.h"

BarCounter::BarCounter() = default;

BarCounter::~BarCounter() = default;

void BarCounter::draw(const SceneState&) {}
