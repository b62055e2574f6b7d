// GameView: a 1280 x 720 frame of the game put together in software from the finished
// pictures, with the sizes, tints, blend modes and positions the game uses: the turning sky
// at 0.82, the starfield, enemies with their glows, the player's stacked layers, plasma bolts
// added three times, a laser beam, pickups, the HUD panels with their texts and the reticle.
#pragma once

#include "core/AssetSink.h"
#include "review/Compositor.h"

namespace assetgen {

constexpr int kScreenWidth = 1280, kScreenHeight = 720;
constexpr float kSkyBrightness = 0.82f;

// The sky as the game's camera sees it at the given point of its slow swing (t in -pi..pi).
void drawGameSky(Compositor& out, const AssetSink& sink, float t);

Compositor renderGameView(const AssetSink& sink);

// A named picture, or an empty one when it is missing.
const Picture& pictureOf(const AssetSink& sink, const char* name);

// The game's own procedural particle picture: a disc of the given radius in a 128 x 128
// square, white at the centre easing to black at its rim, opaque inside.
Picture particleDisc(int radius);

} // namespace assetgen
