#include "player/Friend.h"

void Friend::update() {}

bool Friend::damage(float) { return true; }

void Friend::respawn() {}

void Friend::die() {}
