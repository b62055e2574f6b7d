// Effects: the small additive pictures the game tints and scales: star (a soft streak,
// drawn 6 to 22 pixels wide), plasmabullet (a glowing bolt drawn 24 or 32 pixels wide and
// added three times), slaser (a beam cross-section along v that tiles along u) and the
// aiming reticle with its pulsing glow. The star, the bolt and the beam are drawn with
// texture coordinates running over the whole texture, so their sizes are powers of two:
// the loader would pad any other size with empty texels.
#pragma once

#include "core/AssetSink.h"

namespace assetgen {

void makeStar(AssetSink& sink);
void makePlasmaBullet(AssetSink& sink);
void makeLaser(AssetSink& sink);
void makeReticle(AssetSink& sink);

} // namespace assetgen
