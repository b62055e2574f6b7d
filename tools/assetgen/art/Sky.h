// Sky: the six faces of the nebula sky box (sky_front, sky_back, sky_left, sky_right,
// sky_top, sky_bottom, 1024 x 1024). Every texel samples one 3D field along its direction,
// so the faces meet without seams. The game adds the sky at 0.82 brightness behind
// everything: it stays dark so ships and shots stand out.
#pragma once

#include "art/SkyCube.h"
#include "core/AssetSink.h"

namespace assetgen {

constexpr int kSkySize = 1024;

void makeSkyFace(AssetSink& sink, CubeFace face);

} // namespace assetgen
