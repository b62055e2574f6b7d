// SkyView: renders the six sky pictures as the cube round the viewer, in software, through a
// perspective camera. The review sheet uses it to show the game's sky and to look straight
// into cube corners, where a wrong face orientation or a seam would show at once.
#pragma once

#include "art/SkyCube.h"
#include "review/Compositor.h"

namespace assetgen {

struct SkyCamera {
    V3 forward{0, 0, -1};
    V3 up{0, 1, 0};
    float fovDeg = 50;            // vertical
    float tiltXDeg = 0, tiltZDeg = 0;  // the box's own turn: about z first, then x
};

// Adds the sky at the given brightness into the rectangle (x, y, w, h) of out.
void renderSky(Compositor& out, int x, int y, int w, int h, const Picture* const faces[6], const SkyCamera& cam,
               float brightness);

} // namespace assetgen
