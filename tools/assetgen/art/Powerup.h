// Powerup: the spinning pickup token, 256 frames in a 16 x 16 grid of 64-pixel cells
// (powerup_anim, 1024 x 1024, drawn 48 x 48 at 25 frames a second) and the halo sheet that
// matches it frame for frame (powerup_glow_anim). The spin makes whole turns over the 256
// frames, so the last frame runs on into the first.
#pragma once

#include "core/AssetSink.h"

namespace assetgen {

constexpr int kPowerupFrames = 256;
constexpr int kPowerupColumns = 16;
constexpr int kPowerupCell = 64;

void makePowerup(AssetSink& sink);

} // namespace assetgen
