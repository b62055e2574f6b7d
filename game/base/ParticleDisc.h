// The soft round particle pictures that the game draws itself instead of loading: a disc,
// opaque over its whole area, whose colour eases from one value at the centre to another at
// the rim. Plain image code with no GL, so the pictures can be checked pixel by pixel.
#pragma once

#include <cstdint>

namespace vorlik {
class Image;
}

// Draws a disc of the given radius (pixels) centred on (cx, cy) into image, colours as
// 0xRRGGBB. Only the 2r x 2r square from (cx - r, cy - r) is visited, so the row cy + r and
// the column cx + r stay untouched; pixels farther than r from the centre are left as they
// are, and pixels off the image are dropped.
void drawDisc(vorlik::Image& image, int32_t cx, int32_t cy, int32_t radius, uint32_t rimRgb,
              uint32_t centreRgb);
