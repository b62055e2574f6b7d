// Player: the player's round craft in three stacked layers drawn 64 x 64 (player_bot, a
// turbine ring that the game spins fast; player_mid, a ring of panels that turns slowly;
// player_top, the still hull and cockpit) and its two halos (player_glow_bot drawn 60 x 60,
// turning with the turbine, and player_glow_top drawn 72 x 72).
#pragma once

#include "core/AssetSink.h"

namespace assetgen {

void makePlayer(AssetSink& sink);

} // namespace assetgen
