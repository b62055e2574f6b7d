#include "play/WorldGeometry.h"

#include "math/scalar.h"

vorlik::vec2 wrapIntoWorld(const vorlik::vec2& p)
{
    return vorlik::vec2(vorlik::wrap(p.x, 0.0f, kWorldWidth), vorlik::wrap(p.y, 0.0f, kWorldHeight));
}

void wrapImages(const vorlik::vec2& p, vorlik::vec2 images[kWrapImageCount])
{
    // Multiples of the world size, in the fixed order of the images.
    static constexpr int kShifts[kWrapImageCount][2] = {{0, 0},  {1, 0},  {-1, 0}, {0, 1},  {0, -1},
                                                        {1, 1}, {1, -1}, {-1, 1}, {-1, -1}};
    for (int i = 0; i < kWrapImageCount; ++i)
        images[i] = vorlik::vec2(p.x + kShifts[i][0] * kWorldWidth, p.y + kShifts[i][1] * kWorldHeight);
}
