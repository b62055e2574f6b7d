// Hud: the panels the game draws at half their size in a 1280 x 720 window (hud_score
// 400 x 120 behind the score and "Energy: 350" lines at the top left, hud_power_dials
// 400 x 160 at the bottom left, hud_radar_dials 512 x 512 at the bottom right) and the two
// masks that go with the dials (hud_radar_mask, hud_bars_mask).
#pragma once

#include "core/AssetSink.h"

namespace assetgen {

void makeHud(AssetSink& sink);

} // namespace assetgen
