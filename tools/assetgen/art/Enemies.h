// Enemies: the six enemy craft, each a body picture and a matching glow picture
// (enemy_fighter, enemy_fighter2, enemy_hammerhead, enemy_probe, enemy_probe2, enemy_probe3).
// All face up; the game turns them toward their flight.
#pragma once

#include <string>
#include <vector>

#include "art/Hull.h"

namespace assetgen {

struct EnemyArt {
    std::string name;   // body picture; the glow is name + "_glow"
    int size;           // pixels, about twice the size the game draws it
    HullDesign design;
    LightDesign lights;
    HullStyle style;
};

std::vector<EnemyArt> enemyArt();

} // namespace assetgen
